#include "ui/qt/controls/KeptText_p.h"

#include "TestHome.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using zelmar::internal::KeptText;

class tst_KeptText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void restoresTheText();
    void leavesAnUnchangedTextAlone();
    void outlivesTheLineEdit();
};

void tst_KeptText::restoresTheText()
{
    QLineEdit edit(QStringLiteral("typed"));
    edit.setCursorPosition(2);
    QSignalSpy changes(&edit, &QLineEdit::textChanged);
    QSignalSpy moves(&edit, &QLineEdit::cursorPositionChanged);
    {
        const KeptText kept(edit);
        edit.setText(QStringLiteral("a completion"));
        QCOMPARE(edit.text(), QStringLiteral("a completion"));
    }
    QCOMPARE(edit.text(), QStringLiteral("typed"));
    QCOMPARE(edit.cursorPosition(), 2);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(moves.size(), 0);
    edit.setText(QStringLiteral("typed later"));
    QCOMPARE(changes.size(), 1);
}

void tst_KeptText::leavesAnUnchangedTextAlone()
{
    QLineEdit edit(QStringLiteral("typed"));
    edit.setSelection(1, 2);
    {
        const KeptText kept(edit);
    }
    QCOMPARE(edit.selectedText(), QStringLiteral("yp"));
}

void tst_KeptText::outlivesTheLineEdit()
{
    auto edit = std::make_unique<QLineEdit>(QStringLiteral("typed"));
    {
        const KeptText kept(*edit);
        edit.reset();
    }
    QVERIFY(!edit);
}

UI_TEST_MAIN(tst_KeptText)
#include "tst_KeptText.moc"
