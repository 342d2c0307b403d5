// What rows get beside what is typed, and where the clerk is taken.
#include <string>
#include <vector>

#include "kxVsGrid/sheet/Sheet.h"
#include "sheet/SheetDesk.h"

namespace kxVsGrid::testing {
namespace {

struct Supply {
    std::string goods, place, note;
    Decimal quantity;
    friend bool operator==(const Supply&, const Supply&) = default;
};

class PresetRows : public SheetDesk {
  protected:
    enum Column : std::int32_t { Number, GoodsText, Quantity, Place, Note };

    PresetRows() {
        sheet.text("goods", "品名", &Supply::goods);
        sheet.number("quantity", "数量", &Supply::quantity);
        sheet.text("place", "仓库", &Supply::place).preset("一仓").required([](const Supply& line) {
            return !line.goods.empty();
        });
        sheet.text("note", "备注", &Supply::note).preset("急");
        sheet.inUse([](const Supply& line) { return !line.goods.empty() || line.quantity != 0; });
        sheet.load(std::vector<Supply>());
        desk.focusGrid();
    }
    void paste(std::int32_t row, std::int32_t col, std::string_view block) {
        grid.Grid().Select(row, col);
        desk.clipboard(block);
        ASSERT_TRUE(desk.run(Command::Paste));
    }
    std::string shown(std::int32_t row) { return text(row, Place) + "|" + text(row, Note); }

    Sheet<Supply> sheet{grid};
};

TEST_F(PresetRows, ThatABlockMakesLinesGetThemWhereTheClerkHasNotBeen) {
    paste(2, GoodsText, "甲\n乙\t2\n\t3");
    EXPECT_EQ(shown(3), "一仓|急");
    EXPECT_EQ(shown(4), "一仓|急");
    ASSERT_TRUE(desk.run(Command::Undo));
    EXPECT_EQ(shown(3), "|");
    EXPECT_FALSE(sheet.modified());
}

TEST_F(PresetRows, HaveWhatTheBlockWritesAndNothingWhereItIsEmpty) {
    paste(2, GoodsText, "甲\t1\t二仓\n乙\t2\t二仓\n丙\t2\t");
    EXPECT_EQ(shown(3), "二仓|急");
    EXPECT_EQ(shown(4), "|急") << "an empty cell of a block empties";
}

TEST_F(PresetRows, ThatWereLinesBeforeKeepWhatTheyHave) {
    sheet.load(std::vector<Supply>{{"甲", "", "", 1}, {"乙", "", "", 2}});
    paste(1, Quantity, "5\n6");
    EXPECT_EQ(shown(2), "|");
}

TEST_F(PresetRows, AreNoLinesBySomethingElseOfABlock) {
    paste(2, Note, "x\ny");
    EXPECT_EQ(shown(3), "|y");
}

TEST_F(PresetRows, GetAnotherPresetWhileTheyWaitAlsoWhereThereWasNone) {
    sheet.preset("place", std::string());
    sheet.goTo(2, "goods");
    EXPECT_EQ(shown(2), "|急");
    sheet.preset("place", std::string("三仓"));
    EXPECT_EQ(shown(2), "三仓|急");
    EXPECT_EQ(shown(3), "|");
    EXPECT_FALSE(desk.run(Command::Undo));
}

TEST_F(PresetRows, GetThemWhenTheSheetTakesTheClerkThere) {
    sheet.goTo(1, "quantity");
    EXPECT_EQ(grid.Col(), Quantity);
    EXPECT_EQ(shown(1), "一仓|急");
    EXPECT_FALSE(desk.run(Command::Undo)) << "nobody's step";
    type(1, GoodsText, "甲");
    EXPECT_EQ(sheet.endRow(), 2);
    grid.SetCell(1, Place, "");
    sheet.goTo(1, "goods");
    EXPECT_EQ(shown(1), "|急") << "a line";
    EXPECT_THROW(sheet.goTo(1, "price"), GridError);
    EXPECT_THROW(sheet.goTo(99, "goods"), GridError);
}

TEST_F(PresetRows, GetThemBeforeTheyAreSavedWhereSomethingRequiredIsMissing) {
    grid.SetCell(2, GoodsText, "甲");
    grid.SetCell(3, GoodsText, "乙");
    grid.SetCell(3, Place, "二仓");
    grid.SetCell(4, Quantity, "4");
    EXPECT_TRUE(sheet.commit());
    EXPECT_EQ(shown(2), "|") << "who leaves changes nothing";
    sheet.complete();
    EXPECT_EQ(shown(2), "一仓|急");
    EXPECT_EQ(shown(3), "二仓|");
    EXPECT_EQ(shown(4), "|") << "not required there";
}

TEST_F(PresetRows, CommitTakesWhatIsTypedUnlessItIsRefused) {
    sheet.rule(
        "goods", [](const Supply& line) { return line.goods != "x"; }, "不行");
    grid.Grid().Select(1, GoodsText);
    desk.type("甲");
    EXPECT_TRUE(sheet.commit());
    EXPECT_EQ(sheet.records().at(0).goods, "甲");
    grid.Grid().Select(1, GoodsText);
    desk.type("x");
    EXPECT_FALSE(sheet.commit());
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(sheet.records().at(0).goods, "甲");
}
}  // namespace
}  // namespace kxVsGrid::testing
