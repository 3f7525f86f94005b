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

static_assert(isNeitherCopiedNorMoved<OverrideCursor>(), "each entry of the stack has one guard");
static_assert(isNeitherCopiedNorMoved<OverrideCursorRestorer>(), "each cursor is put back once");
static_assert(std::is_empty<OverrideCursor>::value, "all its state is on the application's stack");
static_assert(sizeof(OverrideCursorRestorer) == sizeof(QCursor), "the cursor is all that is kept");
static_assert(!std::is_convertible<Qt::CursorShape, OverrideCursor>::value, "a shape is no guard");
static_assert(!std::has_virtual_destructor<OverrideCursor>::value, "nothing to derive from");
static_assert(!std::has_virtual_destructor<OverrideCursorRestorer>::value, "nothing to derive from");

/// From the top of the stack of override cursors downwards; takes the stack apart and puts it back.
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

/// Both guards, which are there to be nested.
class tst_OverrideCursor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void showsTheCursorInItsBlock();
    void popsOneEntryOnly();
    void theSameShapeTwiceIsTwoEntries();
    void nestedGuardsUnwindWithAnException();
    void restorerTakesTheTopAway();
    void restorerKeepsAPixmap();
    void guardInARestorerGoesFirst();
    void restorerUnwindsWithAnException();
};

void tst_OverrideCursor::cleanup()
{
    QCOMPARE(stack(), Shapes());
}

void tst_OverrideCursor::showsTheCursorInItsBlock()
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

void tst_OverrideCursor::theSameShapeTwiceIsTwoEntries()
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

void tst_OverrideCursor::restorerTakesTheTopAway()
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

/// It is the cursor that comes back, not only its shape.
void tst_OverrideCursor::restorerKeepsAPixmap()
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

void tst_OverrideCursor::guardInARestorerGoesFirst()
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
