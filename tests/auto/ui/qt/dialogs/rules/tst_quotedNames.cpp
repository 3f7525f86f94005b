#include "TestHome.h"
#include "ui/qt/dialogs/rules/quotedNames.h"

#include <QtTest>

class tst_quotedNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotes();
};

void tst_quotedNames::quotes()
{
    QCOMPARE(quotedNames({}), std::string());
    QCOMPARE(quotedNames({"a.dat"}), std::string("\"a.dat\" "));
    QCOMPARE(quotedNames({"a.dat", "b.dat"}), std::string("\"a.dat\" \"b.dat\" "));
    QCOMPARE(quotedNames({"", "a b", "", "\xC3\xA4"}), std::string("\"a b\" \"\xC3\xA4\" "));
    QCOMPARE(quotedNames({"", ""}), std::string());
}

CORE_TEST_MAIN(tst_quotedNames)
#include "tst_quotedNames.moc"
