#include "compat/QxtLabel.h"

#include "PaintedText.h"
#include "TestHome.h"

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QImage>
#include <QTest>

#include <functional>
#include <memory>
#include <type_traits>

static_assert(std::has_virtual_destructor<QxtLabel>::value, "widgets are deleted through their base classes");
static_assert(!std::is_convertible<QWidget*, QxtLabel>::value, "a parent does not convert to a label implicitly");

namespace {

const QChar ellipsis(0x2026);

const QString alphabet = QStringLiteral("abcdefghijklmnopqrstuvwxyz0123456789");

/// "Shalom olam" seven times in Hebrew letters.
const QString hebrew = QStringLiteral("\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd ").repeated(7).trimmed();

int advance(const QWidget& widget, const QString& text)
{
    return widget.fontMetrics().horizontalAdvance(text);
}

QString paintedBy(QxtLabel& label)
{
    return PaintedText(label).text();
}

/// Sets `text` and gives the label exactly the size that the text needs.
void showAllOf(QxtLabel& label, const QString& text)
{
    label.setText(text);
    label.resize(label.sizeHint());
}

} // namespace

/// Tests the substitute, not LibQxt's class.
class tst_QxtLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void startsEmpty();
    void propertiesForForms();
    void elidesInEachMode_data();
    void elidesInEachMode();
    void fitsToThePixel();
    void drawsTextLiterally_data();
    void drawsTextLiterally();
    void showsOneLine_data();
    void showsOneLine();
    void everyWidth_data();
    void everyWidth();
    void neverSeparatesAccents_data();
    void neverSeparatesAccents();
    void alignsItsText_data();
    void alignsItsText();
    void keepsTheDirectionOfTheFullText();
    void drawsItsFrame();
    void paintsWithinItsContentsRect();
    void sizeHintsIncludeFrameAndMargins();
    void shrinksInALayoutPixelByPixel();
    void newTextUpdatesTheLayout();
    void followsItsFont();
    void repaintsWhenChanged();
    void isAStaticTextForAssistiveTechnology();

private:
    std::unique_ptr<QxtLabel> m_label;
};

void tst_QxtLabel::init()
{
    m_label = std::make_unique<QxtLabel>();
}

void tst_QxtLabel::startsEmpty()
{
    QCOMPARE(m_label->text(), QString());
    QCOMPARE(m_label->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(m_label->elideMode(), Qt::ElideRight);
    QCOMPARE(m_label->frameStyle(), QFrame().frameStyle());
    QCOMPARE(m_label->sizeHint(), QSize(0, m_label->fontMetrics().height()));
    QCOMPARE(m_label->minimumSizeHint(), m_label->sizeHint());
    m_label->resize(100, 20);
    QCOMPARE(paintedBy(*m_label), QString());

    QWidget parent;
    const auto* child = new QxtLabel(&parent, Qt::Tool);
    QCOMPARE(child->parentWidget(), &parent);
    QCOMPARE(child->windowFlags() & Qt::WindowType_Mask, Qt::Tool);
}

void tst_QxtLabel::propertiesForForms()
{
    QVERIFY(m_label->setProperty("text", alphabet));
    QVERIFY(m_label->setProperty("alignment", int(Qt::AlignRight | Qt::AlignTop)));
    QVERIFY(m_label->setProperty("elideMode", Qt::ElideMiddle));
    QCOMPARE(m_label->text(), alphabet);
    QCOMPARE(m_label->alignment(), Qt::AlignRight | Qt::AlignTop);
    QCOMPARE(m_label->elideMode(), Qt::ElideMiddle);
}

void tst_QxtLabel::elidesInEachMode_data()
{
    QTest::addColumn<Qt::TextElideMode>("mode");
    QTest::addColumn<QString>("begin");
    QTest::addColumn<QString>("end");

    QTest::newRow("left") << Qt::ElideLeft << QString(ellipsis) << "789";
    QTest::newRow("right") << Qt::ElideRight << "abc" << QString(ellipsis);
    QTest::newRow("middle") << Qt::ElideMiddle << "abc"
                            << "789";
}

void tst_QxtLabel::elidesInEachMode()
{
    QFETCH(Qt::TextElideMode, mode);
    QFETCH(QString, begin);
    QFETCH(QString, end);
    m_label->setElideMode(mode);
    showAllOf(*m_label, alphabet);
    QCOMPARE(paintedBy(*m_label), alphabet);
    m_label->resize(m_label->width() / 2, m_label->height());
    const QString painted = paintedBy(*m_label);
    QVERIFY2(painted.startsWith(begin), qPrintable(painted));
    QVERIFY2(painted.endsWith(end), qPrintable(painted));
    QCOMPARE(painted.count(ellipsis), 1);
    QVERIFY(painted.size() > alphabet.size() / 4 && painted.size() < alphabet.size() * 3 / 4);
    QCOMPARE(m_label->text(), alphabet);

    m_label->setElideMode(Qt::ElideNone);
    QCOMPARE(paintedBy(*m_label), alphabet);
}

/// Uses many fonts, some of which have fractional character widths.
void tst_QxtLabel::fitsToThePixel()
{
    for (int size = 5; size < 40; ++size) {
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(size);
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.1 * (size % 7));
        m_label->setFont(font);
        m_label->setText(alphabet);
        m_label->resize(advance(*m_label, alphabet), 50);
        QCOMPARE(paintedBy(*m_label), alphabet);
        m_label->resize(m_label->width() - 1, 50);
        QVERIFY(paintedBy(*m_label).contains(ellipsis));
    }
}

