#include "ui/qt/designer/DesignerPlugin_p.h"

#include "ui/qt/designer/widgetTable_p.h"

#include <QCoreApplication>
#include <QIcon>

namespace zelmar::internal {

namespace {

/// An adapter that presents one entry of designerWidgets() to Qt Designer.
class TableEntry : public QDesignerCustomWidgetInterface
{
public:
    explicit TableEntry(const DesignerWidget& widget)
        : m_widget(widget)
    {
    }

    QString name() const override { return QString::fromLatin1(m_widget.className); }
    QString group() const override { return QStringLiteral("common_ui_qt"); }
    QString toolTip() const override { return translated(m_widget.toolTip); }
    QString whatsThis() const override { return translated(m_widget.whatsThis); }
    QString includeFile() const override { return QString::fromLatin1(m_widget.header); }
    QIcon icon() const override { return drawnIcon(m_widget.drawIcon); }
    bool isContainer() const override { return false; }
    QWidget* createWidget(QWidget* parent) override { return m_widget.create(parent); }

    QString domXml() const override
    {
        const QString shortName = name().section(QStringLiteral("::"), -1);
        return QStringLiteral("<ui language=\"c++\" displayname=\"%2\"><widget class=\"%1\" name=\"%3\">%5</widget>"
                              "<customwidgets><customwidget><class>%1</class><extends>%4</extends>%6"
                              "</customwidget></customwidgets></ui>")
            .arg(name(), shortName, shortName.left(1).toLower() + shortName.mid(1),
                 QString::fromLatin1(m_widget.baseClass), m_widget.hasText ? textProperty(shortName) : QString(),
                 m_widget.decimalsTip ? decimalsSpecification() : QString());
    }

private:
    static QString translated(const char* text) { return QCoreApplication::translate("DesignerPlugin", text); }

    static QString textProperty(const QString& text)
    {
        return QStringLiteral("<property name=\"text\"><string>%1</string></property>").arg(text);
    }

    QString decimalsSpecification() const
    {
        return QStringLiteral("<propertyspecifications><tooltip name=\"decimals\">%1</tooltip>"
                              "</propertyspecifications>")
            .arg(translated(m_widget.decimalsTip).toHtmlEscaped());
    }

    const DesignerWidget& m_widget;
};

} // namespace

DesignerPlugin::DesignerPlugin(QObject* parent)
    : QObject(parent)
{
    for (const DesignerWidget& widget : designerWidgets())
        m_widgets.append(new TableEntry(widget));
}

DesignerPlugin::~DesignerPlugin()
{
    qDeleteAll(m_widgets);
}

QList<QDesignerCustomWidgetInterface*> DesignerPlugin::customWidgets() const
{
    return m_widgets;
}

} // namespace zelmar::internal
