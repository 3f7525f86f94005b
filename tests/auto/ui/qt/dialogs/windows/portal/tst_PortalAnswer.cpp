#include "ui/qt/dialogs/windows/portal/PortalAnswer_p.h"

#include "ui/qt/dialogs/windows/portal/PortalQuestion_p.h"

#include "TestHome.h"

#include <QTest>

using namespace zelmar::internal;

class tst_PortalAnswer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void files();
    void invalidLocations_data();
    void invalidLocations();
    void resultsOfOtherTypes();
    void filter();
    void equalFilters();
    void choices();

private:
    static QVariantMap resultsWith(const QString& key, const QVariant& value)
    {
        return {{"uris", QStringList{"file:///a"}}, {key, value}};
    }
};

void tst_PortalAnswer::files()
{
    const QStringList locations{"file:///data/a%20b.dat", "file:///data/%C3%A4", "file:///data//x/../c"};
    const auto answer = portalAnswer({{"uris", locations}}, {});
    QVERIFY(answer);
    QCOMPARE(answer->files, (QStringList{"/data/a b.dat", QStringLiteral("/data/\u00e4"), "/data/c"}));
    QCOMPARE(answer->filter, -1);
    QVERIFY(answer->choices.isEmpty());
}

void tst_PortalAnswer::invalidLocations_data()
{
    QTest::addColumn<QStringList>("locations");
    QTest::newRow("none") << QStringList();
    QTest::newRow("empty") << QStringList{""};
    QTest::newRow("not local") << QStringList{"https://example.org/a.dat"};
    QTest::newRow("of another host") << QStringList{"file://elsewhere/a.dat"};
    QTest::newRow("a path") << QStringList{"/data/a.dat"};
    QTest::newRow("relative") << QStringList{"file:a.dat"};
    QTest::newRow("malformed") << QStringList{"file:///a%zz"};
    QTest::newRow("null byte") << QStringList{"file:///a%00b"};
    QTest::newRow("one of two") << QStringList{"file:///a", "mtp://phone/b"};
}

void tst_PortalAnswer::invalidLocations()
{
    QFETCH(QStringList, locations);
    QVERIFY(!portalAnswer({{"uris", locations}}, {}));
}

void tst_PortalAnswer::resultsOfOtherTypes()
{
    PortalQuestion question;
    question.filters = {{QStringLiteral("All"), {{0, QStringLiteral("*")}}}};
    QVERIFY(!portalAnswer({{"uris", 7}}, question));
    QVERIFY(!portalAnswer({}, question));
    const auto answer = portalAnswer(
        {{"uris", QStringList{"file:///a"}}, {"current_filter", QStringLiteral("All")}, {"choices", true}}, question);
    QVERIFY(answer);
    QCOMPARE(answer->filter, -1);
    QVERIFY(answer->choices.isEmpty());
}

void tst_PortalAnswer::filter()
{
    PortalQuestion question;
    question.filters = {{QStringLiteral("Data"), {{0, QStringLiteral("*.dat")}}},
                        {QStringLiteral("All"), {{0, QStringLiteral("*")}}}};
    const PortalFilter unknown{QStringLiteral("All"), {{0, QStringLiteral("*.*")}}};
    QCOMPARE(portalAnswer(resultsWith("current_filter", QVariant::fromValue(question.filters[1])), question)->filter,
             1);
    QCOMPARE(portalAnswer(resultsWith("current_filter", QVariant::fromValue(unknown)), question)->filter, -1);
    QCOMPARE(portalAnswer(resultsWith("current_filter", QVariant::fromValue(unknown)), {})->filter, -1);
    QCOMPARE(portalAnswer(resultsWith("current_filter", QVariant::fromValue(PortalFilter())), {})->filter, -1);
}

void tst_PortalAnswer::equalFilters()
{
    PortalQuestion question;
    const PortalFilter all{QStringLiteral("All"), {{0, QStringLiteral("*")}}};
    question.filters = {{QStringLiteral("Data"), {{0, QStringLiteral("*.dat")}}}, all, all};
    const QVariantMap results = resultsWith("current_filter", QVariant::fromValue(all));
    question.filter = 2;
    QCOMPARE(portalAnswer(results, question)->filter, 2);
    question.filter = 0;
    QCOMPARE(portalAnswer(results, question)->filter, 1);
}

void tst_PortalAnswer::choices()
{
    PortalQuestion question;
    question.choices = {
        {QStringLiteral("1"), {}, {}, QStringLiteral("false")},
        {QStringLiteral("2"), {}, {{QStringLiteral("u"), {}}, {QStringLiteral("l"), {}}}, QStringLiteral("u")},
        {QStringLiteral("3"), {}, {}, QStringLiteral("false")}};
    const QList<PortalPair> chosen{{QStringLiteral("2"), QStringLiteral("l")},
                                   {QStringLiteral("1"), QStringLiteral("true")},
                                   {QStringLiteral("3"), QStringLiteral("maybe")},
                                   {QStringLiteral("2"), QStringLiteral("x")},
                                   {QStringLiteral("read-only"), QStringLiteral("true")}};
    const auto answer = portalAnswer(resultsWith("choices", QVariant::fromValue(chosen)), question);
    QCOMPARE(answer->choices, (QMap<QString, QString>{{"1", "true"}, {"2", "l"}}));
}

CORE_TEST_MAIN(tst_PortalAnswer)
#include "tst_PortalAnswer.moc"
