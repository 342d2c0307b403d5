// The menu of a column header, opened by real presses and keys; double clicks on the edges of columns.
#include "qt/Menus.h"
#include "qt/Palettes.h"

namespace kxVsGrid::qt::testing {
namespace {

class HeaderWindow : public Window {
  public:
    HeaderWindow() {
        grid().Options().HeaderMenu(true);
        for (const Column col : {Code, Quantity, Date}) grid().Options(col).sortable(true);
        grid().SetCell(1, Code, "B");
        grid().SetCell(2, Code, "A");
        focusCell(1, Code);
    }
    /// Below the header of a column, on the screen.
    QPoint below(std::int32_t col) { return view().mapToGlobal(cell(0, col).bottomLeft() + QPoint(0, 1)); }
    void pressHeader(std::int32_t col) { rightClick(*this, 0, col); }
    void pressEdgeTwice(std::int32_t col) {
        const QRect header = cell(0, col);
        const QPoint edge(header.right(), header.center().y());
        QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier, edge);
        QTest::mouseDClick(&view(), Qt::LeftButton, Qt::NoModifier, edge);
    }
};
}  // namespace

TEST(HeaderMenu, PopsUpWhereTheHeaderIsPressed) {
    HeaderWindow w;
    QAction cells(QStringLiteral("格子的"));
    w.widget->appendToMenu(&cells);
    Menus menus([](QMenu&) {});
    w.pressHeader(Quantity);
    ASSERT_EQ(menus.seen.size(), 1U);
    EXPECT_EQ(menus.seen[0],
              (QStringList{"升序排列", "降序排列", "恢复原来的顺序", "-", "隐藏列", "显示隐藏的列",
                           "冻结到此列", "-", "最适合的列宽", "恢复默认布局"}));
    EXPECT_LE((menus.place - w.view().mapToGlobal(w.at(0, Quantity))).manhattanLength(), 2);
    EXPECT_EQ(w.current(), "1,1");
}

TEST(HeaderMenu, SortsByThePressedColumn) {
    HeaderWindow w;
    Menus menus([](QMenu& menu) { chooseByKeys(menu, "升序排列"); });
    w.pressHeader(Code);
    EXPECT_EQ(w.text(1, Code), "A");
    EXPECT_EQ(w.text(2, Code), "B");
}

TEST(HeaderMenu, HidesColumnsAndShowsOneOfThemByItsName) {
    HeaderWindow w;
    for (const Column col : {Quantity, Date}) {
        Menus hide([](QMenu& menu) { chooseByKeys(menu, "隐藏列"); });
        w.pressHeader(col);
    }
    ASSERT_TRUE(w.grid().ColHidden(Quantity) && w.grid().ColHidden(Date));
    QStringList names;
    Menus show([&](QMenu& menu) {
        QMenu* const hidden = item(menu, "显示隐藏的列").menu();
        ASSERT_NE(hidden, nullptr);
        for (const QAction* action : hidden->actions()) names << action->text();
        menu.setActiveAction(hidden->menuAction());
        QTest::keyClick(&menu, Qt::Key_Right);
        QTest::keyClick(hidden, Qt::Key_Down);
        QTest::keyClick(hidden, Qt::Key_Return);
    });
    w.pressHeader(Code);
    EXPECT_EQ(names.size(), 4);
    EXPECT_EQ(names.last(), "全部");
    EXPECT_FALSE(w.grid().ColHidden(Date));
    EXPECT_TRUE(w.grid().ColHidden(Quantity));
}

TEST(HeaderMenu, LeavesTheGridsOwnMenuToCells) {
    HeaderWindow w;
    Menus menus([](QMenu&) {});
    rightClick(w, 1, Code);
    w.grid().Options().HeaderMenu(false);
    w.pressHeader(Code);
    ASSERT_EQ(menus.seen.size(), 2U);
    EXPECT_EQ(menus.seen[0].first(), "新增行");
    EXPECT_EQ(menus.seen[1].first(), "新增行");
}

TEST(HeaderMenu, OpensByAltDownOnASelectedColumnOnly) {
    HeaderWindow w;
    Menus menus([](QMenu&) {});
    w.press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(menus.seen.empty());
    EXPECT_EQ(w.text(2, Code), "B") << "the row was moved";
    w.click(0, Quantity);
    w.press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_EQ(menus.seen.size(), 1U);
    EXPECT_LE((menus.place - w.below(Quantity)).manhattanLength(), 3);
    EXPECT_EQ(w.text(2, Code), "B");
}

TEST(HeaderMenu, OpensByAltShiftDownForTheCurrentColumn) {
    HeaderWindow w;
    Menus menus([](QMenu&) {});
    w.press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    ASSERT_EQ(menus.seen.size(), 1U);
    EXPECT_LE((menus.place - w.below(Code)).manhattanLength(), 3);
}

