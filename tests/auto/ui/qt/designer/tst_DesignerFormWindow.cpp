#include "TestHome.h"

#include <QtDesigner/QDesignerActionEditorInterface>
#include <QtDesigner/QDesignerComponents>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerObjectInspectorInterface>
#include <QtDesigner/QDesignerPropertyEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QDesignerWidgetDataBaseInterface>
#include <QtDesigner/QDesignerWidgetFactoryInterface>
#include <QtDesigner/QExtensionManager>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDoubleSpinBox>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QMainWindow>
#include <QMap>
#include <QOpenGLContext>
#include <QPainter>
#include <QTest>
#include <QTreeWidget>
#include <QUndoStack>
#include <QXmlStreamReader>

#include <memory>

namespace {

using FormWindow = QDesignerFormWindowInterface;
using FormManager = QDesignerFormWindowManagerInterface;

/// Qt Designer's form editor with the tools around it, in one window.
class Designer
{
public:
    Designer()
    {
        QDesignerComponents::initializeResources();
        m_core.reset(QDesignerComponents::createFormEditor(nullptr));
        m_core->setTopLevel(&m_window);
        m_core->setWidgetBox(QDesignerComponents::createWidgetBox(m_core.get(), &m_window));
        m_core->setPropertyEditor(QDesignerComponents::createPropertyEditor(m_core.get(), &m_window));
        m_core->setObjectInspector(QDesignerComponents::createObjectInspector(m_core.get(), &m_window));
        m_core->setActionEditor(QDesignerComponents::createActionEditor(m_core.get(), &m_window));
        QDesignerComponents::initializePlugins(m_core.get());
        new QDesignerIntegration(m_core.get(), m_core.get());
        QDesignerComponents::createTaskMenu(m_core.get(), m_core.get());
    }

    ~Designer()
    {
        manager().closeAllPreviews();
        while (manager().formWindowCount() > 0)
            delete manager().formWindow(0);
    }

    Designer(const Designer&) = delete;
    Designer& operator=(const Designer&) = delete;

    QDesignerFormEditorInterface* core() const { return m_core.get(); }
    FormManager& manager() const { return *m_core->formWindowManager(); }

    /// Returns a form window with the form. Logs a warning if the form cannot be read.
    FormWindow* open(const QString& contents) const
    {
        FormWindow* form = manager().createFormWindow(nullptr);
        manager().addFormWindow(form);
        manager().setActiveFormWindow(form);
        if (!form->setContents(contents))
            qWarning("Qt Designer does not read the form");
        form->editWidgets();
        return form;
    }

private:
    std::unique_ptr<QDesignerFormEditorInterface> m_core;
    QMainWindow m_window; ///< deleted before the form editor, which its tools use
};

/// What a form file says about a widget.
struct SavedWidget
{
    QString className;
    QMap<QString, QString> properties; ///< the values as texts

    bool operator==(const SavedWidget& other) const
    {
        return className == other.className && properties == other.properties;
    }
};

QString readValue(QXmlStreamReader& reader)
{
    reader.readNextStartElement();
    QString value = reader.readElementText(QXmlStreamReader::IncludeChildElements);
    reader.skipCurrentElement();
    return value;
}

void readWidget(QXmlStreamReader& reader, QMap<QString, SavedWidget>& widgets);

/// Reads the widgets below an element that is no widget.
void readOther(QXmlStreamReader& reader, QMap<QString, SavedWidget>& widgets)
{
    while (reader.readNextStartElement()) {
        if (reader.name() == QLatin1String("widget"))
            readWidget(reader, widgets);
        else
            readOther(reader, widgets);
    }
}

void readWidget(QXmlStreamReader& reader, QMap<QString, SavedWidget>& widgets)
{
    const QString name = reader.attributes().value(QStringLiteral("name")).toString();
    SavedWidget widget{reader.attributes().value(QStringLiteral("class")).toString(), {}};
    while (reader.readNextStartElement()) {
        const QString property = reader.attributes().value(QStringLiteral("name")).toString();
        if (reader.name() == QLatin1String("property"))
            widget.properties.insert(property, readValue(reader));
        else if (reader.name() == QLatin1String("item"))
            widget.properties.insert(QStringLiteral("item"),
                                     reader.readElementText(QXmlStreamReader::IncludeChildElements).simplified());
        else if (reader.name() == QLatin1String("widget"))
            readWidget(reader, widgets);
        else
            readOther(reader, widgets);
    }
    widgets.insert(name, widget);
}

/// Returns the widgets of a form by their names, without the form itself.
QMap<QString, SavedWidget> savedWidgets(const QString& contents)
{
    QMap<QString, SavedWidget> widgets;
    QXmlStreamReader reader(contents);
    readOther(reader, widgets);
    widgets.remove(QStringLiteral("Inputs"));
    return widgets;
}

/// Returns what the file says about the number field "flow".
SavedWidget savedFlow(const FormWindow* form)
{
    return savedWidgets(form->contents()).value(QStringLiteral("flow"));
}

const QStringList& classNames()
{
    static const QStringList names = {
        QStringLiteral("ElidedTextLabel"), QStringLiteral("zelmar::ui::ComboBoxAutoFilter"),
        QStringLiteral("zelmar::ui::CorrectFontCommandLinkButton"), QStringLiteral("zelmar::ui::IntegralSpinBox"),
        QStringLiteral("zelmar::ui::QScientificSpinBox")};
    return names;
}

const QString decimals = QStringLiteral("decimals");
constexpr double flowValue = 0.123456789012345;

} // namespace

