#include "ui/qt/controls/ElidedTextLabel.h"

#include "PaintedText.h"
#include "TestHome.h"

#include <QAccessible>
#include <QApplication>
#include <QFontMetrics>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QScopeGuard>
#include <QTest>

#include <memory>
#include <type_traits>

static_assert(std::has_virtual_destructor<ElidedTextLabel>::value, "widgets are deleted through their base classes");
static_assert(std::is_base_of<QxtLabel, ElidedTextLabel>::value, "it is a QxtLabel");
static_assert(sizeof(ElidedTextLabel) == sizeof(QxtLabel), "it has no fields");

namespace {

const QChar ellipsis(0x2026);
const QString path = QStringLiteral("/measurements/2024/run 17/flow.csv");

} // namespace

class tst_ElidedTextLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void startsElidedAtTheLeft();
    void hasAnEmptyMetaObject();
    void keepsTheEnd();
    void toolTipFollowsTheWidth();
    void toolTipFollowsTheText_data();
    void toolTipFollowsTheText();
    void toolTipFollowsTheFont();
    void toolTipCountsFrameAndMargins();
    void applicationsToolTipStays();
    void applicationMayClearItsToolTip();
    void keepsTheToolTipOfAReplacedText();
    void doesNotRepaintItself();
    void doesNotRepaintForAnUnchangedToolTip();
    void accessibleNameIsTheFullText();
    void accessibleNameIsTheFullTextInADisabledParent();
    void accessibleNameIsTheFullTextInAForm();

private:
    /// Makes the label `pixels` wider than its text needs and paints it.
    void paintWithSpareWidth(int pixels);

    std::unique_ptr<ElidedTextLabel> m_label;
};

void tst_ElidedTextLabel::init()
{
    m_label = std::make_unique<ElidedTextLabel>();
    m_label->setText(path);
}

void tst_ElidedTextLabel::paintWithSpareWidth(int pixels)
{
    const int margins = m_label->width() - m_label->contentsRect().width();
    m_label->resize(m_label->fontMetrics().horizontalAdvance(m_label->text()) + margins + pixels, 60);
    m_label->grab();
}

void tst_ElidedTextLabel::startsElidedAtTheLeft()
{
    QWidget parent;
    const ElidedTextLabel label(&parent, Qt::Tool);
    QCOMPARE(label.parentWidget(), &parent);
    QCOMPARE(label.windowFlags() & Qt::WindowType_Mask, Qt::Tool);
    QCOMPARE(label.alignment(), Qt::AlignLeft);
    QCOMPARE(label.elideMode(), Qt::ElideLeft);
    QCOMPARE(label.text(), QString());
    QCOMPARE(label.toolTip(), QString());
}

void tst_ElidedTextLabel::hasAnEmptyMetaObject()
{
    const QMetaObject& own = ElidedTextLabel::staticMetaObject;
    QCOMPARE(m_label->metaObject(), &own);
    QCOMPARE(own.className(), "ElidedTextLabel");
    QCOMPARE(own.superClass(), &QxtLabel::staticMetaObject);
    QCOMPARE(own.methodCount(), own.methodOffset());
    QCOMPARE(own.propertyCount(), own.propertyOffset());
}

void tst_ElidedTextLabel::keepsTheEnd()
{
    paintWithSpareWidth(-1);
    const QString painted = PaintedText(*m_label).text();
    QCOMPARE(painted.count(ellipsis), 1);
    QVERIFY(painted.startsWith(ellipsis));
    QVERIFY(painted.size() > 5);
    QCOMPARE(painted.mid(1), path.right(painted.size() - 1));
    QCOMPARE(m_label->text(), path);
}

