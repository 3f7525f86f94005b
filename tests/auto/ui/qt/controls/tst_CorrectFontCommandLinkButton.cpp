#include "ui/qt/controls/CorrectFontCommandLinkButton.h"

#include "RoomyStyle.h"
#include "TestHome.h"

#include <QApplication>
#include <QStyleFactory>
#include <QTest>
#include <QVBoxLayout>

#include <memory>
#include <type_traits>

using zelmar::ui::CorrectFontCommandLinkButton;

static_assert(std::has_virtual_destructor<CorrectFontCommandLinkButton>::value,
              "widgets are deleted through their base classes");
static_assert(std::is_default_constructible<CorrectFontCommandLinkButton>::value, "the parent is optional");
static_assert(sizeof(CorrectFontCommandLinkButton) == sizeof(QCommandLinkButton), "it has no fields");

namespace {

/// Makes the protected size hint accessible to the test.
class OpenButton : public CorrectFontCommandLinkButton
{
public:
    using CorrectFontCommandLinkButton::CorrectFontCommandLinkButton;
    using QCommandLinkButton::sizeHint;
};

/// Qt's own button with accessible size hints.
class PlainButton : public QCommandLinkButton
{
public:
    using QCommandLinkButton::minimumSizeHint;
    using QCommandLinkButton::sizeHint;
};

std::unique_ptr<QStyle> makeStyle(const QString& name)
{
    if (name == QStringLiteral("roomy"))
        return std::make_unique<RoomyStyle>();
    return std::unique_ptr<QStyle>(QStyleFactory::create(name));
}

QFont font(const QString& family, int points, bool bold, bool italic)
{
    QFont font(family, points, bold ? QFont::Bold : QFont::Normal, italic);
    return font;
}

} // namespace

class tst_CorrectFontCommandLinkButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasNoMetaObjectOfItsOwn();
    void isNeverSmallerThanItsSizeHint_data();
    void isNeverSmallerThanItsSizeHint();
    void followsItsTexts();
    void plainButtonHasASmallerMinimum();
};

void tst_CorrectFontCommandLinkButton::hasNoMetaObjectOfItsOwn()
{
    QWidget parent;
    const auto* button = new CorrectFontCommandLinkButton(&parent);
    QCOMPARE(button->parentWidget(), &parent);
    QCOMPARE(button->metaObject(), &QCommandLinkButton::staticMetaObject);
}

void tst_CorrectFontCommandLinkButton::isNeverSmallerThanItsSizeHint_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QFont>("font");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("description");

    const QVector<QPair<const char*, QFont>> fonts = {
        {"usual font", QApplication::font()},
        {"tiny font", font(QStringLiteral("DejaVu Sans"), 5, false, false)},
        {"huge font", font(QStringLiteral("DejaVu Sans"), 40, false, false)},
        {"bold italic serif", font(QStringLiteral("DejaVu Serif"), 11, true, true)},
        {"monospaced", font(QStringLiteral("DejaVu Sans Mono"), 13, false, false)},
    };
    const QString title = QStringLiteral("Open a &run");
    const QString sentence = QStringLiteral("Reads the files of one run. Nothing is changed. ");
    const QVector<QPair<const char*, QString>> descriptions = {
        {"no description", QString()},
        {"a sentence", sentence},
        {"a long description", sentence.repeated(20)},
        {"a description of two lines", sentence + QLatin1Char('\n') + sentence},
        {"a description from right to left",
         QStringLiteral("\u05e7\u05d5\u05e8\u05d0 \u05d0\u05ea \u05d4\u05e7\u05d1\u05e6\u05d9\u05dd")},
    };
    for (const QString& style : {QStringLiteral("Fusion"), QStringLiteral("Windows"), QStringLiteral("roomy")}) {
        for (const auto& [fontName, font] : fonts) {
            for (const auto& [descriptionName, description] : descriptions)
                QTest::addRow("%s, %s, %s", qPrintable(style), fontName, descriptionName)
                    << style << font << title << description;
            QTest::addRow("%s, %s, no text at all", qPrintable(style), fontName)
                << style << font << QString() << QString();
        }
    }
}

void tst_CorrectFontCommandLinkButton::isNeverSmallerThanItsSizeHint()
{
    QFETCH(QString, style);
    QFETCH(QFont, font);
    QFETCH(QString, title);
    QFETCH(QString, description);
    const std::unique_ptr<QStyle> chosen = makeStyle(style);
    QVERIFY(chosen);
    QWidget window;
    auto* button = new OpenButton;
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    button->setStyle(chosen.get());
    button->setFont(font);
    button->setText(title);
    button->setDescription(description);
    QCOMPARE(button->minimumSizeHint(), button->sizeHint());

    PlainButton plain;
    plain.setStyle(chosen.get());
    plain.setFont(font);
    plain.setText(title);
    plain.setDescription(description);
    QCOMPARE(button->minimumSizeHint(), plain.sizeHint());

    layout->activate();
    window.resize(1, 1);
    layout->setGeometry(window.rect());
    QVERIFY(button->width() >= button->sizeHint().width());
    QVERIFY(button->height() >= button->sizeHint().height());
}

void tst_CorrectFontCommandLinkButton::followsItsTexts()
{
    OpenButton button;
    const QSize empty = button.minimumSizeHint();
    button.setText(QStringLiteral("A title that is longer than nothing"));
    const QSize titled = button.minimumSizeHint();
    QVERIFY(titled.width() > empty.width());
    button.setDescription(QStringLiteral("A description"));
    const QSize described = button.minimumSizeHint();
    QVERIFY(described.height() > titled.height());
    button.setDescription(QStringLiteral("A description that is a good deal longer than the title above it"));
    QVERIFY(button.minimumSizeHint().height() > described.height());
    button.setDescription(QString());
    QCOMPARE(button.minimumSizeHint(), titled);
}

/// Verifies the behaviour of Qt's button that the class corrects.
void tst_CorrectFontCommandLinkButton::plainButtonHasASmallerMinimum()
{
    PlainButton plain;
    plain.setText(QStringLiteral("Open a run"));
    plain.setDescription(QStringLiteral("Reads the files of one run. Nothing is changed."));
    QVERIFY(plain.minimumSizeHint().height() < plain.sizeHint().height());
}

UI_TEST_MAIN(tst_CorrectFontCommandLinkButton)
#include "tst_CorrectFontCommandLinkButton.moc"