void tst_QxtLabel::drawsTextLiterally_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("mark-up") << "<b>bold</b><br/>";
    QTest::newRow("an entity") << "&lt;&amp;";
    QTest::newRow("a mnemonic") << "&File && more&";
    QTest::newRow("a path") << "C:\\runs\\%1\\";
    QTest::newRow("blanks") << "  two  each  ";
}

void tst_QxtLabel::drawsTextLiterally()
{
    QFETCH(QString, text);
    showAllOf(*m_label, text);
    QCOMPARE(paintedBy(*m_label), text);
}

void tst_QxtLabel::showsOneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("painted");

    QTest::newRow("LF") << "one\ntwo"
                        << "one two";
    QTest::newRow("CR and LF") << "one\r\ntwo"
                               << "one two";
    QTest::newRow("CR") << "one\rtwo"
                        << "one two";
    QTest::newRow("an empty line") << "one\n\ntwo"
                                   << "one  two";
    QTest::newRow("a line separator") << QStringLiteral("one\u2028two") << "one two";
    QTest::newRow("a paragraph separator") << QStringLiteral("one\u2029two") << "one two";
    QTest::newRow("a tab") << "one\ttwo"
                           << "one two";
    QTest::newRow("a vertical tab") << "one\vtwo"
                                    << "one two";
    // Qt draws the variant after this separator if the variant before it does not fit.
    QTest::newRow("Qt's separator of text variants") << QStringLiteral("one\u009ctwo") << "one two";
    QTest::newRow("NUL") << QStringLiteral("one") + QChar(0) + QStringLiteral("two") << "one two";
    QTest::newRow("only a line feed") << "\n"
                                      << " ";
}

void tst_QxtLabel::showsOneLine()
{
    QFETCH(QString, text);
    QFETCH(QString, painted);
    showAllOf(*m_label, text);
    QCOMPARE(m_label->width(), advance(*m_label, painted));
    m_label->resize(m_label->width(), 200);
    const PaintedText all(*m_label);
    QCOMPARE(all.text(), painted);
    QVERIFY(all.area().height() <= m_label->fontMetrics().height() + 1);
    QCOMPARE(m_label->text(), text);

    m_label->resize(advance(*m_label, QStringLiteral("one t")), 200);
    QVERIFY(PaintedText(*m_label).area().height() <= m_label->fontMetrics().height() + 1);
}

void tst_QxtLabel::everyWidth_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::TextElideMode>("mode");

    const QVector<QPair<const char*, QString>> texts = {
        {"letters", alphabet},
        {"right-to-left text", hebrew},
        {"text of both directions", hebrew.left(20) + QStringLiteral(" /runs/flow.csv")},
        {"several lines", QStringLiteral("one\ntwo\tthree\r\nfour")},
        {"one wide letter", QStringLiteral("W")},
        {"a thin letter", QStringLiteral("i")},
    };
    for (const auto& [name, text] : texts) {
        QTest::addRow("%s, left", name) << text << Qt::ElideLeft;
        QTest::addRow("%s, middle", name) << text << Qt::ElideMiddle;
        QTest::addRow("%s, right", name) << text << Qt::ElideRight;
    }
}

