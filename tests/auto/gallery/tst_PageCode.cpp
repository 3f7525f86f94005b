#include "PageCode.h"

#include "CodeArea.h"
#include "GalleryPage.h"
#include "pages/makeGalleryPages.h"

#include "TestHome.h"

#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

using gallery::CodeArea;
using gallery::functionIn;
using gallery::PageCode;

namespace {

QString codeOf(const gallery::SourceFunctions& functions)
{
    return PageCode(std::vector<gallery::SourceFunctions>{functions}).text();
}

} // namespace

/// Checks how code is found in a source, and the code of each page. A function that a page's source does not have logs
/// a warning, which fails the test.
class tst_PageCode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsFunctions_data();
    void findsFunctions();
    void tellsWhatIsMissing();
    void eachPageHasCode();
    void codeIsShownAndCopied();
};

void tst_PageCode::findsFunctions_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("code");
    QTest::newRow("member") << "show"
                            << "int Page::show()\n{\n    hide();\n}";
    QTest::newRow("constructor") << "Page"
                                 << "Page::Page()\n    : m_value(0)\n{\n}";
    QTest::newRow("with its comment") << "hide"
                                      << "/// Hides\n/// the page.\nvoid hide()\n{\n    if (a) {\n    }\n}";
    QTest::newRow("only called") << "setUp" << QString();
    QTest::newRow("only declared") << "declared" << QString();
    QTest::newRow("part of a name") << "how" << QString();
    QTest::newRow("never ends") << "endless" << QString();
}

void tst_PageCode::findsFunctions()
{
    const QStringList lines = QString("void declared();\n"
                                      "Page::Page()\n    : m_value(0)\n{\n}\n\n"
                                      "int Page::show()\n{\n    hide();\n}\n\n"
                                      "/// Hides\n/// the page.\nvoid hide()\n{\n    if (a) {\n    }\n}\n\n"
                                      "const int value = setUp();\n"
                                      "void endless()\n{\n")
                                  .split('\n');
    QFETCH(QString, name);
    QTEST(functionIn(lines, name), "code");
}

void tst_PageCode::tellsWhatIsMissing()
{
    QTest::ignoreMessage(QtWarningMsg, "There is no function askNobody in TableEditorPage.cpp");
    QCOMPARE(codeOf({"TableEditorPage.cpp", {"askNobody"}}), QString());
    QTest::ignoreMessage(QtWarningMsg, "There is no source NoPage.cpp");
    QCOMPARE(codeOf({"NoPage.cpp", {}}), QString());
}

void tst_PageCode::eachPageHasCode()
{
    const auto pages = gallery::makeGalleryPages();
    QVERIFY(!pages.empty());
    for (const auto& page : pages) {
        const auto* area = page->findChild<CodeArea*>();
        QVERIFY2(area, qPrintable(page->title()));
        const int lines = area->findChild<QPlainTextEdit*>()->toPlainText().count('\n') + 1;
        QVERIFY2(lines >= 10 && lines <= 50, qPrintable(QString("%1: %2 lines").arg(page->title()).arg(lines)));
    }
}

void tst_PageCode::codeIsShownAndCopied()
{
    CodeArea area("one\ntwo");
    area.show();
    auto* const text = area.findChild<QPlainTextEdit*>();
    auto* const button = area.findChild<QToolButton*>();
    QVERIFY(!text->isVisible());
    QCOMPARE(button->arrowType(), Qt::RightArrow);
    button->click();
    QVERIFY(text->isVisible());
    QCOMPARE(button->arrowType(), Qt::DownArrow);
    QVERIFY(text->isReadOnly());
    QCOMPARE(text->accessibleName(), QString("Code"));
    area.findChild<QPushButton*>()->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("one\ntwo"));
    button->click();
    QVERIFY(!text->isVisible());
    area.setLayoutDirection(Qt::RightToLeft);
    QCOMPARE(button->arrowType(), Qt::LeftArrow);
}

UI_TEST_MAIN(tst_PageCode)
#include "tst_PageCode.moc"
