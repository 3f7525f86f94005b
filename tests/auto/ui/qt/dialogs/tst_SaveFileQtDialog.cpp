#include "ui/qt/dialogs/SaveFileQtDialog.h"

#include "platform/ApplicationSettings.h"
#include "ui/qt/dialogs/QExtendedFileDialog.h"

#include "DialogDriver.h"
#include "DialogFolders.h"
#include "FileDialogActions.h"
#include "TestHome.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using zelmar::ApplicationSettings;

namespace {

const std::string data = "Data files (*.dat)";
const std::vector<std::string> writers{"Data files (*.dat)", "Tables (*.csv)", "All files (*)"};

/// A flow that gives the test access to its dialog, as a derived class may.
class TestedFlow : public SaveFileQtDialog
{
public:
    using SaveFileQtDialog::dialog;
    using SaveFileQtDialog::SaveFileQtDialog;
};

QString typedName(QFileDialog& dialog)
{
    return fileNameEdit(dialog).text();
}

} // namespace

/// Tests what only the flow over the Qt-drawn dialog does. tst_SaveFileDialog tests what all flows do.
class tst_SaveFileQtDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isAPlainObject();
    void setUpOfTheDialog();
    void setUpWithAList();
    void filtersWithNeedlessBlanks();
    void textsAreUtf8();

    void preselectedNameIsAccepted();
    void typedPatternIsTheChosenFilter();
    void helpTopic();
    void derivedClassAdjustsTheDialog();

    void withoutAParent();
    void parentDestroyedFirst();
    void flowDestroyedFirst();

private:
    std::unique_ptr<TestedFlow> makeFlow(const std::string& name = {});
    std::string path(const QString& name) const { return m_folders->path(name).toStdString(); }

    std::unique_ptr<DialogFolders> m_folders;
    std::unique_ptr<QWidget> m_window;
};

void tst_SaveFileQtDialog::init()
{
    ApplicationSettings::getInstance().setStore(std::make_unique<ApplicationSettings::MemoryStore>());
    m_folders = std::make_unique<DialogFolders>();
    m_folders->addFile(QStringLiteral("old.dat"), "contents");
    m_window = std::make_unique<QWidget>();
}

void tst_SaveFileQtDialog::cleanup()
{
    m_window.reset();
    QVERIFY(!QGuiApplication::overrideCursor());
}

std::unique_ptr<TestedFlow> tst_SaveFileQtDialog::makeFlow(const std::string& name)
{
    return std::make_unique<TestedFlow>(m_window.get(), "Save run", m_folders->path().toStdString(), name, writers, 0,
                                        "");
}

void tst_SaveFileQtDialog::isAPlainObject()
{
    const auto flow = makeFlow();
    QVERIFY(!flow->parent());
    QCOMPARE(flow->metaObject(), &QObject::staticMetaObject);
}

void tst_SaveFileQtDialog::setUpOfTheDialog()
{
    TestedFlow flow(m_window.get(), "Save run", m_folders->path().toStdString(), "run1.dat", data, "topic");
    QExtendedFileDialog& dialog = *flow.dialog();
    QCOMPARE(dialog.parentWidget(), m_window.get());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Save run"));
    QCOMPARE(dialog.directory().path(), m_folders->path());
    QCOMPARE(dialog.acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(dialog.fileMode(), QFileDialog::AnyFile);
    QCOMPARE(dialog.nameFilters(), QStringList{QString::fromStdString(data)});
    QCOMPARE(dialog.options(),
             QFileDialog::Options(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite));
    QCOMPARE(typedName(dialog), QStringLiteral("run1.dat"));
    QVERIFY(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help));
    QCOMPARE(flow.selectedFilename(), std::string());
    QCOMPARE(flow.selectedFilter(), data);
    QCOMPARE(flow.selectedWriter(), 0);

    dialog.show();
    QVERIFY(!ApplicationSettings::getInstance().getByteArrayValue("QExtendedFileDialog/Geometry").isEmpty());
}

void tst_SaveFileQtDialog::setUpWithAList()
{
    for (int selected = 0; selected < 3; ++selected) {
        TestedFlow flow(m_window.get(), "Save", m_folders->path().toStdString(), "my.name.xyz", writers, selected, "");
        QCOMPARE(flow.dialog()->nameFilters(), (QStringList{"Data files (*.dat)", "Tables (*.csv)", "All files (*)"}));
        QCOMPARE(typedName(*flow.dialog()), QStringLiteral("my.name.xyz")); // The suffix of the filter is not applied.
    }
}

/// The dialog stores its filters without redundant blanks. The index is nevertheless that of the caller's entry.
void tst_SaveFileQtDialog::filtersWithNeedlessBlanks()
{
    const TestedFlow flow(m_window.get(), "Save", "", "", {"Data (*.dat)", " Tables   (*.csv) "}, 1, "");
    QCOMPARE(flow.selectedWriter(), 1);
    QCOMPARE(flow.selectedFilter(), std::string("Tables (*.csv)"));
}

