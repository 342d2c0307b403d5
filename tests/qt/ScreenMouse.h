// Mouse events that enter by the window, as a screen delivers them: Qt itself finds the widget, moves the
// keyboard, and holds back what a modal box blocks.
#pragma once

#include <QTest>
#include <QWidget>
#include <QWindow>

namespace kxVsGrid::qt::testing::screen {

inline QPoint inWindow(const QWidget& target, const QPoint& at) {
    return target.mapTo(target.window(), at);
}

inline void press(const QWidget& target, const QPoint& at) {
    QTest::mousePress(target.window()->windowHandle(), Qt::LeftButton, {}, inWindow(target, at));
}

inline void release(const QWidget& target, const QPoint& at) {
    QTest::mouseRelease(target.window()->windowHandle(), Qt::LeftButton, {}, inWindow(target, at));
}

inline void move(const QWidget& target, const QPoint& at) {
    QTest::mouseMove(target.window()->windowHandle(), inWindow(target, at));
}

inline void click(const QWidget& target, const QPoint& at) {
    press(target, at);
    release(target, at);
}

inline void click(const QWidget& target) {
    click(target, target.rect().center());
}

inline void doubleClick(const QWidget& target, const QPoint& at) {
    QTest::mouseDClick(target.window()->windowHandle(), Qt::LeftButton, {}, inWindow(target, at));
}
}  // namespace kxVsGrid::qt::testing::screen