/// Verifies at each width from the minimum size hint on that the text stays within the contents rectangle and that more
/// width never shows fewer characters.
void tst_QxtLabel::everyWidth()
{
    QFETCH(QString, text);
    QFETCH(Qt::TextElideMode, mode);
    m_label->setElideMode(mode);
    m_label->setText(text);
    const QSize most = m_label->sizeHint();
    int shownLength = 1;
    for (int width = m_label->minimumSizeHint().width(); width <= most.width() + 2; ++width) {
        m_label->resize(width, most.height());
        const PaintedText painted(*m_label);
        const QRectF area = painted.area();
        const QString where = QStringLiteral("%1: %2 to %3").arg(width).arg(area.left()).arg(area.right());
        QVERIFY2(area.left() >= -1 && area.right() <= width + 1, qPrintable(where));
        QVERIFY(area.height() <= most.height() + 1);
        QVERIFY(painted.text().size() >= shownLength);
        QCOMPARE(painted.text().contains(ellipsis), width < most.width());
        shownLength = painted.text().size();
    }
}

void tst_QxtLabel::neverSeparatesAccents_data()
{
    QTest::addColumn<QString>("letter");

    QTest::newRow("an accent") << QStringLiteral("e\u0301");
    QTest::newRow("two accents") << QStringLiteral("o\u0302\u0323");
    QTest::newRow("a surrogate pair") << QStringLiteral("\U0001D49C");
    QTest::newRow("vowel points") << QStringLiteral("\u05d1\u05b8");
}

void tst_QxtLabel::neverSeparatesAccents()
{
    QFETCH(QString, letter);
    m_label->setText(letter.repeated(20));
    const QSize most = m_label->sizeHint();
    for (const auto mode : {Qt::ElideLeft, Qt::ElideMiddle, Qt::ElideRight}) {
        m_label->setElideMode(mode);
        for (int width = most.width(); width > 0; --width) {
            m_label->resize(width, most.height());
            const QString painted = paintedBy(*m_label);
            QString rest = painted;
            rest.remove(letter).remove(ellipsis);
            QVERIFY2(rest.isEmpty(), qPrintable(painted));
        }
    }
}

void tst_QxtLabel::alignsItsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<int>("horizontal"); // -1 for left, 1 for right
    QTest::addColumn<int>("vertical");   // -1 for top, 1 for bottom

    using Alignment = Qt::Alignment;
    const QString text = QStringLiteral("text");
    const Alignment absoluteLeft = Qt::AlignLeft | Qt::AlignAbsolute;
    // clang-format off
    QTest::newRow("left") << text << Qt::LeftToRight << Alignment(Qt::AlignLeft) << -1 << -1;
    QTest::newRow("centre") << text << Qt::LeftToRight << Alignment(Qt::AlignCenter) << 0 << 0;
    QTest::newRow("right, bottom") << text << Qt::LeftToRight << (Qt::AlignRight | Qt::AlignBottom) << 1 << 1;
    QTest::newRow("left, centred") << text << Qt::LeftToRight << (Qt::AlignLeft | Qt::AlignVCenter) << -1 << 0;
    QTest::newRow("left, mirrored") << text << Qt::RightToLeft << Alignment(Qt::AlignLeft) << 1 << -1;
    QTest::newRow("right, mirrored") << text << Qt::RightToLeft << Alignment(Qt::AlignRight) << -1 << -1;
    QTest::newRow("absolute left, mirrored") << text << Qt::RightToLeft << absoluteLeft << -1 << -1;
    QTest::newRow("right to left text") << hebrew.left(4) << Qt::LeftToRight << Alignment(Qt::AlignLeft) << -1 << -1;
    QTest::newRow("right to left text, mirrored") << hebrew.left(4) << Qt::RightToLeft << Alignment(Qt::AlignLeft) << 1 << -1;
    // clang-format on
}

