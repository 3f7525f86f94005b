#include "testing/FileDialogScript.h"

#include "TestHome.h"

#include <QDebug>
#include <QtTest>

#include <functional>
#include <memory>
#include <sstream>

using zelmar::testing::describe;
using zelmar::testing::ShownControl;
using zelmar::testing::ShownFileDialog;
using zelmar::testing::ShownQuestion;

namespace {

ShownFileDialog saveDialog()
{
    ShownControl box;
    box.kind = ShownControl::Kind::CheckBox;
    box.label = "Preview";
    box.ticked = true;
    box.enabled = false;
    box.visible = false;
    ShownFileDialog dialog;
    dialog.acceptMode = QFileDialog::AcceptSave;
    dialog.caption = "Save run";
    dialog.folder = "/data";
    dialog.defaultName = "run1";
    dialog.nameFilters = QStringList{"Data (*.dat)", "Tables (*.csv)"};
    dialog.selectedNameFilter = "Tables (*.csv)";
    dialog.asksBeforeOverwriting = true;
    dialog.controls = {box};
    return dialog;
}

const char saveDialogText[] = "save dialog \"Save run\" for any file, native, asks before overwriting\n"
                              "  folder \"/data\"\n"
                              "  name \"run1\"\n"
                              "  name filter \"Data (*.dat)\"\n"
                              "  name filter \"Tables (*.csv)\", selected\n"
                              "  check box \"Preview\", ticked, disabled, hidden";

template <typename Record>
QString streamed(const Record& record)
{
    std::ostringstream stream;
    stream << record;
    return QString::fromStdString(stream.str());
}

template <typename Record>
QString debugged(const Record& record)
{
    QString text;
    QDebug(&text).nospace() << record;
    return text;
}

using Change = std::function<void(ShownFileDialog&)>;

} // namespace
Q_DECLARE_METATYPE(Change)

class tst_ShownFileDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void describesADialog();
    void describesOtherDialogs();
    void describesAQuestion();
    void printsInEachFramework();
    void comparesEachMember_data();
    void comparesEachMember();
    void comparesControlsAndQuestions();
};

void tst_ShownFileDialog::describesADialog()
{
    QCOMPARE(describe(saveDialog()), QString(saveDialogText));
}

void tst_ShownFileDialog::describesOtherDialogs()
{
    ShownFileDialog dialog;
    dialog.kind = ShownFileDialog::Kind::DrawnByQt;
    dialog.fileMode = QFileDialog::Directory;
    QCOMPARE(describe(dialog), QString("open dialog \"\" for a folder, drawn by Qt\n  folder \"\"\n  name \"\""));
    dialog.fileMode = QFileDialog::ExistingFile;
    QVERIFY(describe(dialog).contains("for an existing file,"));
    dialog.fileMode = QFileDialog::ExistingFiles;
    QVERIFY(describe(dialog).contains("for existing files,"));
    ShownControl control;
    control.label = "Columns";
    QCOMPARE(describe(control), QString("button \"Columns\""));
    control.kind = ShownControl::Kind::MenuEntry;
    QCOMPARE(describe(control), QString("menu entry \"Columns\""));
}

void tst_ShownFileDialog::describesAQuestion()
{
    ShownQuestion question;
    question.caption = "Save run";
    question.text = "Replace?";
    QCOMPARE(describe(question), QString("question whether to overwrite, \"Save run\": \"Replace?\""));
    question.kind = ShownQuestion::Kind::ChooseAgain;
    QCOMPARE(describe(question), QString("question whether to choose another place, \"Save run\": \"Replace?\""));
}

void tst_ShownFileDialog::printsInEachFramework()
{
    const ShownFileDialog dialog = saveDialog();
    QCOMPARE(streamed(dialog), describe(dialog));
    QCOMPARE(debugged(dialog).trimmed(), describe(dialog));
    const std::unique_ptr<char[]> text(toString(dialog));
    QCOMPARE(QString::fromUtf8(text.get()), describe(dialog));
    const ShownControl control = dialog.controls.front();
    QCOMPARE(streamed(control), describe(control));
    QCOMPARE(debugged(control).trimmed(), describe(control));
    const std::unique_ptr<char[]> controlText(toString(control));
    QCOMPARE(QString::fromUtf8(controlText.get()), describe(control));
    const ShownQuestion question;
    QCOMPARE(streamed(question), describe(question));
    QCOMPARE(debugged(question).trimmed(), describe(question));
    const std::unique_ptr<char[]> questionText(toString(question));
    QCOMPARE(QString::fromUtf8(questionText.get()), describe(question));
}

void tst_ShownFileDialog::comparesEachMember_data()
{
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, const Change& change) { QTest::newRow(name) << change; };
    row("kind", [](ShownFileDialog& dialog) { dialog.kind = ShownFileDialog::Kind::DrawnByQt; });
    row("accept mode", [](ShownFileDialog& dialog) { dialog.acceptMode = QFileDialog::AcceptOpen; });
    row("file mode", [](ShownFileDialog& dialog) { dialog.fileMode = QFileDialog::Directory; });
    row("caption", [](ShownFileDialog& dialog) { dialog.caption = "Open"; });
    row("folder", [](ShownFileDialog& dialog) { dialog.folder = "/"; });
    row("default name", [](ShownFileDialog& dialog) { dialog.defaultName = "run2"; });
    row("name filters", [](ShownFileDialog& dialog) { dialog.nameFilters.removeLast(); });
    row("selected filter", [](ShownFileDialog& dialog) { dialog.selectedNameFilter.clear(); });
    row("asks before overwriting", [](ShownFileDialog& dialog) { dialog.asksBeforeOverwriting = false; });
    row("controls", [](ShownFileDialog& dialog) { dialog.controls.front().ticked = false; });
}

void tst_ShownFileDialog::comparesEachMember()
{
    QFETCH(Change, change);
    ShownFileDialog changed = saveDialog();
    QVERIFY(changed == saveDialog());
    QVERIFY(!(changed != saveDialog()));
    change(changed);
    QVERIFY(changed != saveDialog());
    QVERIFY(!(changed == saveDialog()));
}

void tst_ShownFileDialog::comparesControlsAndQuestions()
{
    ShownControl control;
    QVERIFY(control == ShownControl());
    control.label = "Columns";
    QVERIFY(control != ShownControl());
    ShownQuestion question;
    QVERIFY(question == ShownQuestion());
    question.text = "Replace?";
    QVERIFY(question != ShownQuestion());
}

CORE_TEST_MAIN(tst_ShownFileDialog)
#include "tst_ShownFileDialog.moc"
