#include "ui/qt/dialogs/windows/builtin/portalQuestion_p.h"

#include "ui/qt/dialogs/windows/builtin/ControlModel_p.h"
#include "ui/qt/dialogs/windows/builtin/FileDialogRequest_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

namespace {

FileTypes makeTypes()
{
    const COMDLG_FILTERSPEC types[] = {{L"Data", L"*.dat;*.bin"}, {L"All", L""}};
    return {2, types};
}

Control makeControl(DWORD id, Control::Kind kind, const char* label = "")
{
    Control control;
    control.id = id;
    control.kind = kind;
    control.label = QString::fromUtf8(label);
    return control;
}

} // namespace

/// Tests what is not visible through the native dialog, which sets neither labels nor a default folder.
class tst_portalQuestion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void saving();
    void folderOfTheName();
    void labels();
    void typeOutOfRange();
    void emptyAndHiddenMenus();
    void impossible_data();
    void impossible();
};

void tst_portalQuestion::saving()
{
    FileDialogRequest request(DialogKind::Save);
    request.title = QStringLiteral("Title");
    request.defaultFolder = QStringLiteral("/default");
    request.fileName = QStringLiteral("run.dat");
    request.types = makeTypes();
    request.type = 1;
    const auto question = portalQuestion(request, {});
    QVERIFY(question);
    QCOMPARE(question->kind, PortalQuestion::Kind::SaveFile);
    QCOMPARE(question->title, QStringLiteral("Title"));
    QCOMPARE(question->folder, QStringLiteral("/default"));
    QCOMPARE(question->name, QStringLiteral("run.dat"));
    QCOMPARE(question->filter, 1);
    QVERIFY((question->filters
             == QList<PortalFilter>{{QStringLiteral("Data (*.dat *.bin)"),
                                     {{0, QStringLiteral("*.[dD][aA][tT]")}, {0, QStringLiteral("*.[bB][iI][nN]")}}},
                                    {QStringLiteral("All ()"), {{0, QStringLiteral("*")}}}}));
    request.folder = QStringLiteral("/other");
    QCOMPARE(portalQuestion(request, {})->folder, QStringLiteral("/other"));
}

void tst_portalQuestion::folderOfTheName()
{
    FileDialogRequest request(DialogKind::Save);
    request.folder = QStringLiteral("/folder");
    request.fileName = QStringLiteral("/other/run.dat");
    const auto question = portalQuestion(request, {});
    QCOMPARE(question->folder, QStringLiteral("/other"));
    QCOMPARE(question->name, QStringLiteral("run.dat"));
}

void tst_portalQuestion::labels()
{
    FileDialogRequest request(DialogKind::Open);
    request.acceptLabel = QStringLiteral("Im&port && read_all");
    QCOMPARE(portalQuestion(request, {})->acceptLabel, QStringLiteral("Im_port & read__all"));
}

void tst_portalQuestion::typeOutOfRange()
{
    FileDialogRequest request(DialogKind::Open);
    request.types = makeTypes();
    request.type = 7;
    QCOMPARE(portalQuestion(request, {})->filter, 0);
}

void tst_portalQuestion::emptyAndHiddenMenus()
{
    const FileDialogRequest request(DialogKind::Open);
    ControlModel controls;
    controls.add(makeControl(1, Control::Kind::AcceptMenu));
    QVERIFY(portalQuestion(request, controls)->choices.isEmpty());
    controls.addItem(1, {2, QStringLiteral("Open")});
    controls.addItem(1, {3, QStringLiteral("Copy")});
    QCOMPARE(portalQuestion(request, controls)->choices.size(), 1);
    controls.setState(1, CDCS_ENABLED);
    QVERIFY(portalQuestion(request, controls)->choices.isEmpty());
}

void tst_portalQuestion::impossible_data()
{
    QTest::addColumn<int>("obstacle");
    QTest::newRow("label of the file name") << 0;
    QTest::newRow("default extension") << 1;
    QTest::newRow("folders to save in") << 2;
    QTest::newRow("several files to save") << 3;
    QTest::newRow("push button") << 4;
    QTest::newRow("disabled check box") << 5;
    QTest::newRow("disabled menu") << 6;
}

void tst_portalQuestion::impossible()
{
    QFETCH(int, obstacle);
    FileDialogRequest request(DialogKind::Save);
    ControlModel controls;
    controls.add(makeControl(1, Control::Kind::CheckButton, "Check"));
    controls.add(makeControl(2, Control::Kind::AcceptMenu));
    controls.addItem(2, {3, QStringLiteral("Save")});
    QVERIFY(portalQuestion(request, controls));
    if (obstacle == 0)
        request.fileNameLabel = QStringLiteral("Document");
    else if (obstacle == 1)
        request.defaultExtension = QStringLiteral("dat");
    else if (obstacle == 2)
        request.options |= FOS_PICKFOLDERS;
    else if (obstacle == 3)
        request.options |= FOS_ALLOWMULTISELECT;
    else if (obstacle == 4)
        controls.add(makeControl(4, Control::Kind::PushButton, "Button"));
    else
        controls.setState(obstacle == 5 ? 1 : 2, CDCS_VISIBLE);
    QVERIFY(!portalQuestion(request, controls));
    if (obstacle >= 4) { // What is hidden is no obstacle.
        controls.setState(obstacle == 4 ? 4 : obstacle == 5 ? 1 : 2, CDCS_INACTIVE);
        QVERIFY(portalQuestion(request, controls));
    }
}

CORE_TEST_MAIN(tst_portalQuestion)
#include "tst_portalQuestion.moc"
