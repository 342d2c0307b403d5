// What becomes of zeros, and of the day that stands for none, in a column that has a say of its own.
#include <string>

#include "editing/InputFormsTest.h"
#include "kit/PrintTo.h"

namespace kxVsGrid::testing {
namespace {

using Zero = ColumnOptions::Zero;

class ZeroOfAColumn : public InputFormsTest {
  protected:
    void blanks(Zero zero) {
        for (const std::int32_t col : {Plain, Percent, Dated}) grid.Options(col).zero(zero);
    }
    std::string set(std::int32_t col, std::string_view written) {
        grid.SetCell(2, col, written);
        return text(2, col);
    }
};

TEST_F(ZeroOfAColumn, IsBlankedWhereCodeWritesItAndKeptWhereItIsEnteredAtFirst) {
    EXPECT_EQ(grid.Options(Plain).zero(), Zero::AsGrid);
    EXPECT_EQ(set(Plain, "0.00"), "");
    EXPECT_EQ(set(Dated, "1900-01-01"), "");
    EXPECT_EQ(entered(Plain, "0"), "0");
    EXPECT_EQ(entered(Dated, "1900-01-01"), "1900-01-01");
    grid.bIsShowZero(true);
    EXPECT_EQ(set(Plain, "0.00"), "0.00");
    EXPECT_EQ(set(Dated, "1900-01-01"), "1900-01-01");
}

TEST_F(ZeroOfAColumn, IsKeptWhereTheColumnKeepsIt) {
    blanks(Zero::Keep);
    for (const bool shows : {false, true}) {
        grid.bIsShowZero(shows);
        EXPECT_EQ(set(Plain, "0.00"), "0.00");
        EXPECT_EQ(set(Dated, "1900-01-01"), "1900-01-01");
        EXPECT_EQ(set(Dated, "soon"), "soon");
        for (const Entry entry : Entries) {
            EXPECT_EQ(entered(Plain, "0", entry), "0") << entry;
            EXPECT_EQ(entered(Dated, "1900-1-1", entry), "1900-01-01") << entry;
        }
    }
}

TEST_F(ZeroOfAColumn, IsBlankedWhereTheColumnBlanksIt) {
    blanks(Zero::Blank);
    for (const bool shows : {false, true}) {
        grid.bIsShowZero(shows);
        EXPECT_EQ(set(Plain, "0.00"), "");
        EXPECT_EQ(set(Plain, "0.01"), "0.01");
        EXPECT_EQ(set(Dated, "1900-01-01"), "");
        EXPECT_EQ(set(Dated, "soon"), "");
        for (const Entry entry : Entries) {
            EXPECT_EQ(entered(Plain, "0", entry), "") << entry;
            EXPECT_EQ(entered(Plain, "-0.00", entry), "") << entry;
            EXPECT_EQ(entered(Plain, "3-3", entry), "") << entry;
            EXPECT_EQ(entered(Percent, "0%", entry), "") << entry;
            EXPECT_EQ(entered(Plain, "0.01", entry), "0.01") << entry;
            EXPECT_EQ(entered(Dated, "1900-1-1", entry), "") << entry;
            EXPECT_EQ(entered(Dated, "1900-1-2", entry), "1900-01-02") << entry;
        }
    }
}

TEST_F(ZeroOfAColumn, IsBlankedInAnExactColumnToo) {
    grid.Options(Plain).exact(true);
    grid.Options(Plain).zero(Zero::Blank);
    EXPECT_EQ(entered(Plain, "0.000"), "");
    EXPECT_EQ(entered(Plain, "0.000000001"), "0.000000001");
    grid.Options(Plain).zero(Zero::Keep);
    EXPECT_EQ(entered(Plain, "0.000"), "0");
}

TEST_F(ZeroOfAColumn, OfANotDateThatIsEnteredIsKept) {
    column(Dated).i有效性判断(0);
    blanks(Zero::Blank);
    EXPECT_EQ(entered(Dated, "soon"), "soon");
}

TEST_F(ZeroOfAColumn, OverwritesWhatStoodThere) {
    blanks(Zero::Blank);
    grid.SetCell(2, Plain, "7", "seven");
    EXPECT_TRUE(enter(Plain, "0"));
    EXPECT_EQ(text(2, Plain), "");
    desk.press('Z', CtrlKey);
    EXPECT_EQ(text(2, Plain), "7");
}

TEST_F(ZeroOfAColumn, IsNoneInATextColumn) {
    grid.Options(1).zero(Zero::Blank);
    EXPECT_EQ(entered(1, "0"), "0");
    EXPECT_EQ(set(1, "0"), "0");
}
}  // namespace
}  // namespace kxVsGrid::testing
