#pragma once

#include "common_ui_qt_export.h"

#include <QMetaObject>

#include <memory>
#include <vector>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Owns Qt signal connections and cuts them, from the first added to the last, when it dies: for connections that are
/// to end before sender and receiver do.
///
///     m_whileSaving = std::make_unique<zelmar::ui::QtSignalConnectionCollection>();
///     m_whileSaving->add(connect(model, &Model::dataChanged, this, &Editor::noteEdit));
///     ...
///     m_whileSaving.reset(); // noteEdit() is not called any more
///
/// It does not keep senders or receivers alive: a connection that has ended already, or was never made, is harmless. A
/// single connection cannot be taken out; there is nothing but the end of all.
///
/// It may die in a slot of one of its own connections: slots that the same emission has not reached yet are not called.
/// The slot that is running runs on; if it is a lambda, what it has captured lives until it returns.
///
/// A queued connection still delivers what was emitted before it was cut: so Qt has it. GUI thread only.
class COMMON_UI_QT_EXPORT QtSignalConnectionCollection
{
public:
    QtSignalConnectionCollection();
    ~QtSignalConnectionCollection();
    QtSignalConnectionCollection(const QtSignalConnectionCollection&) = delete;
    QtSignalConnectionCollection(QtSignalConnectionCollection&&) = delete;
    QtSignalConnectionCollection& operator=(const QtSignalConnectionCollection&) = delete;
    QtSignalConnectionCollection& operator=(QtSignalConnectionCollection&&) = delete;

    /// Any handle, also one that QObject::connect() could not make. If it throws (std::bad_alloc), the collection is as
    /// it was and the connection stays, owned by nobody.
    void add(const QMetaObject::Connection& connection);

private:
    std::unique_ptr<std::vector<QMetaObject::Connection>> m_connections;
};

} // namespace ui
} // namespace zelmar
