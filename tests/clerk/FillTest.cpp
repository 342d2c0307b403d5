// Filling the rest of a column: series of numbers, and copies of the cell.
#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

/// `scaled` / 10^places, written without a trailing zero: what a clerk would write.
std::string plain(std::int64_t scaled, int places) {
    std::string digits = std::to_string(scaled < 0 ? -scaled : scaled);
    while (static_cast<int>(digits.size()) <= places) digits.insert(0, "0");
    std::string fraction = digits.substr(digits.size() - static_cast<std::size_t>(places));
    digits.resize(digits.size() - static_cast<std::size_t>(places));
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
    if (!fraction.empty()) digits += '.' + fraction;
    return scaled < 0 ? '-' + digits : digits;
}

class Fills : public MenuTest {
  protected:
    static constexpr std::int32_t Col = 2;
    /// Puts texts into the column from row 2 on, and the current cell on the last of them.
    void start(const Lines& content) {
        std::int32_t row = 1;
        for (const auto& entry : content) grid.Grid().Text(++row, Col, entry);
        at(row, Col);
    }
    Lines below() const { return texts(grid.Row() + 1, Col); }
    Lines tagsBelow() const { return tags(grid.Row() + 1, Col); }
};

class NumberSeries : public Fills {
  protected:
    NumberSeries() {
        typed(Col, flexDTDouble);
        rows(8);
    }
    Lines series(const Lines& content) {
        for (int r = 1; r < grid.Rows(); ++r) grid.Grid().Text(r, Col, "");
        start(content);
        fillBy(caption::Series);
        return below();
    }
};

TEST_F(NumberSeries, GoesOnByTheDifferenceToTheCellAbove) {
    EXPECT_EQ(series({"1", "3"}), (Lines{"5", "7", "9", "11"}));
    EXPECT_EQ(tagsBelow(), Lines(4, "-1"));
    EXPECT_EQ(series({"3", "1"}), (Lines{"-1", "-3", "-5", "-7"}));
    EXPECT_EQ(series({"10", "2.5"}), (Lines{"-5", "-12.5", "-20", "-27.5"}));
    EXPECT_EQ(text(2, Col), "10");
    EXPECT_EQ(text(3, Col), "2.5");
    EXPECT_EQ(tag(3, Col), "");
}

TEST_F(NumberSeries, TellsTheHostOfTagAndTextOfEachCellAndOfNothingElse) {
    start({"1", "3"});
    fillBy(caption::Series);
    Lines cells;
    for (int r = 4; r < 8; ++r) cells = cells + changed(r, Col) + changed(r, Col);
    EXPECT_EQ(told(), cells);
    EXPECT_EQ(current(), (Cell{3, Col}));
}

TEST_F(NumberSeries, TakesOneForAStepOfZero) {
    EXPECT_EQ(series({"3", "3"}), (Lines{"4", "5", "6", "7"}));
    EXPECT_EQ(series({"0.10", "0.1"}), (Lines{"1.1", "2.1", "3.1", "4.1"}));
    EXPECT_EQ(series({"-2.5", "-2.5"}), (Lines{"-1.5", "-0.5", "0.5", "1.5"}));
}

TEST_F(NumberSeries, TakesOneInTheFirstDataRow) {
    grid.Grid().Text(0, Col, "100");
    grid.Grid().Text(1, Col, "3");
    at(1, Col);
    fillBy(caption::Series);
    EXPECT_EQ(below(), (Lines{"4", "5", "6", "7", "8", "9"}));
}

TEST_F(NumberSeries, TakesOneInTheFirstRowBelowSeveralHeaders) {
    grid.FixedRows(2);
    grid.Grid().Text(1, Col, "100");
    start({"7"});
    fillBy(caption::Series);
    EXPECT_EQ(below(), (Lines{"8", "9", "10", "11", "12"}));
}

TEST_F(NumberSeries, CountsAnEmptyOrUnreadableCellAboveAsZero) {
    EXPECT_EQ(series({"", "3"}), (Lines{"6", "9", "12", "15"}));
    EXPECT_EQ(series({"abc", "2.5"}), (Lines{"5", "7.5", "10", "12.5"}));
    EXPECT_EQ(series({"5", ""}), (Lines{"-5", "-10", "-15", "-20"}));
    EXPECT_EQ(series({"", ""}), (Lines{"1", "2", "3", "4"}));
    EXPECT_EQ(series({"abc", "x"}), (Lines{"1", "2", "3", "4"}));
}

