#pragma once

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

/// What the tests of all spin boxes whose steps can be taken over have in common.

/// Turns the wheel over `widget` by `notches`, up from 1 on.
inline void turnWheel(QWidget& widget, int notches)
{
    const QPointF place = widget.rect().center();
    QWheelEvent event(place, widget.mapToGlobal(place.toPoint()), QPoint(), QPoint(0, notches * 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

/// Connects to both signals of `box`, which has the focus and room for steps, and steps in every way that a user has.
template <typename Box>
void checkTakenOverSteps(Box& box)
{
    int up = 0;
    int down = 0;
    const auto value = box.value();
    boost::signals2::scoped_connection onUp = box.signalIncrement.connect([&up] { ++up; });
    const auto expect = [&](int expectedUp, int expectedDown) {
        QCOMPARE(up, expectedUp);
        QCOMPARE(down, expectedDown);
        QCOMPARE(box.value(), value);
    };

    QTest::keyClick(&box, Qt::Key_Up);
    expect(1, 0);
    QTest::keyClick(&box, Qt::Key_PageUp);
    expect(2, 0);
    turnWheel(box, 1);
    expect(3, 0);
    box.stepUp();
    box.stepBy(1000);
    expect(5, 0);

    boost::signals2::scoped_connection onDown = box.signalDecrement.connect([&down] { ++down; });
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(&box, Qt::Key_PageDown);
    turnWheel(box, -1);
    box.stepDown();
    expect(5, 4);
    box.stepBy(0);
    expect(5, 5);
    box.stepBy(-1000);
    expect(5, 6);
}

/// Steps up from the maximum, the value that `box` has. Only a box that wraps has a step to take over.
template <typename Box>
void checkNoStepTakenOverAtABound(Box& box)
{
    int heard = 0;
    boost::signals2::scoped_connection onUp = box.signalIncrement.connect([&heard] { ++heard; });
    QTest::keyClick(&box, Qt::Key_Up);
    QCOMPARE(heard, 0);
    box.setWrapping(true);
    QTest::keyClick(&box, Qt::Key_Up);
    QCOMPARE(heard, 1);
}

/// One signal leaves the other direction alone, and a slot that is gone no longer takes steps.
template <typename Box>
void checkOneDirectionTakenOver(Box& box)
{
    int heard = 0;
    const auto value = box.value();
    boost::signals2::connection connection = box.signalIncrement.connect([&heard] { ++heard; });
    box.stepBy(-1);
    QCOMPARE(box.value(), value - 1);
    box.stepBy(1);
    QCOMPARE(box.value(), value - 1);
    connection.disconnect();
    box.stepBy(1);
    QCOMPARE(box.value(), value);

    connection = box.signalDecrement.connect([&heard] { ++heard; });
    box.stepBy(1);
    QCOMPARE(box.value(), value + 1);
    box.stepBy(0);
    box.stepBy(-1);
    QCOMPARE(box.value(), value + 1);
    connection.disconnect();
    box.stepBy(-1);
    QCOMPARE(box.value(), value);
    QCOMPARE(heard, 3);
}
