#include "TestHome.h"
#include "ui/qt/dialogs/windows/com/CoTaskMemString_p.h"

#include <QtTest>

#include <cwchar>

using namespace zelmar::internal;

class tst_CoTaskMemString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copies_data();
    void copies();
    void nullIsEmpty();
};

void tst_CoTaskMemString::copies_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("non-ASCII") << QStringLiteral(u"\u00e4 b");
    QTest::newRow("beyond the basic plane") << QStringLiteral(u"\U0001f5ce.dat");
}

void tst_CoTaskMemString::copies()
{
    QFETCH(QString, text);
    const CoTaskMemString copy = makeCoTaskMemString(text);
    QCOMPARE(std::wcslen(copy.get()), text.toStdWString().size());
    QCOMPARE(textOf(copy.get()), text);
}

void tst_CoTaskMemString::nullIsEmpty()
{
    QCOMPARE(textOf(nullptr), QString());
}

CORE_TEST_MAIN(tst_CoTaskMemString)
#include "tst_CoTaskMemString.moc"
