#pragma once

#include "common_ui_qt_export.h"

#include <QObject>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// Gives an object, as a rule a view, the platform's Copy keys: a derived class says what is copied. The handler is a
/// child of the object and dies with it, so nobody has to keep it.
///
///     class ListCopyHandler : public zelmar::ui::CopyHandlerAbstract
///     {
///         Q_OBJECT
///
///     public:
///         ListCopyHandler(QListView& list) : CopyHandlerAbstract(list), m_list(&list) {}
///
///     public Q_SLOTS:
///         void copyToClipboard() override;
///
///     private:
///         QListView* m_list;
///     };
///
///     new ListCopyHandler(*list);
///
/// Known traps:
/// - A shortcut comes before a key press: where an action of the window has the Copy keys, the action is triggered and
///   the handler is not asked. Connect such an action to copyToClipboard().
/// - Two handlers of one object: the one that was made last takes the keys.
/// - The handler is watching as long as it lives. Do not give it a parent that lives longer than the object.
/// - When a derived class is destroyed together with the object, the object is no more than a QObject by then.
///
/// GUI thread only, where the object is a widget; always the thread of the object.
class COMMON_UI_QT_EXPORT CopyHandlerAbstract : public QObject
{
    Q_OBJECT

public:
    /// Watches the key presses of `watched`, which becomes the parent.
    explicit CopyHandlerAbstract(QObject& watched);
    /// Stops watching.
    ~CopyHandlerAbstract() override;

    /// A key press that is the platform's Copy is answered by copyToClipboard() and consumed: true. Everything else
    /// passes: false. `watched` is not examined, so the handler can be installed on further objects, too.
    ///
    /// copyToClipboard() may delete the handler, or the watched object with it.
    bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
    /// Puts what is to be copied on the clipboard. Called for the Copy keys, and open to whoever offers copying in
    /// another way, such as an action of a context menu.
    virtual void copyToClipboard() = 0;

private:
    QObject* m_watched;
};

} // namespace ui
} // namespace zelmar