void tst_QxtLabel::alignsItsText()
{
    QFETCH(QString, text);
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(Qt::Alignment, alignment);
    QFETCH(int, horizontal);
    QFETCH(int, vertical);
    m_label->setLayoutDirection(direction);
    m_label->setAlignment(alignment);
    m_label->setText(text);
    m_label->setFrameStyle(QFrame::Box);
    m_label->setLineWidth(7);
    m_label->resize(301, 201);
    const QRectF contents = m_label->contentsRect();
    QCOMPARE(contents, QRectF(7, 7, 287, 187));
    const QRectF area = PaintedText(*m_label).area();
    const double x[] = {area.left() - contents.left(), area.center().x() - contents.center().x(),
                        area.right() - contents.right()};
    const double y[] = {area.top() - contents.top(), area.center().y() - contents.center().y(),
                        area.bottom() - contents.bottom()};
    QVERIFY2(qAbs(x[horizontal + 1]) <= 1, qPrintable(QString::number(x[horizontal + 1])));
    QVERIFY2(qAbs(y[vertical + 1]) <= 1.5, qPrintable(QString::number(y[vertical + 1])));
}

/// An elided text may begin with characters of the other direction. The ellipsis must still be where the full text
/// begins, and not where those characters begin.
void tst_QxtLabel::keepsTheDirectionOfTheFullText()
{
    m_label->setElideMode(Qt::ElideLeft);
    m_label->setText(hebrew + QStringLiteral(" /runs/flow.csv"));
    m_label->resize(advance(*m_label, QStringLiteral("flow.csv....")), 40);
    const PaintedText fromTheRight(*m_label);
    QVERIFY(fromTheRight.text().contains(QStringLiteral(".csv")));
    QCOMPARE(fromTheRight.pieces().last().text.trimmed(), QString(ellipsis));

    m_label->setText(QStringLiteral("/runs/flow.csv ") + hebrew);
    const PaintedText fromTheLeft(*m_label);
    QVERIFY(fromTheLeft.text().contains(hebrew.right(1)));
    QCOMPARE(fromTheLeft.pieces().first().text.trimmed(), QString(ellipsis));
}

void tst_QxtLabel::drawsItsFrame()
{
    m_label->resize(50, 30);
    const QImage without = m_label->grab().toImage();
    m_label->setFrameStyle(QFrame::Box);
    QVERIFY(m_label->grab().toImage() != without);
}

/// Compares device pixels, so that the test also holds on scaled screens.
void tst_QxtLabel::paintsWithinItsContentsRect()
{
    m_label->setContentsMargins(11, 5, 13, 7);
    m_label->setText(QStringLiteral("Wide /runs/fjord/Wj"));
    m_label->setElideMode(Qt::ElideMiddle);
    m_label->setAutoFillBackground(true);
    m_label->setPalette(
        QPalette(Qt::black, Qt::white, Qt::white, Qt::gray, Qt::gray, Qt::black, Qt::white, Qt::white, Qt::white));
    for (int width = 60; width <= m_label->sizeHint().width(); ++width) {
        m_label->resize(width, m_label->sizeHint().height());
        const QImage image = m_label->grab().toImage();
        const double scale = image.devicePixelRatio();
        const QRectF inside(QPointF(m_label->contentsRect().topLeft()) * scale,
                            QSizeF(m_label->contentsRect().size()) * scale);
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const bool isInked = image.pixelColor(x, y).lightness() < 250;
                QVERIFY(!isInked || inside.adjusted(-scale, -scale, scale, scale).contains(QPointF(x, y)));
                inked += int(isInked);
            }
        }
        QVERIFY(inked > 20);
    }
}

void tst_QxtLabel::sizeHintsIncludeFrameAndMargins()
{
    m_label->setText(alphabet);
    const QSize bare = m_label->sizeHint();
    const QSize least = m_label->minimumSizeHint();
    QCOMPARE(bare, QSize(advance(*m_label, alphabet), m_label->fontMetrics().height()));
    QVERIFY(least.width() >= advance(*m_label, ellipsis));
    QVERIFY(least.width() <= 2 * advance(*m_label, ellipsis));
    QCOMPARE(least.height(), bare.height());
    m_label->setContentsMargins(1, 20, 300, 4000);
    QCOMPARE(m_label->sizeHint(), bare + QSize(301, 4020));
    QCOMPARE(m_label->minimumSizeHint(), least + QSize(301, 4020));
    m_label->setFrameStyle(QFrame::Box);
    m_label->setLineWidth(3);
    QCOMPARE(m_label->sizeHint(), bare + QSize(6, 6));
    m_label->resize(m_label->sizeHint());
    QCOMPARE(paintedBy(*m_label), alphabet);
    m_label->setText(QStringLiteral("i"));
    QCOMPARE(m_label->minimumSizeHint(), m_label->sizeHint());
}

