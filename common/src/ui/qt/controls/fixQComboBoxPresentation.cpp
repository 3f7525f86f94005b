#include "ui/qt/controls/fixQComboBoxPresentation.h"

namespace zelmar::ui {

void fixQComboBoxPresentation(QComboBox& /*box*/)
{
}

} // namespace zelmar::ui
