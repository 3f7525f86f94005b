#include "pages/LabelsAndButtonsPage.h"

#include "ui/qt/controls/ElidedTextLabel.h"

#include "TestHome.h"

#include <QLabel>
#include <QSplitter>
#include <QtTest>

#include <algorithm>

using gallery::LabelsAndButtonsPage;

class tst_LabelsAndButtonsPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tellsTheToolTipOfTheLastLabel();
};

void tst_LabelsAndButtonsPage::tellsTheToolTipOfTheLastLabel()
{
    LabelsAndButtonsPage page;
    const ElidedTextLabel& label = *page.findChildren<ElidedTextLabel*>().last();
    const auto isTold = [&](const QString& toolTip) {
        const QList<QLabel*> labels = page.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(), [&](const QLabel* told) {
            return told->textFormat() == Qt::PlainText && told->text() == toolTip;
        });
    };
    page.resize(1200, 600);
    page.show();
    page.findChild<QSplitter*>()->setSizes({0, 10000});
    QTRY_COMPARE(label.toolTip(), label.text());
    QVERIFY(isTold('"' + label.text() + '"'));

    page.findChild<QSplitter*>()->setSizes({10000, 0});
    QTRY_COMPARE(label.toolTip(), QString());
    QVERIFY(isTold("none"));
}

UI_TEST_MAIN(tst_LabelsAndButtonsPage)
#include "tst_LabelsAndButtonsPage.moc"