TEST(HeaderMenu, CommitsTheOpenEditorBeforeItOpensByKey) {
    HeaderWindow w;
    w.type("x");
    ASSERT_TRUE(w.editorShown());
    Menus menus([](QMenu&) {});
    w.press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(menus.seen.size(), 1U);
    EXPECT_EQ(w.text(1, Code), "x");
    EXPECT_FALSE(w.editorShown());
}

TEST(HeaderMenu, LeavesItsKeyToTheWindowWhereThereIsNone) {
    HeaderWindow w;
    w.grid().Options().HeaderMenu(false);
    int triggered = 0;
    QAction own;
    own.setShortcut(QKeySequence("Alt+Shift+Down"));
    QObject::connect(&own, &QAction::triggered, [&] { ++triggered; });
    w.window.addAction(&own);
    Menus menus([](QMenu&) {});
    w.press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(triggered, 1);
    w.type("x");
    w.press(Qt::Key_Down, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(triggered, 2);
    EXPECT_TRUE(w.editorShown());
    EXPECT_TRUE(menus.seen.empty());
}

TEST(HeaderMenu, IsAnActionOfTheHostsToo) {
    HeaderWindow w;
    QAction* const freeze = w.widget->action(Command::Freeze);
    EXPECT_EQ(freeze->text(), "冻结到此列");
    freeze->trigger();
    EXPECT_EQ(w.grid().FrozenCols(), 1);
    EXPECT_EQ(freeze->text(), "取消冻结");
    EXPECT_FALSE(w.widget->action(Command::ShowColumns)->isEnabled());
    w.widget->action(Command::HideColumn)->trigger();
    EXPECT_TRUE(w.widget->action(Command::ShowColumns)->isEnabled());
}

TEST(ColumnEdge, FitsTheColumnWhenItIsPressedTwice) {
    HeaderWindow w;
    w.grid().SetCell(2, Name, "a name that is wider than its column is");
    int clicks = 0;
    w.grid().DblClick.connect([&] { ++clicks; });
    std::vector<std::int32_t> resized;
    w.grid().Grid().AfterUserResize.connect([&](std::int32_t, std::int32_t col) { resized.push_back(col); });
    int changes = 0;
    w.grid().Layout().Changed.connect([&] { ++changes; });
    const std::int32_t before = w.grid().ColWidth(Name);
    w.pressEdgeTwice(Name);
    EXPECT_GT(w.grid().ColWidth(Name), before);
    EXPECT_EQ(w.grid().Grid_Sum().ColWidth(Name), w.grid().ColWidth(Name));
    EXPECT_EQ(resized, (std::vector<std::int32_t>{Name, Name}));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(w.current(), "1,1");
    w.picture("column-fitted");
}

TEST(ColumnEdge, FitsNothingOverARefusedText) {
    HeaderWindow w;
    w.grid().VsCtrl(Code)->i有效性判断(1);
    w.grid().VsCtrl(Code)->i字段有效性判断类型(ij编码型);
    w.grid().Options().Refusals(GridOptions::RefusalStyle::Beside);
    w.grid().SetCell(2, Name, "a name that is wider than its column is");
    const std::int32_t before = w.grid().ColWidth(Name);
    w.type("x");
    w.pressEdgeTwice(Name);
    EXPECT_EQ(w.grid().ColWidth(Name), before);
    EXPECT_EQ(w.editorText(), "x");
}

TEST(HeaderMenuPicture, ShowsTheMenuAndTheHiddenColumns) {
    for (const bool dark : {false, true}) {
        HeaderWindow w;
        if (dark) w.window.setPalette(darkPalette());
        const QString suffix = dark ? "-dark" : "";
        const auto take = [&](const char* name, std::int32_t col) {
            Menus menus([&](QMenu& menu) { w.pictureAround(name + suffix, {&menu}); });
            w.pressHeader(col);
            EXPECT_EQ(menus.seen.size(), 1U);
        };
        take("menu-header", Quantity);
        take("menu-header-plain", Remark);
        for (const Column col : {Name, Paid}) {
            Menus hide([](QMenu& menu) { chooseByKeys(menu, "隐藏列"); });
            w.pressHeader(col);
        }
        Menus menus([&](QMenu& menu) {
            QMenu* const hidden = item(menu, "显示隐藏的列").menu();
            menu.setActiveAction(hidden->menuAction());
            QTest::keyClick(&menu, Qt::Key_Right);
            ASSERT_TRUE(hidden->isVisible());
            w.pictureAround("menu-header-hidden" + suffix, {&menu, hidden});
        });
        w.pressHeader(Quantity);
        EXPECT_EQ(menus.seen.size(), 1U);
    }
}
}  // namespace kxVsGrid::qt::testing
