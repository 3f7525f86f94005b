#include "pages/HelpersPage.h"

#include "TestHome.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using gallery::HelpersPage;

class tst_HelpersPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addsFontsOnlyFromAPath();
};

void tst_HelpersPage::addsFontsOnlyFromAPath()
{
    HelpersPage page;
    auto& path = *page.findChild<QLineEdit*>();
    const auto canAdd = [&page] {
        QStringList names;
        for (const auto* button : page.findChildren<QPushButton*>())
            if (button->isEnabled() && button->text().remove('&').startsWith("Add the"))
                names += button->text().remove('&');
        return names;
    };
    QCOMPARE(canAdd(), QStringList());
    path.setText("fonts");
    QCOMPARE(canAdd(), QStringList({"Add the file", "Add the folder"}));
    path.clear();
    QCOMPARE(canAdd(), QStringList());
}

UI_TEST_MAIN(tst_HelpersPage)
#include "tst_HelpersPage.moc"
