#include "ui/qt/dialogs/windows/builtin/acceptMenuName_p.h"

#include <QCoreApplication>

namespace zelmar::internal {

QString acceptMenuName(DialogKind kind)
{
    return kind == DialogKind::Save ? QCoreApplication::translate("common_ui_qt", "More ways to save")
                                    : QCoreApplication::translate("common_ui_qt", "More ways to open");
}

} // namespace zelmar::internal
