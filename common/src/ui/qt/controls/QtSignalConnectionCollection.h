#pragma once

#include "common_ui_qt_export.h"

#include <QMetaObject>

#include <memory>
#include <vector>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// An owner of Qt signal connections that disconnects them when it is destroyed, in the order in which they were added.
/// Use it for connections that must end before their sender and receiver are destroyed.
///
///     m_whileSaving = std::make_unique<zelmar::ui::QtSignalConnectionCollection>();
///     m_whileSaving->add(connect(model, &Model::dataChanged, this, &Editor::noteEdit));
///     // ...
///     m_whileSaving.reset(); // disconnects noteEdit()
///
/// The collection does not extend the life of senders or receivers. A connection that has already ended, or that failed
/// to be established, is ignored. A single connection cannot be removed.
///
/// The collection may be destroyed in a slot of one of its own connections. Slots that the same emission has not
/// reached yet are not called. The running slot continues; if it is a lambda, its captures stay valid until it returns.
///
/// As always in Qt, a queued connection still delivers signals that were emitted before it was disconnected. GUI thread
/// only.
class COMMON_UI_QT_EXPORT QtSignalConnectionCollection
{
public:
    QtSignalConnectionCollection();
    ~QtSignalConnectionCollection();
    QtSignalConnectionCollection(const QtSignalConnectionCollection&) = delete;
    QtSignalConnectionCollection(QtSignalConnectionCollection&&) = delete;
    QtSignalConnectionCollection& operator=(const QtSignalConnectionCollection&) = delete;
    QtSignalConnectionCollection& operator=(QtSignalConnectionCollection&&) = delete;

    /// Adds a copy of `connection`, which may be invalid. If this function throws std::bad_alloc, the collection is
    /// unchanged and the connection stays established without an owner.
    void add(const QMetaObject::Connection& connection);

private:
    std::unique_ptr<std::vector<QMetaObject::Connection>> m_connections;
};

} // namespace ui
} // namespace zelmar