void tst_ElidedTextLabel::toolTipFollowsTheWidth()
{
    paintWithSpareWidth(200);
    QCOMPARE(m_label->toolTip(), QString());
    for (const int width : {-1, -100, -200}) {
        paintWithSpareWidth(width);
        QCOMPARE(m_label->toolTip(), path);
    }
    paintWithSpareWidth(0);
    QCOMPARE(m_label->toolTip(), QString());

    // The ellipsis and the tool tip appear at the same width.
    for (int spare = 5; spare > -5; --spare) {
        paintWithSpareWidth(spare);
        QCOMPARE(m_label->toolTip().isEmpty(), !PaintedText(*m_label).text().contains(ellipsis));
    }
}

void tst_ElidedTextLabel::toolTipFollowsTheText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("mark-up") << "<b>runs</b> &amp; more";
    QTest::newRow("a mnemonic") << "&File && more";
    QTest::newRow("right-to-left text")
        << QStringLiteral("\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd").repeated(3);
    QTest::newRow("accents") << QStringLiteral("e\u0301").repeated(20);
    QTest::newRow("several lines") << "one line\nand another one\r\nand a third";
    QTest::newRow("blanks") << "   ";
}

void tst_ElidedTextLabel::toolTipFollowsTheText()
{
    QFETCH(QString, text);
    m_label->setText(text);
    paintWithSpareWidth(0);
    QCOMPARE(m_label->toolTip(), QString());
    paintWithSpareWidth(-1);
    QCOMPARE(m_label->toolTip(), text);
    m_label->setText(QString());
    m_label->setToolTip(QString());
    paintWithSpareWidth(0);
    QCOMPARE(m_label->toolTip(), QString());
}

void tst_ElidedTextLabel::toolTipFollowsTheFont()
{
    paintWithSpareWidth(10);
    QCOMPARE(m_label->toolTip(), QString());
    const QFont before = m_label->font();
    QFont larger = before;
    larger.setPixelSize(2 * QFontInfo(before).pixelSize());
    m_label->setFont(larger);
    m_label->grab();
    QCOMPARE(m_label->toolTip(), path);
    m_label->setFont(before);
    m_label->grab();
    QCOMPARE(m_label->toolTip(), QString());
}

void tst_ElidedTextLabel::toolTipCountsFrameAndMargins()
{
    m_label->setFrameStyle(QFrame::Box);
    m_label->setLineWidth(4);
    paintWithSpareWidth(0);
    QCOMPARE(m_label->toolTip(), QString());
    m_label->setContentsMargins(4, 4, 5, 4);
    m_label->grab();
    QCOMPARE(m_label->toolTip(), path);
}

void tst_ElidedTextLabel::applicationsToolTipStays()
{
    const QString own = QStringLiteral("Opened at noon");
    m_label->setToolTip(own);
    for (const int spare : {100, 0, -1, -200, 0, 100}) {
        paintWithSpareWidth(spare);
        QCOMPARE(m_label->toolTip(), own);
    }
}

void tst_ElidedTextLabel::applicationMayClearItsToolTip()
{
    m_label->setToolTip(QStringLiteral("Opened at noon"));
    paintWithSpareWidth(-1);
    m_label->setToolTip(QString());
    m_label->grab();
    QCOMPARE(m_label->toolTip(), path);
}

/// The label cannot distinguish the old text from a tool tip of the application, which therefore has to clear it.
void tst_ElidedTextLabel::keepsTheToolTipOfAReplacedText()
{
    paintWithSpareWidth(-1);
    const QString next = path + QStringLiteral(".old");
    m_label->setText(next);
    m_label->grab();
    QCOMPARE(m_label->toolTip(), path);
    m_label->setToolTip(QString());
    m_label->grab();
    QCOMPARE(m_label->toolTip(), next);
}

namespace {

/// A label that counts its paint events and, like an application that observes it, can repaint for each change of its
/// tool tip.
class WatchedLabel : public ElidedTextLabel
{
public:
    int paints = 0;
    bool repaintsForToolTips = false;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTipChange && repaintsForToolTips)
            update();
        return ElidedTextLabel::event(event);
    }

    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        ElidedTextLabel::paintEvent(event);
    }
};

