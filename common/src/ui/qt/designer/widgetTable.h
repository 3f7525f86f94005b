#pragma once

#include <QString>
#include <QVector>

class QWidget;

namespace zelmar::ui {

/// A widget that Qt Designer offers.
struct DesignerWidget
{
    const char* className; ///< as a form has it: with its namespaces
    const char* baseClass; ///< the class of Qt whose properties it has
    const char* header;    ///< as a source that is made of a form includes it
    const char* toolTip;
    QWidget* (*create)(QWidget* parent);
};

/// All of them: what is added here is in Qt Designer and can be loaded from forms.
const QVector<DesignerWidget>& designerWidgets();

} // namespace zelmar::ui
