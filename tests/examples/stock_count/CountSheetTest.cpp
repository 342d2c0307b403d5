// A count that is typed, saved and read again, on the machine without a window.
#include "CountSheet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "kxVsGrid/headless/Desk.h"

namespace stock_count {
void PrintTo(const CountLine& line, std::ostream* out) {
    *out << line.id << " v" << line.version << ' ' << line.goods << ' ' << line.name << ' ' << line.bin << ' '
         << (line.counted ? line.counted->text() : "-");
}

namespace {
using kxVsGrid::Command;
using kxVsGrid::Key;

class CountSheetTest : public testing::Test {
  protected:
    static constexpr int Lines = 30;

    CountSheetTest() {
        desk.resize(20000, 9000);
        count.load();
        desk.focusGrid();
    }

    std::int32_t col(std::string_view name) { return count.sheet().col(name); }
    std::string shown(std::int32_t row, std::string_view name) {
        return grid.Grid().DisplayText(row, col(name));
    }
    void type(std::int32_t row, std::string_view name, std::string_view text) {
        grid.Grid().Select(row, col(name));
        desk.type(text).press(Key::Enter);
    }
    /// The lines that another clerk would open now.
    std::vector<CountLine> stored() {
        kxVsGrid::headless::Desk other;
        CountSheet there(other.place(), store, {2026, 12, 1});
        there.load();
        return there.sheet().records();
    }
    std::int64_t storedLines() { return store.database().number("SELECT count(*) FROM count_line"); }