/// Makes the label `pixels` narrower and returns the number of paint events until no events are pending.
int paintsOfNarrowing(WatchedLabel& label, int pixels)
{
    const auto settle = [] {
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    };
    settle();
    label.paints = 0;
    label.resize(label.width() - pixels, label.height());
    const bool isPainted = QTest::qWaitFor([&label] { return label.paints > 0; });
    settle();
    return isPainted ? label.paints : 0;
}

void show(WatchedLabel& label)
{
    label.setText(path);
    label.resize(label.sizeHint().width(), 60);
    label.show();
    QVERIFY(QTest::qWaitForWindowExposed(&label));
    QTRY_VERIFY(label.paints > 0);
}

} // namespace

void tst_ElidedTextLabel::doesNotRepaintItself()
{
    // The label is in a window, so that no window manager resizes it.
    QWidget window;
    window.resize(600, 100);
    auto* label = new WatchedLabel;
    label->setParent(&window);
    window.show();
    show(*label);
    QCOMPARE(paintsOfNarrowing(*label, 100), 1);
    QCOMPARE(label->toolTip(), path);
    QCOMPARE(paintsOfNarrowing(*label, -100), 1);
    QCOMPARE(label->toolTip(), QString());
}

void tst_ElidedTextLabel::doesNotRepaintForAnUnchangedToolTip()
{
    QWidget window;
    window.resize(600, 100);
    auto* label = new WatchedLabel;
    label->setParent(&window);
    label->repaintsForToolTips = true;
    window.show();
    show(*label);
    QCOMPARE(paintsOfNarrowing(*label, 100), 2);
    QCOMPARE(paintsOfNarrowing(*label, 1), 1);
}

void tst_ElidedTextLabel::accessibleNameIsTheFullText()
{
    paintWithSpareWidth(-100);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(m_label.get());
    QVERIFY(accessible);
    QCOMPARE(accessible->role(), QAccessible::StaticText);
    QCOMPARE(accessible->text(QAccessible::Name), path);
}

/// Qt asks for the interface of a widget while it is constructed in a disabled parent.
void tst_ElidedTextLabel::accessibleNameIsTheFullTextInADisabledParent()
{
    QAccessible::setActive(true);
    const auto inactive = qScopeGuard([] { QAccessible::setActive(false); });
    QWidget window;
    window.setEnabled(false);
    ElidedTextLabel label(&window);
    label.setText(path);
    QVERIFY(!label.isEnabled());
    QCOMPARE(label.parentWidget(), &window);
    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&label);
    QCOMPARE(accessible->role(), QAccessible::StaticText);
    QCOMPARE(accessible->text(QAccessible::Name), path);
}

void tst_ElidedTextLabel::accessibleNameIsTheFullTextInAForm()
{
    QWidget window;
    QFormLayout form(&window);
    auto* label = new ElidedTextLabel;
    label->setText(path);
    form.addRow(QStringLiteral("&File"), label);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(label);
    QVERIFY(accessible);
    QCOMPARE(accessible->text(QAccessible::Name), path);
    QCOMPARE(accessible->text(QAccessible::Value), path);
    const auto relations = accessible->relations(QAccessible::Label);
    QCOMPARE(relations.size(), 1);
    QCOMPARE(relations.first().first->object(), form.labelForField(label));

    label->setAccessibleName(QStringLiteral("Path of the file"));
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Path of the file"));
    QCOMPARE(accessible->text(QAccessible::Value), path);
    QCOMPARE(accessible->text(QAccessible::Description), path);
    label->setToolTip(QStringLiteral("The application's"));
    QCOMPARE(accessible->text(QAccessible::Description), QStringLiteral("The application's"));

    label->setAccessibleName(QString());
    label->setText(QString());
    QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("File")); // as for an empty QLabel
}

UI_TEST_MAIN(tst_ElidedTextLabel)
#include "tst_ElidedTextLabel.moc"
