// Selecting cells with a real mouse and keyboard, and what a selection looks like.
#include "kit/PrintTo.h"
#include "qt/CheckedWindow.h"
#include "qt/Palettes.h"
#include "qt/Window.h"
#include "qt/view/SystemColors.h"

namespace kxVsGrid::qt::testing {
namespace {

CellRange selected(Window& w) {
    return w.grid().Grid().Selected();
}

void drag(Window& w, const QPoint& from, const QPoint& to) {
    QTest::mousePress(&w.view(), Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(&w.view(), to);
}

void release(Window& w, const QPoint& at) {
    QTest::mouseRelease(&w.view(), Qt::LeftButton, Qt::NoModifier, at);
}

/// A pixel of a cell where nothing is written: near its left lower corner.
QRgb groundOf(Window& w, const QImage& image, std::int32_t row, std::int32_t col) {
    const QPoint logical = w.cell(row, col).bottomLeft() + QPoint(4, -4) + w.widget->pos();
    return image.pixel((QPointF(logical) * image.devicePixelRatio()).toPoint());
}
}  // namespace

TEST(Selecting, ByDraggingKeepsTheCellThatWasPressed) {
    Window w;
    drag(w, w.at(1, Code), w.at(3, Quantity));
    EXPECT_EQ(selected(w), (CellRange{1, Code, 3, Quantity}));
    release(w, w.at(3, Quantity));
    QTest::mouseMove(&w.view(), w.at(2, Code));
    EXPECT_EQ(selected(w), (CellRange{1, Code, 3, Quantity}));
    EXPECT_EQ(w.current(), "1,1");
    QTest::mouseClick(&w.view(), Qt::LeftButton, Qt::ShiftModifier, w.at(2, Name));
    EXPECT_EQ(selected(w), (CellRange{1, Code, 2, Name}));
}

TEST(Selecting, ByKey) {
    Window w;
    w.focusCell(1, Code);
    w.press(Qt::Key_Down, Qt::ShiftModifier);
    w.press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(selected(w), (CellRange{1, Code, 2, Name}));
    w.press(Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(selected(w), (CellRange{1, Code, w.grid().Rows() - 1, w.grid().Cols() - 1}));
    w.press(Qt::Key_Down);
    EXPECT_EQ(w.current(), "2,1");
    EXPECT_TRUE(w.grid().Grid().SelectsOneCell());
}

TEST(Selecting, ByHeaders) {
    Window w;
    w.focusCell(2, Name);
    w.click(0, Quantity);
    EXPECT_EQ(selected(w), (CellRange{1, Quantity, w.grid().Rows() - 1, Quantity}));
    w.click(3, Number);
    EXPECT_EQ(selected(w), (CellRange{3, Code, 3, w.grid().Cols() - 1}));
    EXPECT_EQ(w.current(), "2,2");
}

TEST(Selecting, ScrollsOnWhileTheMouseRestsBelow) {
    Window w;
    w.grid().Rows(60);
    const QPoint below(w.at(1, Name).x(), w.view().height() + 20);
    drag(w, w.at(1, Name), below);
    const std::int32_t last = w.grid().Rows() - 1;
    EXPECT_TRUE(waitUntil([&] { return selected(w).lastRow == last; }));
    EXPECT_EQ(selected(w), (CellRange{1, Name, last, Name}));
    QTest::mouseMove(&w.view(), QPoint(below.x(), -20));
    EXPECT_TRUE(waitUntil([&] { return w.grid().Grid().TopRow() == 1; }));
    EXPECT_TRUE(w.grid().Grid().SelectsOneCell());
    release(w, QPoint(below.x(), -20));
}

TEST(Selecting, StopsScrollingWhenTheButtonIsReleased) {
    Window w;
    w.grid().Rows(60);
    const QPoint below(w.at(1, Name).x(), w.view().height() + 20);
    drag(w, w.at(1, Name), below);
    EXPECT_TRUE(waitUntil([&] { return w.grid().Grid().TopRow() > 2; }));
    release(w, below);
    const CellRange range = selected(w);
    int moves = 0;
    w.grid().MouseMove.connect([&](auto, auto, auto, auto) { ++moves; });
    int ticks = 0;
    QTimer later;
    QObject::connect(&later, &QTimer::timeout, [&] { ++ticks; });
    later.start(60);
    EXPECT_TRUE(waitUntil([&] { return ticks == 3; }));
    EXPECT_EQ(selected(w), range);
    EXPECT_EQ(moves, 0);
}

TEST(Selecting, GoesWithAWidgetThatIsDestroyedWhileItScrolls) {
    auto w = std::make_unique<Window>();
    w->grid().Rows(60);
    int changes = 0;
    bool gone = false;
    w->grid().SelChange.connect([&] {
        if (++changes < 4) return;
        delete std::exchange(w->widget, nullptr);
        gone = true;
    });
    drag(*w, w->at(1, Name), QPoint(w->at(1, Name).x(), w->view().height() + 20));
    EXPECT_TRUE(waitUntil([&] { return gone; }));
}

TEST(Selecting, ShowsASelectionInBothPalettes) {
    for (const bool dark : {false, true}) {
        const QPalette before = QApplication::palette();
        if (dark) QApplication::setPalette(darkPalette());
        {
            Window w;
            w.focusCell(2, Name);
            w.grid().Grid().SelectRange(2, Name, 4, Paid);
            const QImage image = w.picture(dark ? "selecting-dark" : "selecting");
            const QRgb plain = groundOf(w, image, 5, Quantity);
            const QRgb tinted = groundOf(w, image, 4, Quantity);
            EXPECT_NE(plain, tinted);
            EXPECT_EQ(tinted, groundOf(w, image, 3, Quantity));
            EXPECT_EQ(tinted, groundOf(w, image, 2, Paid));
            EXPECT_EQ(plain, groundOf(w, image, 5, Paid));
            EXPECT_GT(contrast(w.widget->palette().color(QPalette::Text).rgb(), tinted), 4.5);
            EXPECT_NE(groundOf(w, image, 0, Quantity), groundOf(w, image, 0, Date));
            EXPECT_NE(groundOf(w, image, 4, Number), groundOf(w, image, 5, Number));
        }
        QApplication::setPalette(before);
    }
}

}  // namespace kxVsGrid::qt::testing