    CountStore store{":memory:", 400, Lines};
    kxVsGrid::headless::Desk desk;
    kxVsGrid::kxGrid& grid = desk.place();
    CountSheet count{grid, store, Date{2026, 11, 23}};
};

TEST_F(CountSheetTest, ShowsTheLinesOfTheBooks) {
    EXPECT_EQ(count.sheet().records().size(), std::size_t(Lines));
    EXPECT_EQ(shown(0, "counted"), "实盘数量");
    EXPECT_EQ(shown(1, "goods"), "100000");
    EXPECT_EQ(shown(1, "book"), "5.000");
    EXPECT_EQ(shown(1, "counted"), "");
    EXPECT_EQ(shown(1, "amount"), "");
    EXPECT_FALSE(count.sheet().modified());
}

TEST_F(CountSheetTest, ComputesTheDifferenceOfWhatWasCountedAndStampsTheDay) {
    type(1, "counted", "4");
    EXPECT_EQ(shown(1, "difference"), "-1.000");
    EXPECT_EQ(shown(1, "amount"), "-1.20");
    EXPECT_EQ(shown(1, "day"), "2026-11-23");
    EXPECT_EQ(grid.ReadSum(col("amount")), "-1.20");
    grid.History().Undo();
    EXPECT_EQ(shown(1, "day"), "");
    EXPECT_FALSE(count.sheet().modified());
}

TEST_F(CountSheetTest, TellsACountedZeroFromWhatWasNotCounted) {
    type(1, "counted", "0");
    EXPECT_EQ(shown(1, "counted"), "0.000");
    EXPECT_EQ(shown(1, "difference"), "-5.000");
    EXPECT_EQ(count.save(), "");
    EXPECT_EQ(stored()[0].counted, Decimal(0));
    EXPECT_EQ(stored()[1].counted, std::nullopt);
}

TEST_F(CountSheetTest, SavesJustWhatHasChanged) {
    type(2, "counted", "12.5");
    type(Lines + 1, "goods", "100005");
    type(Lines + 1, "bin", "A-99");
    type(Lines + 1, "counted", "3");
    EXPECT_EQ(shown(Lines + 1, "name"), "密封垫圈");
    grid.Grid().Select(3, col("bin"));
    EXPECT_TRUE(desk.run(Command::DeleteRows));
    const std::vector<CountLine> before = count.sheet().records();
    EXPECT_EQ(count.save(), "");
    EXPECT_FALSE(count.sheet().modified());
    EXPECT_EQ(count.sheet().record(2).version, 2);
    EXPECT_EQ(count.sheet().record(Lines).id, Lines + 1);
    EXPECT_EQ(stored(), count.sheet().records());
    EXPECT_EQ(store.database().number("SELECT count(*) FROM count_line WHERE version = 2"), 1);
    EXPECT_EQ(before.size(), std::size_t(Lines));
}

TEST_F(CountSheetTest, RefusesACodeThatNobodyKnows) {
    type(Lines + 1, "goods", "999");
    EXPECT_TRUE(desk.editor().visible);
    desk.press(Key::Escape);
    EXPECT_EQ(shown(Lines + 1, "goods"), "");
    EXPECT_FALSE(count.sheet().modified());
}

TEST_F(CountSheetTest, SuggestsGoodsByTheirInitials) {
    grid.Grid().Select(Lines + 1, col("goods"));
    desk.type("sgq");
    ASSERT_FALSE(desk.suggestions().texts.empty());
    EXPECT_EQ(desk.suggestions().texts.front(), "100002");
    EXPECT_EQ(desk.suggestions().notes.front(), "深沟球轴承");
}

TEST_F(CountSheetTest, TakesGoodsFromTheirList) {
    desk.onDialog([](kxVsGrid::headless::LookupDialog& dialog) {
        dialog.type("100007");
        dialog.press(Key::Enter);
    });
    grid.Grid().Select(Lines + 1, col("goods"));
    desk.press(Key::F2).press(Key::Enter);
    EXPECT_EQ(shown(Lines + 1, "goods"), "100007");
    EXPECT_EQ(shown(Lines + 1, "name"), "防锈漆");
    EXPECT_EQ(shown(Lines + 1, "unit"), "桶");
}

TEST_F(CountSheetTest, GoesToTheFirstFaultInsteadOfSaving) {
    type(Lines + 1, "goods", "100005");
    grid.Grid().Select(1, col("counted"));
    EXPECT_EQ(count.save(), "第 31 行的库位：不能为空");
    EXPECT_EQ(grid.Row(), Lines + 1);
    EXPECT_EQ(grid.Col(), col("bin"));
    EXPECT_EQ(storedLines(), Lines);
}

TEST_F(CountSheetTest, SavesWhatIsStillBeingTyped) {
    grid.Grid().Select(1, col("counted"));
    desk.type("7");
    EXPECT_EQ(count.save(), "");
    EXPECT_EQ(stored()[0].counted, Decimal(7));
}

TEST_F(CountSheetTest, StaysModifiedWhenTheDatabaseRefuses) {
    type(1, "counted", "7");
    type(Lines + 1, "goods", "100000");
    type(Lines + 1, "bin", shown(1, "bin"));
    type(Lines + 1, "batch", shown(1, "batch"));
    const std::string why = count.save();
    EXPECT_NE(why.find("数据库中已有相同的记录"), std::string::npos) << why;
    EXPECT_TRUE(count.sheet().modified());
    EXPECT_EQ(stored()[0].counted, std::nullopt);
    type(Lines + 1, "batch", "P9999");
    EXPECT_EQ(count.save(), "");
    EXPECT_EQ(stored(), count.sheet().records());
}

TEST_F(CountSheetTest, RefusesToOverwriteWhatSomebodyElseHasSaved) {
    type(1, "counted", "7");
    store.database().run("UPDATE count_line SET version = 5 WHERE id = 1");
    EXPECT_NE(count.save().find("别人"), std::string::npos);
    EXPECT_TRUE(count.sheet().modified());
}

TEST_F(CountSheetTest, SavesALineAsANewOneThatWasRemovedSavedAndUndone) {
    grid.Grid().Select(3, col("bin"));
    desk.run(Command::DeleteRows);
    EXPECT_EQ(count.save(), "");
    EXPECT_EQ(storedLines(), Lines - 1);
    desk.run(Command::Undo);
    EXPECT_TRUE(count.sheet().modified());
    EXPECT_EQ(count.save(), "");
    EXPECT_EQ(storedLines(), Lines);
    EXPECT_EQ(count.sheet().record(3).id, Lines + 1);
    EXPECT_EQ(count.sheet().record(3).version, 1);
}

TEST_F(CountSheetTest, KeepsWhatStandsThereWhenLoadingIsEnded) {
    type(1, "counted", "7");
    EXPECT_FALSE(count.load([](std::size_t, std::size_t) { return false; }));
    EXPECT_EQ(shown(1, "counted"), "7.000");
    EXPECT_TRUE(count.sheet().modified());
}

TEST_F(CountSheetTest, FillsDownToTheLastLineAndNoFurther) {
    type(1, "counted", "7");
    grid.Grid().Select(1, col("counted"));
    desk.onPopup([](kxVsGrid::headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格"); });
    desk.rightClick(1, col("counted"));
    EXPECT_EQ(count.sheet().records().back().counted, Decimal(7));
    EXPECT_EQ(count.sheet().records().size(), std::size_t(Lines));
    EXPECT_EQ(shown(Lines, "day"), "2026-11-23");
    EXPECT_EQ(shown(Lines + 1, "counted"), "");
}
}  // namespace
}  // namespace stock_count
