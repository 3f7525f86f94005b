// Compares creating, showing and closing a QExtendedFileDialog with a QFileDialog drawn by Qt, on a folder of 10,000
// files.
#include "Comparison.h"

#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include <QApplication>
#include <QFile>
#include <QFileSystemModel>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>

namespace {

constexpr int files = 10000;

void addFiles(const QTemporaryDir& folder)
{
    for (int i = 0; i < files; ++i) {
        QFile file(folder.filePath(QStringLiteral("file%1.dat").arg(i)));
        if (!file.open(QIODevice::WriteOnly))
            std::abort();
    }
}

/// Waits until the window is exposed and, if `listed` is true, until its list has all files. Then closes the dialog.
void showAndClose(QFileDialog& dialog, bool listed)
{
    if (!QTest::qWaitForWindowExposed(&dialog))
        std::abort();
    const auto* model = dialog.findChild<QFileSystemModel*>(QStringLiteral("qt_filesystem_model"));
    while (listed && model->rowCount(model->index(model->rootPath())) < files)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    dialog.close();
}

} // namespace

int main(int argc, char* argv[])
{
    const QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
    QApplication application(argc, argv);
    const QTemporaryDir folder;
    addFiles(folder);

    QWidget window;
    for (const bool listed : {false, true}) {
        const auto ours = [&] {
            QExtendedFileDialog dialog(window, "Open", folder.path().toStdString(), "Data (*.dat)", "",
                                       QFileDialog::AcceptOpen);
            dialog.show();
            showAndClose(dialog, listed);
        };
        const auto peers = [&] {
            QFileDialog dialog(&window, QStringLiteral("Open"), folder.path(), QStringLiteral("Data (*.dat)"));
            dialog.setAcceptMode(QFileDialog::AcceptOpen);
            dialog.setFileMode(QFileDialog::ExistingFile);
            dialog.setOption(QFileDialog::DontUseNativeDialog);
            dialog.show();
            showAndClose(dialog, listed);
        };
        compare(listed ? "make, show, list 10,000 files, close" : "make, show, close", 31, ours, peers);
    }
    return 0;
}
