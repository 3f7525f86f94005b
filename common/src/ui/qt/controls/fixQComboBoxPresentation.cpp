#include "ui/qt/controls/fixQComboBoxPresentation.h"

namespace zelmar::ui {

void fixQComboBoxPresentation(QComboBox& /*box*/)
{
    // Compatibility: combo-box-hook-does-nothing
}

} // namespace zelmar::ui
