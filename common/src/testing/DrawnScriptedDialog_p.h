#pragma once

#include "testing/ScriptedDialog_p.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include <QObject>
#include <QPointer>
#include <QString>

class QLineEdit;
class QPushButton;

namespace zelmar::internal {

/// One run of a dialog that Qt draws. Sets up the dialog by its public functions as the user would leave it, and
/// accepts it. The dialog is never shown.
class DrawnScriptedDialog : public QObject, public ScriptedDialog
{
public:
    DrawnScriptedDialog(QExtendedFileDialog& dialog, QLineEdit& fileNameEdit);
    ~DrawnScriptedDialog() override;
    Q_DISABLE_COPY(DrawnScriptedDialog)

    /// Returns the result of the dialog, which is QDialog::Rejected if it was deleted.
    int result() const;

    testing::ShownFileDialog shown() const override;
    bool isOpen() const override { return m_dialog && m_open; }
    void press(std::size_t button) override;
    void setTicked(std::size_t, bool) override {} // There are no check boxes.
    void pick(std::size_t) override {}            // There is no menu.
    QString accept(const QStringList& files, int nameFilter) override;
    void cancel() override;

private:
    bool eventFilter(QObject* watched, QEvent* event) override;
    QPushButton* helpButton() const;
    void selectNameFilter(int index);
    void enterFolder(const QString& folder) const;
    void selectFiles(const QStringList& files) const;
    bool hasSelected(const QStringList& files) const;
    bool isScripted() const;

    const QPointer<QExtendedFileDialog> m_dialog;
    QLineEdit& m_fileNameEdit; ///< exists as long as the dialog
    const bool m_quitsOnClose;
    bool m_open = true;
};

} // namespace zelmar::internal
