// The list of constants, opened from a real editor of several lines and worked with real keys and mouse.
#include "qt/HelpWindow.h"
#include "qt/Stage.h"

namespace kxVsGrid::qt::testing {
namespace {

constexpr std::int32_t NameColumn = 1;
constexpr std::int32_t ValueColumn = 2;
}  // namespace

TEST(HelpConstants, IsWorkedByKeysAlone) {
    HelpWindow w;
    Dialogs dialogs([](Dialog& d) {
        EXPECT_EQ(d.window.windowTitle(), "常量");
        EXPECT_TRUE(d.focused("CodeText"));
        EXPECT_EQ(list(d).Text(2, NameColumn), "转账");
        d.press(Qt::Key_Down);
        d.press(Qt::Key_Down);
        d.press(Qt::Key_Return);
    });
    w.write(3, Remark, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
    w.expectEditing("2");
    w.focusCell(4, Code);
    EXPECT_EQ(w.text(3, Remark), "2");
    EXPECT_EQ(w.tag(3, Remark), "转账");
}

TEST(HelpConstants, IsWorkedByMouseAlone) {
    for (const bool byDoubleClick : {false, true}) {
        HelpWindow w;
        Dialogs dialogs([&](Dialog& d) {
            const QPoint at = d.cell(list(d), 4, NameColumn);
            if (byDoubleClick) return Dialog::twice(d.inner("CzxsGrid"), at);
            screen::click(d.inner("CzxsGrid"), at);
            d.click("QdCommand");
        });
        w.doubleClick(3, Remark);
        w.pressHelpButton();
        EXPECT_EQ(dialogs.count, 1);
        EXPECT_EQ(w.editorText(), "赊销");
    }
}

TEST(HelpConstants, ChoosesNothingOnItsHeader) {
    HelpWindow w;
    Dialogs dialogs([](Dialog& d) {
        Dialog::twice(d.inner("CzxsGrid"), d.cell(list(d), 0, NameColumn));
        EXPECT_TRUE(d.window.isVisible());
        d.press(Qt::Key_Return);
    });
    w.write(3, Remark, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
    EXPECT_EQ(w.editorText(), "x");
}

TEST(HelpConstants, LeavesTheEditorAsItWasWhenItIsCancelled) {
    const std::function<void(Dialog&)> cancels[] = {[](Dialog& d) { d.press(Qt::Key_Escape); },
                                                    [](Dialog& d) { d.click("QxCommand"); },
                                                    [](Dialog& d) { d.closeByFrame(); }};
    for (const auto& cancel : cancels) {
        HelpWindow w;
        Dialogs dialogs([&](Dialog& d) {
            d.press(Qt::Key_Down);
            cancel(d);
        });
        w.write(3, Remark, "x");
        w.pressHelpButton();
        EXPECT_EQ(dialogs.count, 1);
        w.expectEditing("x");
        EXPECT_EQ(w.committed, 0);
    }
}

TEST(HelpConstants, ShowsItsTextsUncut) {
    HelpWindow w;
    w.grid().VsCtrl(Remark)->sHelp_Code("一个相当长的常量名称;与它的值也不短|短;1");
    Dialogs dialogs([&](Dialog& d) {
        const TextMetrics& metrics = dynamic_cast<GridView&>(w.view()).stage().metrics();
        for (const std::int32_t col : {NameColumn, ValueColumn})
            EXPECT_GE(list(d).ColWidth(col), metrics.textWidth(list(d).Text(1, col)) + metrics.padding());
        d.press(Qt::Key_Escape);
    });
    w.write(3, Remark, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
}

TEST(HelpConstants, TakesTheColumnsHelpSizeAndKeepsItsProportions) {
    HelpWindow w;
    w.grid().VsCtrl(Remark)->HelpWidth(5250);
    Dialogs dialogs([](Dialog& d) {
        EXPECT_EQ(d.window.width(), 350);
        EXPECT_EQ(d.window.height(), 260);
        d.window.resize(280, 260);
        const QRect grid = d.part("CzxsGrid").geometry();
        const QRect cancel = d.part("QxCommand").geometry();
        d.window.resize(560, 520);
        EXPECT_EQ(d.part("CzxsGrid").geometry(), QRect(grid.topLeft() * 2, grid.size() * 2));
        EXPECT_EQ(d.part("QxCommand").geometry(),
                  QRect(cancel.topLeft() * 2, QSize(cancel.width() * 2, cancel.height())));
        d.press(Qt::Key_Escape);
    });
    w.write(3, Remark, "x");
    w.press(Qt::Key_F2);
    EXPECT_EQ(dialogs.count, 1);
}
}  // namespace kxVsGrid::qt::testing
