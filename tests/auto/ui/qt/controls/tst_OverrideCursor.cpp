#include "ui/qt/controls/OverrideCursor.h"
#include "ui/qt/controls/OverrideCursorRestorer.h"

#include "TestHome.h"

#include <QApplication>
#include <QCursor>
#include <QPixmap>
#include <QTest>
#include <QVector>

#include <stdexcept>
#include <type_traits>

using zelmar::ui::OverrideCursor;
using zelmar::ui::OverrideCursorRestorer;

namespace {

template <typename Guard>
constexpr bool isNeitherCopiedNorMoved()
{
    return !std::is_copy_constructible<Guard>::value && !std::is_move_constructible<Guard>::value
           && !std::is_copy_assignable<Guard>::value && !std::is_move_assignable<Guard>::value;
}

static_assert(isNeitherCopiedNorMoved<OverrideCursor>(), "each stack entry has one guard");
static_assert(isNeitherCopiedNorMoved<OverrideCursorRestorer>(), "each cursor is restored once");
static_assert(std::is_empty<OverrideCursor>::value, "the state is on the override cursor stack");
static_assert(sizeof(OverrideCursorRestorer) == sizeof(QCursor), "the cursor is the only member");
static_assert(!std::is_convertible<Qt::CursorShape, OverrideCursor>::value,
              "a shape does not convert to a guard implicitly");
static_assert(!std::has_virtual_destructor<OverrideCursor>::value, "the class is no base class");
static_assert(!std::has_virtual_destructor<OverrideCursorRestorer>::value, "the class is no base class");

/// Returns the shapes on the override cursor stack, top first. Pops all entries and pushes them again.
QVector<Qt::CursorShape> stack()
{
    QVector<QCursor> cursors;
    while (const QCursor* cursor = QGuiApplication::overrideCursor()) {
        cursors.append(*cursor);
        QGuiApplication::restoreOverrideCursor();
    }
    QVector<Qt::CursorShape> shapes;
    for (const QCursor& cursor : qAsConst(cursors))
        shapes.append(cursor.shape());
    for (auto cursor = cursors.crbegin(); cursor != cursors.crend(); ++cursor)
        QGuiApplication::setOverrideCursor(*cursor);
    return shapes;
}

using Shapes = QVector<Qt::CursorShape>;

} // namespace

/// Tests both guards together, because they are meant to be nested.
class tst_OverrideCursor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void showsTheCursorWithinItsBlock();
    void popsOneEntryOnly();
    void sameShapeTwiceMakesTwoEntries();
    void nestedGuardsUnwindWithAnException();
    void restorerRemovesTheTopEntry();
    void restorerRestoresAPixmapCursor();
    void guardWithinARestorerIsPoppedFirst();
    void restorerUnwindsWithAnException();
};

void tst_OverrideCursor::cleanup()
{
    QCOMPARE(stack(), Shapes());
}

void tst_OverrideCursor::showsTheCursorWithinItsBlock()
{
    {
        const OverrideCursor cursor(Qt::WaitCursor);
        QCOMPARE(stack(), Shapes({Qt::WaitCursor}));
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_OverrideCursor::popsOneEntryOnly()
{
    QGuiApplication::setOverrideCursor(Qt::CrossCursor);
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    {
        const OverrideCursor cursor(Qt::BusyCursor);
        QCOMPARE(stack(), Shapes({Qt::BusyCursor, Qt::ArrowCursor, Qt::CrossCursor}));
    }
    QCOMPARE(stack(), Shapes({Qt::ArrowCursor, Qt::CrossCursor}));
    QGuiApplication::restoreOverrideCursor();
    QGuiApplication::restoreOverrideCursor();
}

void tst_OverrideCursor::sameShapeTwiceMakesTwoEntries()
{
    const OverrideCursor outer(Qt::WaitCursor);
    {
        const OverrideCursor inner(Qt::WaitCursor);
        QCOMPARE(stack(), Shapes({Qt::WaitCursor, Qt::WaitCursor}));
    }
    QCOMPARE(stack(), Shapes({Qt::WaitCursor}));
}

void tst_OverrideCursor::nestedGuardsUnwindWithAnException()
{
    const OverrideCursor outer(Qt::BusyCursor);
    Shapes inside;
    const auto work = [&inside] {
        const OverrideCursor middle(Qt::WaitCursor);
        const OverrideCursor inner(Qt::ForbiddenCursor);
        inside = stack();
        throw std::runtime_error("the work fails");
    };
    QVERIFY_EXCEPTION_THROWN(work(), std::runtime_error);
    QCOMPARE(inside, Shapes({Qt::ForbiddenCursor, Qt::WaitCursor, Qt::BusyCursor}));
    QCOMPARE(stack(), Shapes({Qt::BusyCursor}));
}

void tst_OverrideCursor::restorerRemovesTheTopEntry()
{
    const OverrideCursor outer(Qt::BusyCursor);
    const OverrideCursor inner(Qt::WaitCursor);
    {
        const OverrideCursorRestorer restorer;
        QCOMPARE(stack(), Shapes({Qt::BusyCursor}));
        {
            const OverrideCursorRestorer nested;
            QCOMPARE(stack(), Shapes());
        }
        QCOMPARE(stack(), Shapes({Qt::BusyCursor}));
    }
    QCOMPARE(stack(), Shapes({Qt::WaitCursor, Qt::BusyCursor}));
}

/// Verifies that the cursor itself is restored and not only its shape.
void tst_OverrideCursor::restorerRestoresAPixmapCursor()
{
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    QGuiApplication::setOverrideCursor(QCursor(pixmap, 3, 5));
    const qint64 key = QGuiApplication::overrideCursor()->pixmap().cacheKey();
    {
        const OverrideCursorRestorer restorer;
        QVERIFY(!QGuiApplication::overrideCursor());
    }
    QCOMPARE(QGuiApplication::overrideCursor()->hotSpot(), QPoint(3, 5));
    QCOMPARE(QGuiApplication::overrideCursor()->pixmap().cacheKey(), key);
    QGuiApplication::restoreOverrideCursor();
}

void tst_OverrideCursor::guardWithinARestorerIsPoppedFirst()
{
    const OverrideCursor wait(Qt::WaitCursor);
    {
        const OverrideCursorRestorer restorer;
        const OverrideCursor cross(Qt::CrossCursor);
        QCOMPARE(stack(), Shapes({Qt::CrossCursor}));
    }
    QCOMPARE(stack(), Shapes({Qt::WaitCursor}));
}

void tst_OverrideCursor::restorerUnwindsWithAnException()
{
    const OverrideCursor wait(Qt::WaitCursor);
    Shapes inside = {Qt::LastCursor};
    const auto question = [&inside] {
        const OverrideCursorRestorer restorer;
        inside = stack();
        throw std::runtime_error("the question fails");
    };
    QVERIFY_EXCEPTION_THROWN(question(), std::runtime_error);
    QCOMPARE(inside, Shapes());
    QCOMPARE(stack(), Shapes({Qt::WaitCursor}));
}

UI_TEST_MAIN(tst_OverrideCursor)
#include "tst_OverrideCursor.moc"
