// Real wheel events with pixels in them, as touchpads send them.
#include <QPointingDevice>
#include <QWheelEvent>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

void moveFingers(QWidget& widget, const QPoint& pixels, const QPoint& angle, Qt::ScrollPhase phase,
                 const QPointingDevice* device = QPointingDevice::primaryPointingDevice()) {
    const QPointF at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), pixels, angle, Qt::NoButton, Qt::NoModifier, phase, false,
                      Qt::MouseEventNotSynthesized, device);
    QApplication::sendEvent(&widget, &event);
}
}  // namespace

TEST(Touchpad, ScrollsByPixels) {
    Window w;
    const CellGrid& cells = w.grid().Grid();
    const QRect before = w.cell(3, Code);
    moveFingers(w.view(), {}, {}, Qt::ScrollBegin);
    moveFingers(w.view(), {0, -7}, {0, -56}, Qt::ScrollUpdate);
    EXPECT_EQ(cells.TopRow(), 1);
    EXPECT_GT(cells.TopOffset(), 0);
    EXPECT_EQ(w.cell(3, Code).top(), before.top() - 7);
    moveFingers(w.view(), {0, 4}, {0, 32}, Qt::ScrollMomentum);
    EXPECT_EQ(w.cell(3, Code).top(), before.top() - 3);
    moveFingers(w.view(), {}, {}, Qt::ScrollEnd);
    EXPECT_EQ(w.cell(3, Code).top(), before.top() - 3);
}

TEST(Touchpad, IsKnownByItsKindWhereNobodyTellsOfPhases) {
    Window w;
    const QPointingDevice pad("pad", 4711, QInputDevice::DeviceType::TouchPad,
                              QPointingDevice::PointerType::Finger, QInputDevice::Capability::Scroll, 2, 2);
    moveFingers(w.view(), {0, -7}, {0, -120}, Qt::NoScrollPhase, &pad);
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
    EXPECT_GT(w.grid().Grid().TopOffset(), 0);
}

TEST(Touchpad, IsNoMouseThatTellsPixelsBesideItsNotches) {
    Window w;
    moveFingers(w.view(), {0, -15}, {0, -120}, Qt::NoScrollPhase);
    EXPECT_EQ(w.grid().Grid().TopRow(), 4);
    EXPECT_EQ(w.grid().Grid().TopOffset(), 0);
}

TEST(Touchpad, LeavesNothingForTheNextNotch) {
    Window w;
    moveFingers(w.view(), {0, -1}, {0, -110}, Qt::ScrollUpdate);
    moveFingers(w.view(), {}, {0, -15}, Qt::NoScrollPhase);
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
    moveFingers(w.view(), {}, {0, -105}, Qt::NoScrollPhase);
    EXPECT_EQ(w.grid().Grid().TopRow(), 4);
    EXPECT_EQ(w.grid().Grid().TopOffset(), 0);
}

TEST(Touchpad, ScrollsSidewaysAndTheBarsFollow) {
    Window w;
    CellGrid& cells = w.grid().Grid();
    w.grid().ColWidth(Code, 9000);
    w.grid().Rows(100);
    w.settle();
    moveFingers(w.view(), {-30, -4000}, {}, Qt::ScrollUpdate);
    w.settle();
    EXPECT_GT(cells.LeftOffset() + cells.LeftCol(), 1);
    EXPECT_EQ(w.bar(Qt::Vertical).value(), cells.TopRow());
    moveFingers(w.view(), {0, -400'000}, {}, Qt::ScrollUpdate);
    w.settle();
    EXPECT_EQ(w.bar(Qt::Vertical).value(), w.bar(Qt::Vertical).maximum());
    EXPECT_EQ(cells.CellRect(99, 0).bottom(), cells.ClientHeight() - cells.BottomStrip());
    moveFingers(w.view(), {0, 400'000}, {}, Qt::ScrollUpdate);
    w.settle();
    EXPECT_EQ(w.bar(Qt::Vertical).value(), 1);
    EXPECT_EQ(w.bar(Qt::Vertical).maximum(), cells.MaxTopRow());
}

TEST(Touchpad, DoesNotScrollAwayFromTheOpenEditor) {
    Window w;
    w.focusCell(2, Code);
    w.type("x");
    moveFingers(w.view(), {-5, -7}, {}, Qt::ScrollUpdate);
    EXPECT_EQ(w.grid().Grid().TopOffset(), 0);
    EXPECT_EQ(w.editor().geometry(), w.cell(2, Code));
}
}  // namespace kxVsGrid::qt::testing
