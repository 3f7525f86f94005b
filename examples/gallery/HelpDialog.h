#pragma once

#include <QDialog>

#include <string>

class QTextBrowser;

namespace gallery {

/// Shows a page of the gallery's own help. Modal, as it is opened from dialogs that are modal themselves and
/// would keep the keyboard from any other window.
class HelpDialog : public QDialog
{
    Q_OBJECT

public:
    /// `topic` (UTF-8) is a path below the resource folder "help"; one that has no page gives a text that
    /// says so.
    HelpDialog(const std::string& topic, QWidget* parent);
    ~HelpDialog() override;

    [[nodiscard]] bool hasPage() const { return m_hasPage; }

private:
    QTextBrowser* m_browser;
    bool m_hasPage;
};

/// Has HelpDialog show the topics of the library's Help buttons, over the window that was active.
void showHelpTopicsInDialogs();

} // namespace gallery
