#pragma once

#include "FileDialogExample.h"
#include "FileDialogOutcome.h"
#include "GalleryPage.h"

class QPlainTextEdit;
class QPushButton;

namespace gallery {

/// A page that runs a QExtendedFileDialog as configured by an example and shows the choice of the user.
class FileDialogPage : public GalleryPage
{
    Q_OBJECT

public:
    explicit FileDialogPage(const FileDialogExample& example);
    ~FileDialogPage() override;

private:
    void addWidgets();
    void runDialog();
    FileDialogOutcome outcomeOfDialog();

    FileDialogExample m_example;
    QPushButton* m_button;
    QPlainTextEdit* m_result;
};

} // namespace gallery
