// Uses one class of each kind, so that headers, exports and the run-time library are all found.
#include "platform/utf8ToWideString.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include <QApplication>
#include <QWidget>

#include <cstdio>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QWidget window;
    QExtendedFileDialog dialog(window, "Open", "", "Data files (*.dat)", "", QFileDialog::AcceptOpen);
    if (zelmar::utf8ToWideString("wide") != L"wide" || dialog.nameFilters().size() != 1)
        return 1;
    std::puts("the installed library works");
    return 0;
}
