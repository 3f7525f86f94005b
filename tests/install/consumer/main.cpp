// Uses one class of each kind, so that headers, exports and the run-time library are all found.
#include "common_ui_qt_version.h"
#include "platform/utf8ToWideString.h"
#include "property/Property.h"
#include "ui/qt/controls/ElidedTextLabel.h"
#include "ui/qt/dialogs/ExtendedFileDialog.h"
#include "ui/qt/dialogs/LaunchFileDialog.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"
#include "ui/qt/dialogs/SaveFileDialog.h"
#include "ui/qt/dialogs/windows/ExtendedWinFileDialog.h"
#include "ui/qt/dialogs/windows/SaveFileWinDialog.h"
#include "ui/qt/dialogs/windows/shellapi.h"

#include <QApplication>
#include <QWidget>

#include <cstdio>

static_assert(COMMON_UI_QT_VERSION >= COMMON_UI_QT_VERSION_CHECK(0, 1, 0), "the package that was asked for");
static_assert(COMMON_UI_QT_VERSION < COMMON_UI_QT_VERSION_CHECK(0, 2, 0), "the package that was asked for");

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    QExtendedFileDialog dialog(window, "Open", "", "Data files (*.dat)", "", QFileDialog::AcceptOpen);
    if (zelmar::utf8ToWideString("wide") != L"wide" || dialog.nameFilters().size() != 1)
        return 1;
    ElidedTextLabel label(&window);
    label.setText("a path");
    const QxtLabel& base = label;
    if (base.text() != "a path")
        return 1;
    const auto property = boost::make_shared<zelmar::Property<bool>>(true);
    ExtendedWinFileDialog native(window, "Open", "", "Data files (*.dat)", "", QFileDialog::AcceptOpen, true);
    if (!native.addCustomCheckBox("Check", property) || native.nameFilters().size() != 1)
        return 1;
    const ExtendedFileDialog either(window, "Open", "", "Data files (*.dat)", "", QFileDialog::AcceptOpen);
    const SaveFileDialog flow(&window, "Save", "", "", "Data files (*.dat)", "");
    if (either.nameFilters().size() != 1 || flow.selectedWriter() != 0 || !&zelmar::ui::LaunchFileDialog)
        return 1;
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)))
        return 1;
    CoUninitialize();
    std::puts("the installed library works");
    return 0;
}
