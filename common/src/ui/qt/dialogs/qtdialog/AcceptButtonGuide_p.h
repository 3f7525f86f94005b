#pragma once

#include "internal_export_p.h"
#include "ui/qt/dialogs/qtdialog/FileDialogWidgets_p.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

class QFileDialog;
class QPushButton;

namespace zelmar::internal {

/// A note that reports a problem in the tool tip and the accessible description of a widget. When the note ends, it
/// restores the texts that the application has set there.
class WidgetNote
{
public:
    /// Shows `text` (plain text) on `widget`. Ends the note if `text` is empty.
    void show(QWidget* widget, const QString& text);

private:
    void end();

    QPointer<QWidget> m_widget;
    QString m_shownToolTip;
    QString m_shownDescription;
    QString m_ownToolTip;     ///< the tool tip before the note
    QString m_ownDescription; ///< the accessible description before the note
};

/// An object that updates the accept button of a Qt-drawn dialog for names that QFileDialog does not handle. A name
/// with double quotes that is a single name (see typedName_p.h) enables the button if the file exists or may be a new
/// one. A name with more bytes than the file system allows disables it. The button and the file-name box explain why
/// the button is disabled, and warn if a folder of the path does not exist.
///
/// The button is also updated when a folder has been read or filtered. QFileDialog enables the button if a file with
/// the typed name exists, but checks this only when the text changes.
class COMMON_UI_QT_INTERNAL_EXPORT AcceptButtonGuide : public QObject
{
public:
    /// Creates a guide that `dialog` owns.
    explicit AcceptButtonGuide(QFileDialog& dialog);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followFolder();
    bool waitsForFile() const;
    void update();
    void enableForQuotedName(QPushButton& button);
    QString problem(const QPushButton& button) const;

    QFileDialog& m_dialog;
    FileDialogWidgets m_widgets;
    QString m_plainText; ///< the label of the button while it does not open a folder
    WidgetNote m_buttonNote;
    WidgetNote m_editNote;
};

/// Returns whether the user has typed a name for a new file that is longer than the file system of its folder allows.
COMMON_UI_QT_INTERNAL_EXPORT bool typedNameIsTooLong(const QFileDialog& dialog);

} // namespace zelmar::internal
