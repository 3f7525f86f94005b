// Tests a small application with the installed library for tests.
#include "testing/FileDialogScript.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"

#include <QApplication>

#include <cstdio>
#include <string>
#include <vector>

namespace {

/// Returns the chosen file, or an empty text.
std::string openTable()
{
    std::vector<std::string> files;
    int filter = -1;
    const std::vector<std::string> filters{"Tables (*.csv)"};
    return zelmar::ui::LaunchFileDialog(files, filter, "Open table", filters, {}, false, false, 0) ? files.front() : "";
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    zelmar::testing::FileDialogScript script;
    for (const bool native : {true, false}) {
        ExtendedFileDialog::setUseNativeFileDialog(native);
        script.accept("/no/such/folder/table.csv", "Tables (*.csv)").cancel();
        if (openTable() != "/no/such/folder/table.csv" || !openTable().empty())
            return 1;
    }
    if (script.dialogs().size() != 4 || script.dialogs().front().caption != "Open table")
        return 1;
    const QString failures = script.verify();
    std::puts(failures.isEmpty() ? "the installed library works" : qPrintable(failures));
    return 0;
}