class tst_DesignerFormWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void listsTheWidgets();
    void describesTheWidgets();
    void drawsIcons_data();
    void drawsIcons();
    void keepsClassesAndProperties();
    void savesTheSameAgain();
    void pastesWhatTheWidgetBoxHolds_data();
    void pastesWhatTheWidgetBoxHolds();
    void decimalsDoNotRoundTheValue();
    void decimalsAreUndone();
    void decimalsAreReset();
    void showsDecimalsOnce();
    void explainsDecimals();
    void deletedWidgetsComeBack();
    void previewsTheForm();
    void keepsAPromotedWidget();

private:
    QDoubleSpinBox* flow() const { return m_form->findChild<QDoubleSpinBox*>(QStringLiteral("flow")); }
    void select(QWidget* widget) const;
    void trigger(FormManager::Action action) const;

    QString m_contents; ///< of inputs.ui
    std::unique_ptr<Designer> m_designer;
    FormWindow* m_form = nullptr;
};

void tst_DesignerFormWindow::initTestCase()
{
    // Other plugins of the machine are not under test. Qt Designer needs the one for OpenGL, which is loaded first.
    QOpenGLContext().create();
    QCoreApplication::setLibraryPaths({QStringLiteral(PLUGINS)});
    QFile file(QStringLiteral(FORMS "/inputs.ui"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_contents = QString::fromUtf8(file.readAll());
    QCOMPARE(savedWidgets(m_contents).size(), 5);
}

void tst_DesignerFormWindow::init()
{
    m_designer = std::make_unique<Designer>();
    m_form = m_designer->open(m_contents);
    QVERIFY(flow());
}

void tst_DesignerFormWindow::cleanup()
{
    m_form = nullptr;
    m_designer.reset();
}

void tst_DesignerFormWindow::select(QWidget* widget) const
{
    m_form->clearSelection(false);
    m_form->selectWidget(widget);
    m_form->emitSelectionChanged();
}

/// Triggers the action as soon as Qt Designer has enabled it for the selection.
void tst_DesignerFormWindow::trigger(FormManager::Action action) const
{
    QTRY_VERIFY(m_designer->manager().action(action)->isEnabled());
    m_designer->manager().action(action)->trigger();
}

void tst_DesignerFormWindow::listsTheWidgets()
{
    const QDesignerWidgetBoxInterface* box = m_designer->core()->widgetBox();
    QStringList names;
    for (int i = 0; i < box->categoryCount(); ++i) {
        if (box->category(i).name() != QLatin1String("common_ui_qt"))
            continue;
        for (int j = 0; j < box->widgetCount(i); ++j) {
            names.append(box->widget(i, j).name());
            QVERIFY2(!box->widget(i, j).iconName().isEmpty(), qPrintable(names.last()));
        }
    }
    names.sort();
    QStringList expected;
    for (const QString& name : classNames())
        expected.append(name.section(QStringLiteral("::"), -1));
    expected.sort();
    QCOMPARE(names, expected);
}

void tst_DesignerFormWindow::describesTheWidgets()
{
    const auto* widgets = m_designer->core()->widgetDataBase();
    for (const QString& name : classNames()) {
        const QDesignerWidgetDataBaseItemInterface* item = widgets->item(widgets->indexOfClassName(name));
        QVERIFY(item->isCustom());
        QVERIFY(!item->toolTip().isEmpty());
        QVERIFY(item->whatsThis().size() > item->toolTip().size());
    }
}

void tst_DesignerFormWindow::drawsIcons_data()
{
    QTest::addColumn<QColor>("window");
    QTest::newRow("light") << QColor(Qt::white);
    QTest::newRow("dark") << QColor(40, 40, 40);
}

/// Counts the pixels of `image` that differ clearly from `background`.
int visiblePixels(const QImage& image, const QColor& background)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += qAbs(qGray(image.pixel(x, y)) - qGray(background.rgb())) > 60;
    }
    return count;
}

