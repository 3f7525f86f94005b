#pragma once

#include "common_ui_qt_export.h"

#include <QObject>

namespace zelmar { // NOLINT(modernize-concat-nested-namespaces): C++14 here
namespace ui {

/// An event filter that gives an object, usually a view, the platform's Copy key sequence. A derived class implements
/// what is copied. The handler is a child of the watched object, which deletes it.
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
/// - Shortcuts are handled before key presses. If an action of the window has the Copy keys, Qt triggers the action and
///   does not call the handler. Connect such an action to copyToClipboard().
/// - If an object has two handlers, only the one that was created last receives the keys.
/// - The handler must not outlive the watched object, so do not give it another parent that does.
/// - If the watched object deletes the handler, only the QObject part of the watched object still exists when the
///   destructor of a derived class runs.
///
/// Use a handler on the thread of the watched object only, which is the GUI thread for widgets.
class COMMON_UI_QT_EXPORT CopyHandlerAbstract : public QObject
{
    Q_OBJECT

public:
    /// Installs the handler as an event filter on `watched`, which becomes its parent.
    explicit CopyHandlerAbstract(QObject& watched);
    /// Removes the event filter from the watched object.
    ~CopyHandlerAbstract() override;

    /// Calls copyToClipboard() and returns true for a key press that matches QKeySequence::Copy. Returns false for
    /// every other event, which then reaches the object. copyToClipboard() may delete the handler or the watched
    /// object.
    ///
    /// `watched` is ignored, so the filter can be installed on further objects.
    ///
    /// Kept for existing callers, see docs/compatibility.md: copy-filter-ignores-watched.
    bool eventFilter(QObject* watched, QEvent* event) override;

public Q_SLOTS:
    /// Copies to the clipboard. Called when the Copy keys are pressed; it may also be connected to other triggers, such
    /// as an action of a context menu.
    virtual void copyToClipboard() = 0;

private:
    QObject* m_watched;
};

} // namespace ui
} // namespace zelmar
