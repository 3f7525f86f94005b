#pragma once

#include <QDialog>

#include <string>

class QTextBrowser;

namespace gallery {

/// A dialog that shows a page of the gallery's help. It is modal, because it is opened from modal dialogs, which block
/// the input of every other window.
class HelpDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows the page `topic` (UTF-8), a path below the resource folder "help". If there is no such page, the dialog
    /// shows a text that says so.
    HelpDialog(const std::string& topic, QWidget* parent);
    ~HelpDialog() override;

    [[nodiscard]] bool hasPage() const { return m_hasPage; }

private:
    QTextBrowser* m_browser;
    bool m_hasPage;
};

/// Makes the library's Help buttons show their topics in a HelpDialog over the active window.
void showHelpTopicsInDialogs();

} // namespace gallery
