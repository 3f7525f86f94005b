#include "TestHome.h"
#include "ui/qt/controls/ComboBoxAutoFilter.h"
#include "ui/qt/controls/CorrectFontCommandLinkButton.h"
#include "ui/qt/controls/ElidedTextLabel.h"
#include "ui/qt/controls/IntegralSpinBox.h"
#include "ui/qt/controls/QScientificSpinBox.h"
#include "ui_inputs.h"

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPluginLoader>
#include <QTest>
#include <QUiLoader>

#include <memory>

using zelmar::ui::ComboBoxAutoFilter;
using zelmar::ui::CorrectFontCommandLinkButton;
using zelmar::ui::IntegralSpinBox;
using zelmar::ui::QScientificSpinBox;

class tst_DesignerPlugin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void loadsNumberFieldsFromAForm();
    void loadsLabelsAndButtonsFromAForm();
    void loadsComboBoxesFromAForm();
    void namesTheClassesOfWidgets();
    void decimalsDoNotRoundTheValue();
    void formsCompile();
    void offersEveryWidget_data();
    void offersEveryWidget();

private:
    std::unique_ptr<QWidget> loadForm(const QString& name) const;

    QString m_plugin;
};

void tst_DesignerPlugin::initTestCase()
{
    const QDir folder(QStringLiteral(PLUGIN_FOLDER));
    const QStringList files = folder.entryList({QStringLiteral("common_ui_qt_designer.*")}, QDir::Files);
    QCOMPARE(files.size(), 1);
    m_plugin = folder.filePath(files.first());
}