void tst_DesignerFormWindow::drawsIcons()
{
    QFETCH(QColor, window);
    const QPalette usual = QApplication::palette();
    cleanup();
    QApplication::setPalette(QPalette(window));
    init();
    const auto* widgets = m_designer->core()->widgetDataBase();
    for (const QString& name : classNames()) {
        const QIcon icon = widgets->item(widgets->indexOfClassName(name))->icon();
        for (const int side : {16, 22, 44}) {
            QImage image(side, side, QImage::Format_RGB32);
            image.fill(window);
            QPainter painter(&image);
            icon.paint(&painter, image.rect());
            QVERIFY2(visiblePixels(image, window) > side * side / 20, qPrintable(name));
        }
    }
    QApplication::setPalette(usual);
}

void tst_DesignerFormWindow::keepsClassesAndProperties()
{
    const QString saved = m_form->contents();
    const auto before = savedWidgets(m_contents);
    const auto after = savedWidgets(saved);
    for (auto widget = before.begin(); widget != before.end(); ++widget) {
        QCOMPARE(after[widget.key()].className, widget->className);
        QCOMPARE(after[widget.key()].properties, widget->properties);
    }
    QCOMPARE(after.size(), before.size());
    for (const QString& name : classNames())
        QVERIFY2(saved.contains(QStringLiteral("<class>%1</class>").arg(name)), qPrintable(name));
}

void tst_DesignerFormWindow::savesTheSameAgain()
{
    // The form itself may have another height: Qt Designer computes it from the layout.
    const auto withoutForm = [](const QString& contents) {
        return contents.mid(contents.indexOf(QStringLiteral("<layout")));
    };
    const QString saved = m_form->contents();
    QCOMPARE(withoutForm(m_designer->open(saved)->contents()), withoutForm(saved));
}

void tst_DesignerFormWindow::pastesWhatTheWidgetBoxHolds_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("hasText");
    QTest::newRow("elided texts") << classNames().at(0) << true;
    QTest::newRow("choices") << classNames().at(1) << false;
    QTest::newRow("command links") << classNames().at(2) << true;
    QTest::newRow("integers") << classNames().at(3) << false;
    QTest::newRow("doubles") << classNames().at(4) << false;
}

void tst_DesignerFormWindow::pastesWhatTheWidgetBoxHolds()
{
    QFETCH(QString, name);
    QFETCH(bool, hasText);
    const QDesignerWidgetBoxInterface* box = m_designer->core()->widgetBox();
    QString xml;
    for (int i = 0; i < box->categoryCount(); ++i) {
        for (int j = 0; j < box->widgetCount(i); ++j) {
            if (box->widget(i, j).name() == name.section(QStringLiteral("::"), -1))
                xml = box->widget(i, j).domXml();
        }
    }
    m_form = m_designer->open(QStringLiteral("<ui version=\"4.0\"><class>Inputs</class>"
                                             "<widget class=\"QWidget\" name=\"Inputs\"/></ui>"));
    // The clipboard of Qt Designer has the copied widgets within another one.
    xml.replace(QStringLiteral("<widget "),
                QStringLiteral("<widget class=\"QWidget\" name=\"__qt_fake_top_level\"><widget "));
    xml.replace(QStringLiteral("<customwidgets>"), QStringLiteral("</widget><customwidgets>"));
    QApplication::clipboard()->setText(xml);
    trigger(FormManager::PasteAction);

    const auto saved = savedWidgets(m_form->contents());
    QCOMPARE(saved.size(), 1);
    QCOMPARE(saved.first().className, name);
    QCOMPARE(saved.first().properties.contains(QStringLiteral("text")), hasText);
}

void tst_DesignerFormWindow::decimalsDoNotRoundTheValue()
{
    QCOMPARE(flow()->text(), QStringLiteral("0.1235 mol/s"));
    QCOMPARE(flow()->value(), flowValue);
    m_form->cursor()->setWidgetProperty(flow(), decimals, 2);
    QCOMPARE(flow()->text(), QStringLiteral("0.12 mol/s"));
    QCOMPARE(flow()->value(), flowValue);
    QCOMPARE(savedFlow(m_form).properties.value(decimals), QStringLiteral("2"));
    QCOMPARE(savedFlow(m_form).properties.value(QStringLiteral("value")), QStringLiteral("0.123456789012345"));
}

