// What the tests of refused texts under the mouse share: clicks during which a box comes up, and what must
// have stayed as it was.
#pragma once

#include <QWheelEvent>

#include "qt/Boxes.h"
#include "qt/CheckedWindow.h"
#include "qt/ScreenMouse.h"

namespace kxVsGrid::qt::testing {

/// When the clerk lets go of the mouse button that brought the box up: before the box, which takes the window
/// the release, or only after it.
enum class Release { WhileTheBoxIsOpen, Later };

inline constexpr Release releases[] = {Release::WhileTheBoxIsOpen, Release::Later};

/// A click during which a box comes up.
struct InterruptedClick {
    InterruptedClick(QWidget& target, const QPoint& at, Release when) : boxes(Boxes::enter) {
        boxes.close = [&](QMessageBox& box) {
            if (when == Release::WhileTheBoxIsOpen && boxes.count() == 1) screen::release(target, at);
            Boxes::enter(box);
        };
        screen::press(target, at);
        Window::settle();
        if (when == Release::Later || boxes.count() == 0) screen::release(target, at);
        Window::settle();
        EXPECT_EQ(QGuiApplication::mouseButtons(), Qt::NoButton);
    }

    Boxes boxes;
};

/// Presses, releases and moves that reach a widget.
class MouseLog : public QObject {
  public:
    explicit MouseLog(QWidget& widget) { widget.installEventFilter(this); }
    QStringList events;

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::MouseButtonPress) events << "press";
        if (event->type() == QEvent::MouseButtonDblClick) events << "double";
        if (event->type() == QEvent::MouseButtonRelease) events << "release";
        if (event->type() == QEvent::MouseMove && static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton)
            events << "drag";
        return false;
    }
};

/// Everything is where it was, in row 1.
inline void expectNothingMoved(CheckedWindow& w, const QString& text = "B9") {
    w.expectAllSelected(text);
    EXPECT_EQ(w.current(), "1,1");
    EXPECT_EQ(w.text(1, Code), "A001");
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
    EXPECT_EQ(w.grid().Grid().LeftCol(), 1);
    EXPECT_EQ(w.edited, 0);
}

inline void turnWheel(QWidget& target) {
    const QPointF at = target.rect().center();
    QWheelEvent event(at, target.mapToGlobal(at), QPoint(), {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&target, &event);
}
}  // namespace kxVsGrid::qt::testing
