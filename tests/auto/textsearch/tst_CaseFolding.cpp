#include "textsearch/CaseFolding_p.h"

#include "TestHome.h"

#include <QCoreApplication>
#include <QTest>

using zelmar::internal::CaseFolding;

class tst_CaseFolding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void foldsAsTheStringDoes();
    void findsAllEquivalents_data();
    void findsAllEquivalents();
};

void tst_CaseFolding::foldsAsTheStringDoes()
{
    const CaseFolding ignoring(Qt::CaseInsensitive);
    const CaseFolding exact(Qt::CaseSensitive);
    for (uint unit = 0; unit < 0x10000; ++unit) {
        QCOMPARE(ignoring(char16_t(unit)), char16_t(QChar(unit).toCaseFolded().unicode()));
        QCOMPARE(exact(char16_t(unit)), char16_t(unit));
    }
}

void tst_CaseFolding::findsAllEquivalents_data()
{
    QTest::addColumn<QString>("equivalents");

    QTest::newRow("digit") << "1";
    QTest::newRow("two cases") << "aA";
    QTest::newRow("Kelvin sign") << QString::fromUtf8("kKK");
    QTest::newRow("long s") << QString::fromUtf8("sSſ");
    QTest::newRow("final sigma") << QString::fromUtf8("σΣς");
    QTest::newRow("sharp s") << QString::fromUtf8("ßẞ");
    QTest::newRow("dotted capital i stands alone") << QString::fromUtf8("İ");
    QTest::newRow("surrogate") << QString(QChar(0xd801));
}

void tst_CaseFolding::findsAllEquivalents()
{
    QFETCH(QString, equivalents);

    for (const QChar unit : equivalents) {
        const auto found = CaseFolding(Qt::CaseInsensitive).equivalentsOf(unit.unicode());
        QCOMPARE(QString::fromUtf16(found.data(), int(found.size())), equivalents);
        QCOMPARE(CaseFolding(Qt::CaseSensitive).equivalentsOf(unit.unicode()), std::vector<char16_t>{unit.unicode()});
    }
}

CORE_TEST_MAIN(tst_CaseFolding)

#include "tst_CaseFolding.moc"