void tst_DesignerFormWindow::decimalsAreUndone()
{
    const QString before = m_form->contents();
    m_form->cursor()->setWidgetProperty(flow(), decimals, 2);
    m_form->commandHistory()->undo();
    QCOMPARE(flow()->text(), QStringLiteral("0.1235 mol/s"));
    QCOMPARE(flow()->value(), flowValue);
    QCOMPARE(m_form->contents(), before);
    m_form->commandHistory()->redo();
    QCOMPARE(flow()->text(), QStringLiteral("0.12 mol/s"));
}

void tst_DesignerFormWindow::decimalsAreReset()
{
    m_form->cursor()->resetWidgetProperty(flow(), decimals);
    QCOMPARE(flow()->text(), QStringLiteral("0.12345679 mol/s"));
    QCOMPARE(flow()->value(), flowValue);
    QVERIFY(!savedFlow(m_form).properties.contains(decimals));
}

void tst_DesignerFormWindow::showsDecimalsOnce()
{
    const auto* sheet = qt_extension<QDesignerPropertySheetExtension*>(m_designer->core()->extensionManager(), flow());
    const int index = sheet->indexOf(decimals);
    QCOMPARE(sheet->propertyGroup(index), QStringLiteral("zelmar::ui::QScientificSpinBox"));
    QCOMPARE(sheet->property(index), QVariant(4));
    QVERIFY(sheet->isChanged(index));
    QCOMPARE(m_form->contents().count(QStringLiteral("name=\"decimals\"")), 1);
}

void tst_DesignerFormWindow::explainsDecimals()
{
    QDesignerPropertyEditorInterface* editor = m_designer->core()->propertyEditor();
    editor->setObject(flow());
    QList<QTreeWidgetItem*> lines;
    for (const QTreeWidget* tree : editor->findChildren<QTreeWidget*>())
        lines += tree->findItems(decimals, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines.first()->toolTip(0).contains(QStringLiteral("significant digits")),
             qPrintable(lines.first()->toolTip(0)));
}

void tst_DesignerFormWindow::deletedWidgetsComeBack()
{
    const QString before = m_form->contents();
    for (const QString& name : savedWidgets(before).keys()) {
        select(m_form->findChild<QWidget*>(name));
        trigger(FormManager::DeleteAction);
        QVERIFY(!savedWidgets(m_form->contents()).contains(name));
    }
    while (m_form->commandHistory()->canUndo())
        m_form->commandHistory()->undo();
    QCOMPARE(savedWidgets(m_form->contents()), savedWidgets(before));
}

void tst_DesignerFormWindow::previewsTheForm()
{
    trigger(FormManager::DefaultPreviewAction);
    QDoubleSpinBox* previewed = nullptr;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        auto* found = window->findChild<QDoubleSpinBox*>(QStringLiteral("flow"));
        if (found && found != flow())
            previewed = found;
    }
    QVERIFY(previewed);
    QCOMPARE(previewed->metaObject()->className(), "zelmar::ui::QScientificSpinBox");
    QCOMPARE(previewed->text(), QStringLiteral("0.1235 mol/s"));
    QCOMPARE(previewed->value(), flowValue);
}

/// A class of the application that is derived from one of the library, as "Promote to..." notes it.
void tst_DesignerFormWindow::keepsAPromotedWidget()
{
    QString contents = m_contents;
    contents.replace(QStringLiteral("<widget class=\"zelmar::ui::QScientificSpinBox\""),
                     QStringLiteral("<widget class=\"FlowField\""));
    contents.replace(QStringLiteral("<customwidgets>"),
                     QStringLiteral("<customwidgets><customwidget><class>FlowField</class>"
                                    "<extends>zelmar::ui::QScientificSpinBox</extends>"
                                    "<header>FlowField.h</header></customwidget>"));
    m_form = m_designer->open(contents);
    QCOMPARE(flow()->text(), QStringLiteral("0.1235 mol/s"));
    const QString saved = m_form->contents();
    QCOMPARE(savedWidgets(saved), savedWidgets(contents));
    QCOMPARE(savedFlow(m_form).className, QStringLiteral("FlowField"));
    QVERIFY(saved.contains(QStringLiteral("<extends>zelmar::ui::QScientificSpinBox</extends>")));
}

UI_TEST_MAIN(tst_DesignerFormWindow)
#include "tst_DesignerFormWindow.moc"