TEST_F(NumberSeries, ReadsTheNumberThatATextStartsWith) {
    EXPECT_EQ(series({"1kg", "3 kg"}), (Lines{"5", "7", "9", "11"}));
    EXPECT_EQ(series({"1e2", "2e2"}), (Lines{"300", "400", "500", "600"}));
    EXPECT_EQ(series({" 1", " +2"}), (Lines{"3", "4", "5", "6"}));
}

TEST_F(NumberSeries, BlanksItsZerosUnlessTheyAreShown) {
    EXPECT_EQ(series({"-3", "-2"}), (Lines{"-1", "", "1", "2"}));
    EXPECT_EQ(tagsBelow(), Lines(4, "-1"));
    grid.bIsShowZero(true);
    EXPECT_EQ(series({"-3", "-2"}), (Lines{"-1", "0", "1", "2"}));
    EXPECT_EQ(series({"-0.3", "-0.2"}), (Lines{"-0.1", "0", "0.1", "0.2"}));
}

TEST_F(NumberSeries, WritesTenthsAsTenths) {
    EXPECT_EQ(series({"0.1", "0.2"}), (Lines{"0.3", "0.4", "0.5", "0.6"}));
    EXPECT_EQ(series({"0.2", "0.3"}), (Lines{"0.4", "0.5", "0.6", "0.7"}));
    EXPECT_EQ(series({"1.1", "1.3"}), (Lines{"1.5", "1.7", "1.9", "2.1"}));
    EXPECT_EQ(series({"0.3", "0.2"}), (Lines{"0.1", "", "-0.1", "-0.2"}));
    EXPECT_EQ(series({"", "0.1"}), (Lines{"0.2", "0.3", "0.4", "0.5"}));
}

TEST_F(NumberSeries, WritesSmallAndLargeNumbersInPlainDigits) {
    EXPECT_EQ(series({"0.000001", "0.000002"}), (Lines{"0.000003", "0.000004", "0.000005", "0.000006"}));
    EXPECT_EQ(series({"123456789.01", "123456789.02"}),
              (Lines{"123456789.03", "123456789.04", "123456789.05", "123456789.06"}));
    EXPECT_EQ(series({"999999999999998", "999999999999999"})[0], "1000000000000000");
    EXPECT_EQ(series({"", "1e20"})[0], "200000000000000000000");
}

TEST_F(NumberSeries, KeepsTheDigitsOfItsTextsWhereLargeNumbersGiveWayToSmallOnes) {
    EXPECT_EQ(series({"70.001", "69.994"}), (Lines{"69.987", "69.98", "69.973", "69.966"}));
    EXPECT_EQ(series({"100000000.03", "50000000.02"}),
              (Lines{"0.01", "-50000000", "-100000000.01", "-150000000.02"}));
    EXPECT_EQ(series({"1000000.1", "0.1"})[0], "-999999.9");
    EXPECT_EQ(series({"1000000", "0.000001"})[0], "-999999.999998");
}

TEST_F(NumberSeries, KeepsEveryDigitInAnExactColumnAndEndsWhereADecimalDoes) {
    grid.Options(Col).exact(true);
    EXPECT_EQ(
        series({"123456789012345.671", "123456789012345.674"}),
        (Lines{"123456789012345.677", "123456789012345.68", "123456789012345.683", "123456789012345.686"}));
    EXPECT_EQ(series({"999999999999999996", "999999999999999998"}), (Lines{"", "", "", ""}));
    EXPECT_EQ(series({"999999999999999998", "999999999999999998"}),
              (Lines{"999999999999999999", "", "", ""}));
    EXPECT_EQ(series({"", "5"}), (Lines{"10", "15", "20", "25"}));
}

TEST_F(NumberSeries, EndsWithTheNumbers) {
    const Lines written = series({"", "1e308"});
    for (const auto& entry : written) EXPECT_EQ(entry, "");
    EXPECT_TRUE(desk.messages().empty());
}

