#include "platform/utf8ToWideString.h"

#include "TestHome.h"

#include <QTest>

using zelmar::utf8ToWideString;

class tst_utf8ToWideString : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void converts_data();
    void converts();
    void charactersBeyondTheBasicPlane();
    void everyCodePoint();
};

namespace {

/// Converts `text` code point by code point. Does not use QString::toStdWString(), because the function under test
/// does.
std::wstring wide(const QString& text)
{
    std::wstring result;
    for (int i = 0; i < text.size(); ++i) {
        const QChar unit = text.at(i);
        if (sizeof(wchar_t) > 2 && unit.isHighSurrogate() && i + 1 < text.size())
            result += static_cast<wchar_t>(QChar::surrogateToUcs4(unit, text.at(++i)));
        else
            result += static_cast<wchar_t>(unit.unicode());
    }
    return result;
}

/// Returns the code point as a string. Does not use QString::fromUcs4(), which drops U+FEFF.
QString character(char32_t point)
{
    if (!QChar::requiresSurrogates(point))
        return QString(QChar(static_cast<ushort>(point)));
    const QChar pair[] = {QChar(QChar::highSurrogate(point)), QChar(QChar::lowSurrogate(point))};
    return QString(pair, 2);
}

} // namespace

void tst_utf8ToWideString::converts_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<QString>("expected");

    const QChar replacement(0xFFFD);
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("ASCII") << QByteArray("a.dat") << QStringLiteral("a.dat");
    QTest::newRow("two and three bytes") << QByteArray(u8"\u00e4\u20ac") << QStringLiteral(u"\u00e4\u20ac");
    QTest::newRow("four bytes") << QByteArray(u8"\U0001F4C1") << QStringLiteral(u"\U0001F4C1");
    QTest::newRow("NUL in between") << QByteArray("a\0b", 3)
                                    << QString(QStringLiteral("a") + QChar(0) + QLatin1Char('b'));
    QTest::newRow("only a NUL") << QByteArray("\0", 1) << QString(1, QChar(0));
    QTest::newRow("byte order mark stays") << QByteArray(u8"\uFEFFx") << QStringLiteral(u"\uFEFFx");
    QTest::newRow("two byte order marks stay") << QByteArray(u8"\uFEFF\uFEFF") << QStringLiteral(u"\uFEFF\uFEFF");
    QTest::newRow("leading blanks stay") << QByteArray("  x") << QStringLiteral("  x");
    QTest::newRow("stray continuation byte")
        << QByteArray("a\x80z") << QString(QStringLiteral("a") + replacement + QLatin1Char('z'));
    QTest::newRow("byte that is never valid") << QByteArray("\xFF") << QString(replacement);
    QTest::newRow("cut sequence at the end") << QByteArray("a\xC3") << QString(QStringLiteral("a") + replacement);
    QTest::newRow("Latin-1 text") << QByteArray("caf\xE9!")
                                  << QString(QStringLiteral("caf") + replacement + QLatin1Char('!'));
}

void tst_utf8ToWideString::converts()
{
    QFETCH(QByteArray, utf8);
    QFETCH(QString, expected);
    QVERIFY(utf8ToWideString(utf8.toStdString()) == wide(expected));
}

void tst_utf8ToWideString::charactersBeyondTheBasicPlane()
{
    const std::wstring folder = utf8ToWideString(u8"\U0001F4C1");
    if (sizeof(wchar_t) == 2) {
        QCOMPARE(folder.size(), std::size_t(2));
        QCOMPARE(static_cast<unsigned>(folder[0]), 0xD83Du);
        QCOMPARE(static_cast<unsigned>(folder[1]), 0xDCC1u);
    } else {
        QCOMPARE(folder.size(), std::size_t(1));
        QCOMPARE(static_cast<unsigned>(folder[0]), 0x1F4C1u);
    }
}

void tst_utf8ToWideString::everyCodePoint()
{
    for (char32_t point = 0; point <= 0x10FFFF; ++point) {
        if (point >= 0xD800 && point <= 0xDFFF)
            continue;
        const QString text = character(point);
        QVERIFY2(utf8ToWideString(text.toStdString()) == wide(text), qPrintable(QString::number(point, 16)));
    }
}

CORE_TEST_MAIN(tst_utf8ToWideString)
#include "tst_utf8ToWideString.moc"
