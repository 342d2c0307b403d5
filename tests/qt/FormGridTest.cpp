// A grid in a form's window: keys, mouse, wheel and painting.
#include <QScrollBar>
#include <QToolTip>

#include "qt/AnyForm.h"
#include "qt/Dialogs.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {
namespace {

QScrollBar& bar(const Dialog& d, Qt::Orientation orientation) {
    for (auto* found : d.part("List").findChildren<QScrollBar*>())
        if (found->orientation() == orientation) return *found;
    throw std::logic_error("no such bar");
}
}  // namespace

TEST(FormGrid, MovesByClickAndByKeys) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        QWidget& view = d.inner("List");
        screen::click(view, d.cell(form.grid, 4, 0));
        EXPECT_EQ(form.grid.Row(), 4);
        d.press(Qt::Key_Down);
        EXPECT_EQ(form.grid.Row(), 5);
        d.press(Qt::Key_PageDown);
        EXPECT_GT(form.grid.Row(), 7);
        EXPECT_TRUE(form.grid.RowIsVisible(form.grid.Row()));
        d.press(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(form.grid.Row(), 30);
        screen::click(view, d.cell(form.grid, 0, 0));
        EXPECT_EQ(form.grid.Row(), 30);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, TellsOfADoubleClickOnADataRowAlone) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        QWidget& view = d.inner("List");
        form.heard.clear();
        Dialog::twice(view, d.cell(form.grid, 0, 0));  // the header
        QScrollBar& vertical = bar(d, Qt::Vertical);
        ASSERT_TRUE(vertical.isVisible());
        Dialog::twice(vertical, {vertical.width() / 2, vertical.height() - 3});
        Dialog::twice(view, {view.width() - vertical.width() - 3, 60});  // beside the columns
        EXPECT_EQ(form.words(), "");
        form.grid.Rows(3);
        Window::settle();
        Dialog::twice(view, {20, view.height() - 5});  // below the rows
        EXPECT_EQ(form.words(), "");
        Dialog::twice(view, d.cell(form.grid, 2, 1));
        EXPECT_EQ(form.words(), "double List");
        EXPECT_EQ(form.grid.Row(), 2);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, TakesTheRowOfTheFirstPressThoughTheGridScrollsUnderTheMouse) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        QWidget& view = d.inner("List");
        std::int32_t last = form.grid.TopRow();
        while (form.grid.RowIsVisible(last + 1)) ++last;
        const Rect cut = form.grid.CellRect(last, 0);
        ASSERT_GT(cut.bottom(), form.grid.ClientHeight());
        form.heard.clear();
        Dialog::twice(view, {20, Scale(d.window).pixel(cut.top) + 1});
        EXPECT_GT(form.grid.TopRow(), 1);
        EXPECT_EQ(form.grid.Row(), last);
        EXPECT_EQ(form.words(), "double List");
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, LeavesADoubleClickOfTheOtherButtonsAlone) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        form.heard.clear();
        QWindow* window = d.window.windowHandle();
        const QPoint at = screen::inWindow(d.inner("List"), d.cell(form.grid, 4, 0));
        QTest::mouseClick(window, Qt::RightButton, {}, at);
        QTest::mouseDClick(window, Qt::RightButton, {}, at);
        EXPECT_EQ(form.words(), "");
        EXPECT_EQ(form.grid.Row(), 1);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, ScrollsThreeRowsByANotchOfTheWheel) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        QWidget& view = d.inner("List");
        Dialog::wheel(view, 1);
        EXPECT_EQ(form.grid.TopRow(), 4);
        Dialog::wheel(view, 2);
        EXPECT_EQ(form.grid.TopRow(), 10);
        Dialog::wheel(view, -1);
        EXPECT_EQ(form.grid.TopRow(), 7);
        EXPECT_EQ(form.grid.Row(), 1);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, ScrollsByItsBarsAndMovesThemAlong) {
    AnyForm form;
    form.grid.ColWidth(1, 6000);
    work(form, [&](Dialog& d) {
        bar(d, Qt::Vertical).setValue(9);
        EXPECT_EQ(form.grid.TopRow(), 9);
        bar(d, Qt::Horizontal).setValue(1);
        EXPECT_EQ(form.grid.LeftCol(), 1);
        form.grid.TopRow(3);
        Window::settle();
        EXPECT_EQ(bar(d, Qt::Vertical).value(), 3);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, LetsColumnsBeDragged) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        QWidget& view = d.inner("List");
        const QRect header = Scale(d.window).pixels(form.grid.CellRect(0, 0));
        const QPoint edge(header.right(), header.center().y());
        screen::move(view, edge);
        EXPECT_EQ(view.cursor().shape(), Qt::SplitHCursor);
        screen::press(view, edge);
        screen::move(view, edge + QPoint(30, 0));
        screen::release(view, edge + QPoint(30, 0));
        EXPECT_NEAR(form.grid.ColWidth(0), AnyForm::ColumnWidth + Scale(d.window).twips(30), 30);
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, PaintsWhatChanges) {
    AnyForm form;
    work(form, [&](Dialog& d) {
        QWidget& view = d.inner("List");
        const QColor highlight = view.palette().color(QPalette::Highlight);
        const auto highlighted = [&](std::int32_t row) {
            const QRect cell = Scale(d.window).pixels(form.grid.CellRect(row, 1));
            const QImage image = view.grab().toImage();
            return image.pixelColor(QPointF(QPointF(cell.center()) * image.devicePixelRatio()).toPoint()) ==
                   highlight;
        };
        EXPECT_TRUE(highlighted(1));
        form.grid.Select(5, 0);
        Window::settle();
        EXPECT_FALSE(highlighted(1));
        EXPECT_TRUE(highlighted(5));
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, ShowsATextThatDoesNotFitInFull) {
    AnyForm form;
    form.grid.Text(3, 0, "很长的文字放不下的一个单元格");
    work(form, [&](Dialog& d) {
        QWidget& view = d.inner("List");
        const auto tip = [&](std::int32_t row) {
            const QPoint at = d.cell(form.grid, row, 0);
            QHelpEvent event(QEvent::ToolTip, at, view.mapToGlobal(at));
            QApplication::sendEvent(&view, &event);
            return QToolTip::text();
        };
        EXPECT_EQ(tip(3), "很长的文字放不下的一个单元格");
        QToolTip::hideText();
        EXPECT_TRUE(waitUntil([] { return !QToolTip::isVisible(); }));
        tip(4);
        EXPECT_FALSE(QToolTip::isVisible());
        d.press(Qt::Key_Escape);
    });
}

TEST(FormGrid, KeepsItsCurrentRowInViewWhenItGetsSmaller) {
    AnyForm form;
    form.at = [](AnyForm& f, const std::string& word) {
        if (word != "load") return;
        f.grid.Select(30, 0);
        f.grid.TopRow(30);
    };
    form.startSize(5400, 2700);
    work(form, [&](Dialog& d) {
        EXPECT_TRUE(form.grid.RowIsVisible(30));
        EXPECT_LE(form.grid.CellRect(30, 0).bottom(), form.grid.ClientHeight());
        d.press(Qt::Key_Escape);
    });
}
}  // namespace kxVsGrid::qt::testing