void tst_SaveFileQtDialog::textsAreUtf8()
{
    const QString folder = m_folders->addFolder(QStringLiteral(u"Me\u00dfwerte \u6e2c\u5b9a"));
    TestedFlow flow(m_window.get(), u8"S\u00efchern", folder.toStdString(), u8"l\u00e4uft",
                    u8"Me\u00dfdaten (*.\u00e4)", "");
    QCOMPARE(flow.dialog()->windowTitle(), QStringLiteral(u"S\u00efchern"));
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& dialog) { pressReturn(dialog); });
    QVERIFY(flow.launch());
    QCOMPARE(QString::fromStdString(flow.selectedFilename()), folder + QStringLiteral(u"/l\u00e4uft.\u00e4"));
    QCOMPARE(flow.selectedFilter(), std::string(u8"Me\u00dfdaten (*.\u00e4)"));
}

void tst_SaveFileQtDialog::preselectedNameIsAccepted()
{
    const auto flow = makeFlow("run1");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& dialog) { pressReturn(dialog); });
    QVERIFY(flow->launch());
    QCOMPARE(flow->selectedFilename(), path(QStringLiteral("run1.dat")));
}

/// The temporary filter of a typed pattern gives the extension, as every selected filter does.
void tst_SaveFileQtDialog::typedPatternIsTheChosenFilter()
{
    for (const char* pattern : {"run*", "run*.tab"}) {
        const auto flow = makeFlow();
        DialogDriver driver;
        driver.onDialog<QFileDialog>("pattern", [pattern](QFileDialog& dialog) {
            pickFilter(dialog, 1);
            acceptName(dialog, QLatin1String(pattern));
        });
        driver.onDialog<QFileDialog>("name", [](QFileDialog& dialog) { acceptName(dialog, QStringLiteral("new")); });
        QVERIFY(flow->launch());
        const bool hasExtension = QByteArray(pattern).contains('.');
        QCOMPARE(flow->selectedFilename(),
                 path(hasExtension ? QStringLiteral("new.tab") : QStringLiteral("new.Tablesrun")));
        QCOMPARE(flow->selectedWriter(), 1);
    }
}

void tst_SaveFileQtDialog::helpTopic()
{
    TestedFlow without(m_window.get(), "Save", "", "", writers, 0, "");
    QVERIFY(!without.dialog()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help));
    TestedFlow with(m_window.get(), "Save", "", "", writers, 0, "files/save.html");
    QVERIFY(with.dialog()->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Help));
}

void tst_SaveFileQtDialog::derivedClassAdjustsTheDialog()
{
    class Flow : public SaveFileQtDialog
    {
    public:
        using SaveFileQtDialog::SaveFileQtDialog;
        bool launch() override
        {
            dialog()->setGeometryPersistenceKey("our own");
            return SaveFileQtDialog::launch();
        }
    };
    const std::unique_ptr<SaveFileQtDialog> flow =
        std::make_unique<Flow>(m_window.get(), "Save", m_folders->path().toStdString(), "new", writers, 0, "");
    DialogDriver driver;
    driver.onDialog<QFileDialog>("accept", [](QFileDialog& dialog) { pressReturn(dialog); });
    QVERIFY(flow->launch());
    QVERIFY(!ApplicationSettings::getInstance().getByteArrayValue("our own").isEmpty());
}

void tst_SaveFileQtDialog::withoutAParent()
{
    QPointer<QExtendedFileDialog> dialog;
    {
        TestedFlow flow(nullptr, "Save", m_folders->path().toStdString(), "", data, "topic");
        dialog = flow.dialog();
        QVERIFY(!dialog->parent());
        DialogDriver driver;
        driver.onDialog<QFileDialog>("accept",
                                     [](QFileDialog& running) { acceptName(running, QStringLiteral("old.dat")); });
        driver.onDialog<QMessageBox>("yes", [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        QVERIFY(flow.launch());
    }
    QVERIFY(dialog); // Without a parent nothing else deletes it.
    delete dialog;
}

void tst_SaveFileQtDialog::parentDestroyedFirst()
{
    const auto flow = makeFlow("run1");
    m_window.reset();
    QVERIFY(!flow->dialog());
    QVERIFY(!flow->launch());
    QCOMPARE(flow->selectedFilter(), std::string());
    QCOMPARE(flow->selectedWriter(), -1);
}

void tst_SaveFileQtDialog::flowDestroyedFirst()
{
    auto flow = makeFlow();
    const QPointer<QExtendedFileDialog> dialog = flow->dialog();
    flow.reset();
    QVERIFY(dialog);
    m_window.reset();
    QVERIFY(!dialog);
}

UI_TEST_MAIN(tst_SaveFileQtDialog)
#include "tst_SaveFileQtDialog.moc"
