#pragma once

#include <QString>
#include <QVector>

class QWidget;

namespace zelmar::internal {

/// The description of a widget for Qt Designer.
struct DesignerWidget
{
    const char* className; ///< with its namespaces, as forms contain it
    const char* baseClass; ///< the Qt class whose properties Qt Designer shows
    const char* header;    ///< the include path in sources that are generated from forms
    const char* toolTip;   ///< English, translatable in the context "DesignerPlugin"
    QWidget* (*create)(QWidget* parent);
};

/// Returns the descriptions of all widgets that Qt Designer offers and that forms can contain.
const QVector<DesignerWidget>& designerWidgets();

} // namespace zelmar::internal
