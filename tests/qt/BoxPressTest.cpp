// Presses on drawn check boxes, and F2 and Enter on closed cells, by real events.
#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

/// The columns of pixels across the middle of a cell in which its check box is drawn.
std::pair<int, int> drawnBox(Window& w, std::int32_t row) {
    const QImage image = w.picture("check-box");
    const QRect cell = w.cell(row, Paid).translated(w.widget->pos());
    const double ratio = image.devicePixelRatio();
    const int y = qRound(cell.center().y() * ratio);
    const auto at = [&](int x) { return image.pixel(qRound((x + 0.5) * ratio - 0.5), y); };
    const QRgb ground = at(cell.left() + 4);
    int first = cell.left() + 4;
    while (first < cell.right() && at(first) == ground) ++first;
    int last = cell.right() - 4;
    while (last > first && at(last) == ground) --last;
    return {first - cell.left(), last - cell.left()};
}

void doubleClickAt(Window& w, const QPoint& at) {
    QTest::mouseClick(&w.view(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(&w.view(), Qt::LeftButton, Qt::NoModifier, at);
}
}  // namespace

TEST(BoxPress, TurnsTheCellOverExactlyWhereTheBoxIsDrawn) {
    for (const std::int32_t twips : {600, 615, 700, 1200}) {
        SCOPED_TRACE(twips);
        Window w;
        w.grid().Options().PressToggles(true);
        w.grid().ColWidth(Paid, twips);
        const auto [first, last] = drawnBox(w, 3);
        ASSERT_GE(last - first, 10);
        const QRect cell = w.cell(3, Paid);
        const auto turns = [&](int x) {
            w.grid().Grid().Text(3, Paid, "");
            QTest::mouseClick(&w.view(), Qt::LeftButton, Qt::NoModifier,
                              {cell.left() + x, cell.center().y()});
            return w.text(3, Paid) == "-1";
        };
        EXPECT_FALSE(turns(first - 2));
        EXPECT_TRUE(turns(first + 1));
        EXPECT_TRUE(turns((first + last) / 2));
        EXPECT_TRUE(turns(last - 1));
        EXPECT_FALSE(turns(last + 2));
        EXPECT_EQ(w.current(), "3," + std::to_string(Paid));
    }
}

TEST(BoxPress, OfADoubleClickTurnsTheCellOverOnceWhereverItIs) {
    Window w;
    w.grid().Options().PressToggles(true);
    doubleClickAt(w, w.at(2, Paid));
    EXPECT_EQ(w.text(2, Paid), "-1");
    doubleClickAt(w, w.at(2, Paid));
    EXPECT_EQ(w.text(2, Paid), "0");
    doubleClickAt(w, w.cell(3, Paid).topLeft() + QPoint(3, 3));
    EXPECT_EQ(w.text(3, Paid), "-1");
}

TEST(BoxPress, HoldsWhatARefusedTextHoldsBack) {
    Window w;
    w.grid().Options().PressToggles(true);
    w.focusCell(1, Quantity);
    w.type("1+");
    w.click(2, Paid);
    EXPECT_EQ(w.text(2, Paid), "");
    EXPECT_EQ(w.current(), "1,3");
    w.press(Qt::Key_Backspace);
    w.click(2, Paid);
    EXPECT_EQ(w.text(1, Quantity), "1");
    EXPECT_EQ(w.text(2, Paid), "-1");
}

TEST(ClosedCell, ClaimsF2FromTheWindowWhereItMayBeEdited) {
    Window w;
    const auto pressF2 = [&] {
        // what the window's own shortcuts would see, and then the key
        QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_F2, Qt::NoModifier);
        asked.ignore();
        QApplication::sendEvent(&focused(), &asked);
        if (!asked.isAccepted()) return false;
        QTest::sendKeyEvent(QTest::Click, &focused(), Qt::Key_F2, QString(), Qt::NoModifier);
        return true;
    };
    w.focusCell(1, Code);
    EXPECT_TRUE(pressF2());
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.grid().editorView().selLength, 4U);
    EXPECT_TRUE(w.editor().hasFocus());
    w.press(Qt::Key_Escape);
    w.focusCell(1, Name);
    EXPECT_FALSE(pressF2()) << "the cell may not be edited: the window has its use for the key";
    EXPECT_FALSE(w.editorShown());
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(ClosedCell, IsPassedByEnterWhereTheHostWantsThat) {
    Window w;
    w.focusCell(1, Name);
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.current(), "1," + std::to_string(Name));
    w.grid().Options().EnterPassesReadOnly(true);
    w.press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(w.current(), "1," + std::to_string(Quantity));
}
}  // namespace kxVsGrid::qt::testing