/// Two texts that are `step` apart, with so many decimal places.
struct Steps {
    std::int64_t first;
    std::int64_t step;
    int places;
};

TEST_F(NumberSeries, DoesNotDriftOverThousandsOfSteps) {
    grid.bIsShowZero(true);
    constexpr int Count = 20'000;
    rows(Count);
    for (const Steps& steps :
         {Steps{1, 1, 1}, Steps{2, 1, 1}, Steps{33, 7, 2}, Steps{-70'001, 7, 3}, Steps{1'000'000, -1, 2},
          Steps{1, 1, 6}, Steps{123'456'789, 3, 4}, Steps{999, 37, 2}, Steps{-100'000, 10, 1}}) {
        start({plain(steps.first, steps.places), plain(steps.first + steps.step, steps.places)});
        fillBy(caption::Series);
        int wrong = 0;
        for (std::int32_t r = 4; r < Count && wrong < 3; ++r) {
            const std::string expected = plain(steps.first + (r - 2) * steps.step, steps.places);
            EXPECT_EQ(text(r, Col), expected) << "row " << r;
            wrong += text(r, Col) == expected ? 0 : 1;
        }
    }
}

TEST_F(NumberSeries, GoesByTheTextsAsTheColumnShowsThem) {
    grid.ColFormat(Col, "#,##0.00");
    EXPECT_EQ(series({"1000", "1234.5"}), (Lines{"1469", "1703.5", "1938", "2172.5"}));
    grid.ColFormat(Col, "0.0");
    EXPECT_EQ(series({"1.04", "1.26"}), (Lines{"1.6", "1.9", "2.2", "2.5"}));
    grid.ColFormat(Col, "0%");
    EXPECT_EQ(series({"0.1", "0.15"}), (Lines{"20", "25", "30", "35"}));
    grid.ColFormat(Col, "0");
    EXPECT_EQ(series({"1.6", "2.4"}), (Lines{"3", "4", "5", "6"}));
}

TEST_F(NumberSeries, WritesNothingBelowTheLastRow) {
    grid.Grid().Text(6, Col, "1");
    grid.Grid().Text(7, Col, "3");
    at(7, Col);
    fillBy(caption::Series);
    fillBy(caption::Copies);
    EXPECT_EQ(named(heard(), "CellChanged"), Lines{});
    EXPECT_EQ(grid.Rows(), 8);
    EXPECT_EQ(text(7, Col), "3");
}

TEST_F(NumberSeries, OverwritesWhatStoodThere) {
    grid.SetCell(4, Col, "77", "old");
    grid.SetCell(6, Col, "7", "-1");
    start({"1", "2"});
    fillBy(caption::Series);
    EXPECT_EQ(below(), (Lines{"3", "4", "5", "6"}));
    EXPECT_EQ(tagsBelow(), Lines(4, "-1"));
}

TEST_F(NumberSeries, LeavesTheOtherColumnsAlone) {
    for (int r = 1; r < 8; ++r) grid.SetCell(r, 3, "x", "y");
    start({"1", "2"});
    fillBy(caption::Series);
    EXPECT_EQ(texts(1, 3), Lines(7, "x"));
    EXPECT_EQ(texts(4, 1), Lines(4, ""));
}

TEST_F(NumberSeries, KeepsTheTotalFresh) {
    summed(Col);
    start({"1", "3"});
    fillBy(caption::Series);
    EXPECT_EQ(grid.ReadSum(Col), "36");
    fillBy(caption::Copies);
    EXPECT_EQ(grid.ReadSum(Col), "16");
}

TEST_F(NumberSeries, LeavesTheTotalToTheNextSetUpWhileItWaits) {
    summed(Col);
    start({"1", "3"});
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(Col), "4");
    grid.ReDraw(false);
    fillBy(caption::Series);
    EXPECT_EQ(grid.ReadSum(Col), "4");
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(Col), "36");
}

TEST_F(NumberSeries, IsNotStoppedByReadOnlyHiddenOrRefusingColumns) {
    readOnly(Col);
    grid.Grid().RowHidden(5, true);
    column(Col).i是否允许为空(i字段不能为零);
    EXPECT_EQ(series({"1", "2"}), (Lines{"3", "4", "5", "6"}));
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(NumberSeries, WritesNothingWhenTheColumnHasBecomeTextMeanwhile) {
    start({"1", "2"});
    desk.onPopup([&](headless::PoppedMenu& menu) {
        menu.choose(caption::Fill, caption::Series);
        column(Col).iType(flexDTString);
    });
    desk.rightClick(0, 1);
    EXPECT_EQ(below(), Lines(4, ""));
    EXPECT_EQ(told(), Lines{});
}

class CopyFill : public Fills {};

TEST_F(CopyFill, WritesTextAndTagIntoEveryRowBelow) {
    rows(8);
    grid.SetCell(6, Col, "old", "tag");
    fill(3, Col, "螺栓", "A001");
    at(3, Col);
    fillBy(caption::Copies);
    Lines cells;
    for (int r = 4; r < 8; ++r) cells = cells + changed(r, Col) + changed(r, Col);
    EXPECT_EQ(told(), cells);
    EXPECT_EQ(texts(3, Col), Lines(5, "螺栓"));
    EXPECT_EQ(tags(3, Col), Lines(5, "A001"));
    EXPECT_EQ(texts(1, Col), (Lines{"", ""} + Lines(5, "螺栓")));
}

TEST_F(CopyFill, OfAnEmptyCellEmptiesTheRowsBelow) {
    rows(8);
    for (int r = 2; r < 8; ++r) fill(r, Col, "x", "y");
    grid.SetCell(4, Col, "", "");
    at(4, Col);
    fillBy(caption::Copies);
    EXPECT_EQ(texts(2, Col), (Lines{"x", "x", "", "", "", ""}));
    EXPECT_EQ(tags(2, Col), (Lines{"y", "y", "", "", "", ""}));
}

TEST_F(CopyFill, CopiesATagWithoutATextToo) {
    grid.SetCell(3, Col, "", "A001");
    at(3, Col);
    fillBy(caption::Copies);
    EXPECT_EQ(tags(4, Col), Lines(2, "A001"));
    EXPECT_EQ(texts(4, Col), Lines(2, ""));
}

TEST_F(CopyFill, WorksInEachKindOfColumnThatCanBeFilled) {
    for (const auto& [type, content] : std::vector<std::pair<mEmDataType, const char*>>{
             {flexDTString, "A001"}, {flexDTDouble, "2.5"}, {flexDTDate, "2010-01-31"}}) {
        typed(Col, type);
        fill(3, Col, content, "tag");
        at(3, Col);
        fillBy(caption::Copies);
        EXPECT_EQ(texts(4, Col), Lines(2, content));
        EXPECT_EQ(tags(4, Col), Lines(2, "tag"));
    }
}

TEST_F(CopyFill, WritesTheTextAsTheColumnShowsIt) {
    typed(Col, flexDTDouble);
    grid.ColFormat(Col, "#,##0.00");
    fill(2, Col, "1234.5", "tag");
    at(2, Col);
    fillBy(caption::Copies);
    EXPECT_EQ(text(2, Col), "1234.5");
    EXPECT_EQ(texts(3, Col), Lines(3, "1,234.50"));
    EXPECT_EQ(tags(3, Col), Lines(3, "tag"));
}

TEST_F(CopyFill, OfAZeroIsBlankedLikeAnyZero) {
    typed(Col, flexDTDouble);
    grid.Grid().Text(3, Col, "0");
    grid.Grid().Data(3, Col, "tag");
    at(3, Col);
    fillBy(caption::Copies);
    EXPECT_EQ(texts(3, Col), (Lines{"0", "", ""}));
    EXPECT_EQ(tags(4, Col), Lines(2, "tag"));
    grid.bIsShowZero(true);
    fillBy(caption::Copies);
    EXPECT_EQ(texts(3, Col), (Lines{"0", "0", "0"}));
}

TEST_F(CopyFill, TakesThePressedCell) {
    fill(2, Col, "here");
    fill(3, 4, "there");
    at(2, Col);
    desk.onPopup([](headless::PoppedMenu& menu) { menu.choose(caption::Fill, caption::Copies); });
    desk.rightClick(3, 4);
    EXPECT_EQ(texts(2, Col), (Lines{"here", "", "", ""}));
    EXPECT_EQ(texts(1, 4), (Lines{"", "", "there", "there", "there"}));
}

TEST_F(CopyFill, TakesTheTextThatThePressCommitted) {
    at(2, Col);
    desk.type("abc");
    fillBy(caption::Copies);
    EXPECT_EQ(texts(2, Col), Lines(4, "abc"));
    EXPECT_FALSE(open());
}

class LongFill : public Fills {
  protected:
    LongFill() {
        typed(Col, flexDTDouble);
        rows(3000);
        start({"1", "2"});
    }
};

TEST_F(LongFill, ShowsThatTheMachineWorksAndLetsNoInputIn) {
    bool always = true;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { always = always && desk.working(); });
    for (const char* command : {caption::Series, caption::Copies}) {
        desk.clear();
        fillBy(command);
        EXPECT_TRUE(always);
        EXPECT_EQ(desk.waits(), 1);
        EXPECT_TRUE(desk.idle());
        EXPECT_EQ(desk.looksForInput(), 0);
    }
}

TEST_F(LongFill, IsPaintedOnceAndLeavesTheDrawingAsItWas) {
    for (const std::int32_t drawing : {2, 1, 0}) {
        grid.Grid().Redraw(drawing);
        grid.Grid().takeDamage();
        int asked = 0;
        grid.Grid().onDamage([&] { ++asked; });
        fillBy(drawing == 1 ? caption::Copies : caption::Series);
        EXPECT_EQ(asked, drawing == 0 ? 0 : 1);
        EXPECT_EQ(grid.Grid().Redraw(), drawing);
        grid.Grid().onDamage({});
    }
}

TEST_F(LongFill, MovesAndScrollsNothing) {
    fillBy(caption::Series);
    EXPECT_EQ(text(2999, Col), "2998");
    EXPECT_EQ(current(), (Cell{3, Col}));
    EXPECT_EQ(grid.Grid().TopRow(), 1);
}

TEST_F(LongFill, EndsAtTheRowsThatTheHostLeaves) {
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 10 && std::exchange(once, false)) grid.Rows(20);
    });
    fillBy(caption::Series);
    EXPECT_EQ(grid.Rows(), 20);
    EXPECT_EQ(text(19, Col), "18");
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(LongFill, SurvivesAHostThatRemovesTheColumn) {
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 10 && std::exchange(once, false)) grid.Cols(2);
    });
    fillBy(caption::Copies);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_TRUE(desk.idle());
}