void tst_QxtLabel::shrinksInALayoutPixelByPixel()
{
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = m_label.release();
    layout->addWidget(label);
    label->setText(alphabet);
    layout->activate();
    QCOMPARE(window.minimumWidth(), label->minimumSizeHint().width());
    for (int width = label->sizeHint().width() + 5; width >= label->minimumSizeHint().width(); --width) {
        window.resize(width, 40);
        layout->setGeometry(window.rect());
        QCOMPARE(label->width(), width);
    }
}

void tst_QxtLabel::newTextUpdatesTheLayout()
{
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    auto* label = m_label.release();
    layout->addWidget(label);
    const int before = layout->sizeHint().width();
    label->setText(alphabet);
    QCOMPARE(layout->sizeHint().width(), before + label->sizeHint().width());
}

void tst_QxtLabel::followsItsFont()
{
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    auto* label = m_label.release();
    layout->addWidget(label);
    label->setText(alphabet);
    // At a fractional scale factor, Qt 6 may make a window one pixel narrower than it was asked to.
    const auto resizeToFit = [&window] { window.resize(window.sizeHint() + QSize(1, 0)); };
    resizeToFit();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const QSize before = label->sizeHint();
    QCOMPARE(paintedBy(*label), alphabet);

    QFont font = label->font();
    font.setPixelSize(2 * QFontInfo(font).pixelSize());
    label->setFont(font);
    QVERIFY(label->sizeHint().width() > before.width() * 3 / 2);
    QVERIFY(label->sizeHint().height() > before.height() * 3 / 2);
    QVERIFY(paintedBy(*label).contains(ellipsis));
    QTRY_VERIFY(layout->minimumSize().height() >= label->sizeHint().height());
    resizeToFit();
    QTRY_COMPARE(paintedBy(*label), alphabet);
}

namespace {

class CountingLabel : public QxtLabel
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        QxtLabel::paintEvent(event);
    }
};

} // namespace

void tst_QxtLabel::repaintsWhenChanged()
{
    CountingLabel label;
    label.resize(300, 40);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    QTRY_VERIFY(label.paints > 0);
    const auto isPaintedAfter = [&label](const std::function<void()>& change) {
        QCoreApplication::processEvents();
        const int before = label.paints;
        change();
        return QTest::qWaitFor([&] { return label.paints > before; });
    };
    QVERIFY(isPaintedAfter([&] { label.setText(alphabet); }));
    QVERIFY(isPaintedAfter([&] { label.setAlignment(Qt::AlignRight); }));
    QVERIFY(isPaintedAfter([&] { label.setElideMode(Qt::ElideLeft); }));
}

void tst_QxtLabel::isAStaticTextForAssistiveTechnology()
{
    const QString text = alphabet + QStringLiteral("\n<b>&");
    m_label->setText(text);
    m_label->resize(40, 20);
    QVERIFY(paintedBy(*m_label).contains(ellipsis));
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(m_label.get());
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::StaticText);
    QCOMPARE(accessible->text(QAccessible::Name), text);
    QVERIFY(accessible->state().readOnly);
    QCOMPARE(accessible->childCount(), 0);
    m_label->setText(QStringLiteral("other"));
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("other"));
    QCOMPARE(accessible->text(QAccessible::Description), QString());
    m_label->setAccessibleName(QStringLiteral("the application's"));
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("the application's"));
    QCOMPARE(accessible->text(QAccessible::Value), QStringLiteral("other"));
    QCOMPARE(accessible->text(QAccessible::Description), QStringLiteral("other"));
}

UI_TEST_MAIN(tst_QxtLabel)
#include "tst_QxtLabel.moc"