/// Returns the loaded form. Logs a warning and returns null if loading fails.
std::unique_ptr<QWidget> tst_DesignerPlugin::loadForm(const QString& name) const
{
    QUiLoader loader;
    loader.clearPluginPaths();
    if (loader.availableWidgets().contains(QStringLiteral("zelmar::ui::IntegralSpinBox")))
        qWarning("The plugin is loaded without its path being set");
    loader.addPluginPath(QStringLiteral(PLUGIN_FOLDER));
    QFile file(QStringLiteral(FORMS "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qWarning("No form %s", qPrintable(name));
    std::unique_ptr<QWidget> form(loader.load(&file));
    if (!form)
        qWarning("%s", qPrintable(loader.errorString()));
    return form;
}

void tst_DesignerPlugin::loadsNumberFieldsFromAForm()
{
    const std::unique_ptr<QWidget> form = loadForm(QStringLiteral("numbers.ui"));
    QVERIFY(form);

    const auto* run = dynamic_cast<IntegralSpinBox*>(form->findChild<QSpinBox*>(QStringLiteral("run")));
    QVERIFY(run);
    QCOMPARE(run->value(), 1234);
    const auto* flow = dynamic_cast<QScientificSpinBox*>(form->findChild<QDoubleSpinBox*>(QStringLiteral("flow")));
    QVERIFY(flow);
    QCOMPARE(flow->text(), QStringLiteral("1.5E-07 mol/s"));
    QCOMPARE(flow->decimals(), 8);
    QCOMPARE(flow->minimum(), -0.001);
}

void tst_DesignerPlugin::loadsLabelsAndButtonsFromAForm()
{
    const std::unique_ptr<QWidget> form = loadForm(QStringLiteral("labels.ui"));
    QVERIFY(form);
    const auto* path = form->findChild<ElidedTextLabel*>(QStringLiteral("path"));
    QVERIFY(path);
    QCOMPARE(path->text(), QStringLiteral("/runs/flow.csv"));
    QCOMPARE(path->elideMode(), Qt::ElideMiddle);
    const auto* open =
        dynamic_cast<CorrectFontCommandLinkButton*>(form->findChild<QCommandLinkButton*>(QStringLiteral("open")));
    QVERIFY(open);
    QCOMPARE(open->text(), QStringLiteral("Open a run"));
    QCOMPARE(open->description(), QStringLiteral("Nothing is changed."));
}

void tst_DesignerPlugin::loadsComboBoxesFromAForm()
{
    const std::unique_ptr<QWidget> form = loadForm(QStringLiteral("choice.ui"));
    QVERIFY(form);
    auto* colour = form->findChild<ComboBoxAutoFilter*>(QStringLiteral("colour"));
    QVERIFY(colour);
    QCOMPARE(colour->count(), 2);
    colour->setCompleterAttributes(true, QCompleter::PopupCompletion, Qt::CaseInsensitive, Qt::ElideRight,
                                   Qt::MatchContains);
    colour->setEditText(QStringLiteral("blu"));
    QVERIFY(colour->validateEntry());
    QCOMPARE(colour->currentText(), QStringLiteral("Light Blue"));
}

void tst_DesignerPlugin::namesTheClassesOfWidgets()
{
    const std::unique_ptr<QWidget> form = loadForm(QStringLiteral("inputs.ui"));
    QVERIFY(form);
    const auto classOf = [&](const char* name) {
        return QString::fromLatin1(form->findChild<QWidget*>(QString::fromLatin1(name))->metaObject()->className());
    };
    QCOMPARE(classOf("flow"), QStringLiteral("zelmar::ui::QScientificSpinBox"));
    QCOMPARE(classOf("run"), QStringLiteral("zelmar::ui::IntegralSpinBox"));
    QCOMPARE(classOf("open"), QStringLiteral("zelmar::ui::CorrectFontCommandLinkButton"));
    QCOMPARE(classOf("colour"), QStringLiteral("zelmar::ui::ComboBoxAutoFilter"));
    QCOMPARE(classOf("path"), QStringLiteral("ElidedTextLabel"));
}

void tst_DesignerPlugin::decimalsDoNotRoundTheValue()
{
    const std::unique_ptr<QWidget> form = loadForm(QStringLiteral("inputs.ui"));
    QVERIFY(form);
    auto* flow = dynamic_cast<QScientificSpinBox*>(form->findChild<QDoubleSpinBox*>(QStringLiteral("flow")));
    QVERIFY(flow);
    QCOMPARE(flow->decimals(), 4);
    QCOMPARE(flow->value(), 0.123456789012345);
    QCOMPARE(flow->text(), QStringLiteral("0.1235 mol/s"));

    QVERIFY(flow->setProperty("decimals", 2));
    QCOMPARE(flow->property("decimals"), QVariant(2));
    QCOMPARE(flow->decimals(), 2);
    QCOMPARE(flow->value(), 0.123456789012345);
    QCOMPARE(flow->text(), QStringLiteral("0.12 mol/s"));
}

void tst_DesignerPlugin::formsCompile()
{
    QWidget window;
    Ui::Inputs form;
    form.setupUi(&window);
    const QScientificSpinBox* flow = form.flow;
    QCOMPARE(flow->decimals(), 4);
    QCOMPARE(flow->value(), 0.123456789012345);
    const IntegralSpinBox* run = form.run;
    QCOMPARE(run->value(), 1234);
    const CorrectFontCommandLinkButton* open = form.open;
    QCOMPARE(open->description(), QStringLiteral("Nothing is changed."));
    const ComboBoxAutoFilter* colour = form.colour;
    QCOMPARE(colour->itemText(0), QStringLiteral("Red"));
    const ElidedTextLabel* path = form.path;
    QCOMPARE(path->elideMode(), Qt::ElideMiddle);
}

void tst_DesignerPlugin::offersEveryWidget_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("base");

    QTest::newRow("elided texts") << "ElidedTextLabel"
                                  << "QFrame";
    QTest::newRow("choices") << "zelmar::ui::ComboBoxAutoFilter"
                             << "QComboBox";
    QTest::newRow("command links") << "zelmar::ui::CorrectFontCommandLinkButton"
                                   << "QCommandLinkButton";
    QTest::newRow("integers") << "zelmar::ui::IntegralSpinBox"
                              << "QSpinBox";
    QTest::newRow("doubles") << "zelmar::ui::QScientificSpinBox"
                             << "QDoubleSpinBox";
}

void tst_DesignerPlugin::offersEveryWidget()
{
    QFETCH(QString, name);
    QFETCH(QString, base);
    QPluginLoader loader(m_plugin);
    auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(loader.instance());
    QVERIFY2(collection, qPrintable(loader.errorString()));
    QDesignerCustomWidgetInterface* found = nullptr;
    const auto widgets = collection->customWidgets();
    QCOMPARE(widgets.size(), 5);
    for (QDesignerCustomWidgetInterface* widget : widgets) {
        if (widget->name() == name)
            found = widget;
    }
    QVERIFY(found);
    QVERIFY(QFile::exists(QStringLiteral(HEADERS "/") + found->includeFile()));
    QVERIFY(!found->toolTip().isEmpty());
    QVERIFY(!found->isContainer());
    QVERIFY(found->domXml().contains(QStringLiteral("<widget class=\"%1\"").arg(name)));
    QVERIFY(found->domXml().contains(QStringLiteral("<extends>%1</extends>").arg(base)));
    QWidget parent;
    const QWidget* widget = found->createWidget(&parent);
    QCOMPARE(widget->parentWidget(), &parent);
    QVERIFY(widget->inherits(qPrintable(base)));
}

UI_TEST_MAIN(tst_DesignerPlugin)
#include "tst_DesignerPlugin.moc"