TEST_F(LongFill, StaysInItsColumnWhenTheHostMovesTheCell) {
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 10 && std::exchange(once, false)) grid.Grid().Select(100, 4);
    });
    fillBy(caption::Series);
    EXPECT_EQ(current(), (Cell{100, 4}));
    EXPECT_EQ(text(2999, Col), "2998");
    EXPECT_EQ(text(50, Col), "49");
    EXPECT_EQ(texts(1, 4), Lines(2999, ""));
}

TEST_F(LongFill, GoesOnFromItsOwnNumbersWhateverTheHostWrites) {
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 11 && std::exchange(once, false)) grid.Grid().Text(10, Col, "1000");
    });
    fillBy(caption::Series);
    EXPECT_EQ(text(10, Col), "1000");
    EXPECT_EQ(text(12, Col), "11");
}

TEST_F(LongFill, ShowsTheFailureOfAHandlerForItsCellAndLeavesTheOthers) {
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (row == 10) throw HostFailure();
    });
    fillBy(caption::Series);
    ASSERT_EQ(desk.messages().size(), 1U);
    EXPECT_EQ(desk.messages()[0], (MessageBox{"SetCell Error::the host failed", 16, "错误"}));
    EXPECT_EQ(tag(10, Col), "") << "no half of a pair is left";
    EXPECT_EQ(text(10, Col), "");
    EXPECT_EQ(text(9, Col), "8");
    EXPECT_EQ(text(11, Col), "");
    EXPECT_EQ(text(2999, Col), "");
    EXPECT_EQ(desk.tips().size(), 1U);
    EXPECT_TRUE(desk.idle());
}

}  // namespace
}  // namespace kxVsGrid::testing
