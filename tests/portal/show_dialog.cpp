// Shows one native dialog and prints what its user has chosen, a line for each value.
//
//     show_dialog open|several|folder|save FOLDER

#include "property/Property.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QTextStream>
#include <QWidget>

#include <boost/make_shared.hpp>

#include <string>
#include <vector>

namespace {

const std::vector<std::string> filters{"Data (*.dat)", "Tables (*.csv)"};

void print(const QString& line)
{
    QTextStream(stdout) << line << '\n';
}

/// The dialog of a save flow with a check box.
class SaveDialogWithCheckBox : public SaveFileWinDialog
{
public:
    using SaveFileWinDialog::dialog;
    using SaveFileWinDialog::SaveFileWinDialog;
};

/// Writes a document under the name that the user has granted.
bool write(const std::string& name)
{
    QFile file(QString::fromStdString(name));
    return file.open(QIODevice::WriteOnly) && file.write("document") == 8 && file.flush();
}

bool becomesActive(const QWidget& window)
{
    QDeadlineTimer deadline(5000);
    while (!window.isActiveWindow() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    return window.isActiveWindow();
}

int save(QWidget& window, const std::string& folder)
{
    SaveDialogWithCheckBox flow(&window, "Portal test", folder, "run", filters, 0, "");
    const auto backup = boost::make_shared<zelmar::Property<bool>>(false);
    flow.dialog()->addCustomCheckBox("Keep a backup", backup);
    if (!flow.launch()) {
        print(QStringLiteral("cancelled"));
        return 0;
    }
    print(QString::fromStdString(flow.selectedFilename()));
    print(backup->value() ? QStringLiteral("with a backup") : QStringLiteral("without a backup"));
    print(write(flow.selectedFilename()) ? QStringLiteral("written") : QStringLiteral("not written"));
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QString kind = QString::fromLocal8Bit(argc == 3 ? argv[1] : "");
    const std::string folder = argc == 3 ? argv[2] : "";
    QWidget window;
    window.show();
    if (kind == QLatin1String("save"))
        return save(window, folder);

    ExtendedFileDialog dialog(window, "Portal test", folder, "All (*)", "", QFileDialog::AcceptOpen);
    if (kind == QLatin1String("folder"))
        dialog.setFileMode(QFileDialog::Directory);
    else
        dialog.setFileMode(kind == QLatin1String("several") ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (dialog.exec() != QDialog::Accepted) {
        print(QStringLiteral("cancelled"));
        print(becomesActive(window) ? QStringLiteral("active again") : QStringLiteral("not active"));
    }
    for (const QString& file : dialog.selectedFiles())
        print(file);
    return 0;
}
