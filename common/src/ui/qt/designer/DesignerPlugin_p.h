#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QObject>

namespace zelmar::internal {

/// A plugin that makes the widgets of designerWidgets() available in Qt Designer and QUiLoader.
class DesignerPlugin : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit DesignerPlugin(QObject* parent = nullptr);
    ~DesignerPlugin() override;

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    Q_DISABLE_COPY(DesignerPlugin)

    QList<QDesignerCustomWidgetInterface*> m_widgets; ///< owned
};

} // namespace zelmar::internal
