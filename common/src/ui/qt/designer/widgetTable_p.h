#pragma once

#include "ui/qt/designer/widgetIcons_p.h"

#include <QString>
#include <QVector>

class QWidget;

namespace zelmar::internal {

/// The description of a widget for Qt Designer. The texts are English, translatable in the context "DesignerPlugin".
struct DesignerWidget
{
    const char* className; ///< with its namespaces, as forms contain it
    const char* baseClass; ///< the Qt class whose properties Qt Designer shows
    const char* header;    ///< the include path in sources that are generated from forms
    const char* toolTip;
    const char* whatsThis;
    DrawIcon drawIcon;
    bool hasText;            ///< whether the name of the class is the text of a new widget
    const char* decimalsTip; ///< the tool tip of the property "decimals", or null for that of Qt
    QWidget* (*create)(QWidget* parent);
};

/// Returns the descriptions of all widgets that Qt Designer offers and that forms can contain.
const QVector<DesignerWidget>& designerWidgets();

} // namespace zelmar::internal
