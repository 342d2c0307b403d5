// SetCell: the pair of text and tag, the values it blanks, the editor it commits, the box it shows.
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class SetCell : public PlacedGrid {};

TEST_F(SetCell, WritesTextAndTag) {
    grid.SetCell(2, 3, "品名", "A01");
    EXPECT_EQ(text(2, 3), "品名");
    EXPECT_EQ(tag(2, 3), "A01");
}

TEST_F(SetCell, EmptiesTheTagWhenNoneIsGiven) {
    grid.SetCell(2, 3, "one", "tag");
    grid.SetCell(2, 3, "two");
    EXPECT_EQ(text(2, 3), "two");
    EXPECT_EQ(tag(2, 3), "");
}

TEST_F(SetCell, WritesTheTagFirstAndThenTheText) {
    grid.SetCell(2, 3, "old", "oldtag");
    heard();
    Lines seen;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        seen.push_back(line("seen", text(row, col), tag(row, col)));
    });
    grid.SetCell(2, 3, "new", "newtag");
    EXPECT_EQ(seen, (Lines{line("seen", std::string("old"), std::string("newtag")),
                           line("seen", std::string("new"), std::string("newtag"))}));
    EXPECT_EQ(heard(), changed(2, 3) + changed(2, 3));
}

TEST_F(SetCell, TellsOnlyOfTheSlotsThatChange) {
    grid.SetCell(2, 3, "text", "tag");
    heard();
    grid.SetCell(2, 3, "text", "tag");
    EXPECT_EQ(heard(), Nothing);
    grid.SetCell(2, 3, "other", "tag");
    EXPECT_EQ(heard(), changed(2, 3));
    grid.SetCell(2, 3, "other", "another");
    EXPECT_EQ(heard(), changed(2, 3));
}

TEST_F(SetCell, WritesCaptionsAndFixedColumns) {
    grid.SetCell(0, 2, "单价", "c");
    grid.SetCell(3, 0, "row", "r");
    EXPECT_EQ(text(0, 2), "单价");
    EXPECT_EQ(tag(0, 2), "c");
    EXPECT_EQ(text(3, 0), "row");
    EXPECT_EQ(tag(3, 0), "r");
}

TEST_F(SetCell, LeavesTheRestOfTheControlAlone) {
    grid.SetCell(2, 3, "text", "tag");
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_EQ(desk.reports(), Nothing);
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(SetCell, WritesAlsoWhereTheClerkMayNot) {
    column(3).bIsEditable(false);
    grid.Editable(false);
    grid.SetCell(2, 3, "text", "tag");
    EXPECT_EQ(text(2, 3), "text");
    EXPECT_EQ(tag(2, 3), "tag");
}

TEST_F(SetCell, IgnoresCellsOutsideTheGrid) {
    constexpr auto Far = std::numeric_limits<std::int32_t>::max();
    constexpr auto Low = std::numeric_limits<std::int32_t>::min();
    for (const Cell cell : std::vector<Cell>{
             {6, 1}, {1, 10}, {6, 10}, {-1, 1}, {1, -1}, {Far, 1}, {1, Far}, {Low, 1}, {1, Low}}) {
        grid.SetCell(cell.row, cell.col, "x", "y");
        EXPECT_EQ(heard(), Nothing) << cell;
        EXPECT_EQ(boxes(), Nothing) << cell;
    }
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Cols(), 10);
}

TEST_F(SetCell, WritesRowsBeyondSixteenBits) {
    grid.Rows(40'001);
    heard();
    grid.SetCell(40'000, 2, "far", "tag");
    EXPECT_EQ(heard(), changed(40'000, 2) + changed(40'000, 2));
    EXPECT_EQ(grid.ReadCell(40'000, 2, true), "far");
    EXPECT_EQ(grid.ReadCell(40'000, 2), "tag");
    EXPECT_EQ(grid.ReadCell(40'000 - 32'768, 2, true), "");
}

TEST_F(SetCell, KeepsBytesThatAreNoText) {
    grid.SetCell(2, 3, StrayBytes, StrayBytes + "!");
    EXPECT_EQ(grid.ReadCell(2, 3, true), StrayBytes);
    EXPECT_EQ(grid.ReadCell(2, 3), StrayBytes + "!");
}

TEST_F(SetCell, KeepsBlanksAndLineBreaks) {
    grid.SetCell(2, 3, "  two\r\nlines  ", " t ");
    EXPECT_EQ(text(2, 3), "  two\r\nlines  ");
    EXPECT_EQ(tag(2, 3), " t ");
}

// --- What it blanks.

struct Blanking {
    mEmDataType type;
    std::string given;
    bool blanked;
    friend std::ostream& operator<<(std::ostream& out, const Blanking& b) {
        return out << "type " << b.type << ", \"" << b.given << '"';
    }
};

class SetCellBlanks : public PlacedGrid, public ::testing::WithParamInterface<Blanking> {};

TEST_P(SetCellBlanks, ByTheTypeOfTheColumn) {
    column(2).iType(GetParam().type);
    grid.SetCell(3, 2, GetParam().given, "tag");
    EXPECT_EQ(text(3, 2), GetParam().blanked ? "" : GetParam().given);
    EXPECT_EQ(tag(3, 2), "tag");
}

TEST_P(SetCellBlanks, NothingWhileZerosAreShown) {
    grid.bIsShowZero(true);
    column(2).iType(GetParam().type);
    grid.SetCell(3, 2, GetParam().given, "tag");
    EXPECT_EQ(text(3, 2), GetParam().given);
    EXPECT_EQ(tag(3, 2), "tag");
}

TEST_P(SetCellBlanks, NothingInFixedCells) {
    for (const std::int32_t col : {0, 2}) column(col).iType(GetParam().type);
    grid.SetCell(0, 2, GetParam().given);
    grid.SetCell(3, 0, GetParam().given);
    grid.SetCell(0, 0, GetParam().given);
    EXPECT_EQ(text(0, 2), GetParam().given);
    EXPECT_EQ(text(3, 0), GetParam().given);
    EXPECT_EQ(text(0, 0), GetParam().given);
}

const std::vector<Blanking> Numbers = {
    {flexDTDouble, "0", true},        {flexDTDouble, "0.00", true},  {flexDTDouble, "-0", true},
    {flexDTDouble, "+0.0", true},     {flexDTDouble, ".0", true},    {flexDTDouble, "0e5", true},
    {flexDTDouble, "   0", true},     {flexDTDouble, "", true},      {flexDTDouble, "   ", true},
    {flexDTDouble, "abc", true},      {flexDTDouble, "0abc", true},  {flexDTDouble, "0,5", true},
    {flexDTDouble, "-", true},        {flexDTDouble, "0.01", false}, {flexDTDouble, "-1", false},
    {flexDTDouble, "1,5", false},     {flexDTDouble, " 5 ", false},  {flexDTDouble, "5abc", false},
    {flexDTDouble, "007.50", false},  {flexDTDouble, ".5", false},   {flexDTDouble, "1e-300", false},
    {flexDTDouble, "1,234.50", false}};
const std::vector<Blanking> Dates = {{flexDTDate, "", true},
                                     {flexDTDate, "abc", true},
                                     {flexDTDate, "1900-01-01", true},
                                     {flexDTDate, "1900-1-1", true},
                                     {flexDTDate, "1900/1/1", true},
                                     {flexDTDate, "1900.01.01", true},
                                     {flexDTDate, "1900年1月1日", true},
                                     {flexDTDate, "1900-01-01 12:30:00", true},
                                     {flexDTDate, "1900-01-01 23:59", true},
                                     {flexDTDate, "2011-02-30", true},
                                     {flexDTDate, "12:30", true},
                                     {flexDTDate, "5", true},
                                     {flexDTDate, "1900-01-02", false},
                                     {flexDTDate, "1899-12-31", false},
                                     {flexDTDate, "1899-12-31 23:59:59", false},
                                     {flexDTDate, "2011-2-3", false},
                                     {flexDTDate, "2011/02/03 08:05:09", false},
                                     {flexDTDate, "2012-02-29", false},
                                     {flexDTDate, "00-01-01", false}};
const std::vector<Blanking> OtherTypes = {{flexDTString, "0", false},
                                          {flexDTString, "1900-01-01", false},
                                          {flexDTEmpty, "0", false},
                                          {flexDTEmpty, "1900-01-01", false},
                                          {flexDTBoolean, "0", false},
                                          {flexDTBoolean, "abc", false},
                                          {static_cast<mEmDataType>(1), "0", false},
                                          {static_cast<mEmDataType>(-7), "1900-01-01", false}};

INSTANTIATE_TEST_SUITE_P(Numbers, SetCellBlanks, ::testing::ValuesIn(Numbers));
INSTANTIATE_TEST_SUITE_P(Dates, SetCellBlanks, ::testing::ValuesIn(Dates));
INSTANTIATE_TEST_SUITE_P(OtherTypes, SetCellBlanks, ::testing::ValuesIn(OtherTypes));

TEST_F(SetCell, ReadsTheDefinitionAfreshAtEachUse) {
    auto held = grid.VsCtrl(2);
    grid.SetCell(1, 2, "0");
    held->iType(flexDTDouble);
    grid.SetCell(2, 2, "0");
    EXPECT_EQ(text(1, 2), "0");
    EXPECT_EQ(text(2, 2), "");
}

TEST_F(SetCell, BlankingAnEmptyCellTellsOfTheTagAlone) {
    column(2).iType(flexDTDouble);
    grid.SetCell(1, 2, "0", "tag");
    EXPECT_EQ(heard(), changed(1, 2));
}

// --- The open editor.

TEST_F(SetCell, CommitsTheOpenEditorFirst) {
    typeInto(1, 1, "typed");
    grid.SetCell(2, 2, "written", "tag");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + changed(2, 2) + changed(2, 2));
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(SetCell, CommitsTheOpenEditorAlsoForACellOutsideTheGrid) {
    typeInto(1, 1, "typed");
    grid.SetCell(6, 2, "nowhere");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(SetCell, OverwritesWhatItHasCommitted) {
    typeInto(1, 1, "typed");
    grid.SetCell(1, 1, "written", "tag");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + changed(1, 1) + changed(1, 1));
    EXPECT_EQ(text(1, 1), "written");
}

TEST_F(SetCell, CommitsNothingWhenTheEditorIsHidden) {
    grid.Text("set by the host");
    grid.SetCell(2, 2, "written");
    EXPECT_EQ(heard(), changed(2, 2));
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(SetCell, InAfterEditDoesNotCommitAgain) {
    grid.AfterEdit.connect([this](std::int32_t row, std::int32_t) { grid.SetCell(row, 5, "by the host"); });
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + changed(1, 5));
    EXPECT_EQ(text(1, 5), "by the host");
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(SetCell, InAfterEditOfItsOwnCommitDoesNotCommitAgain) {
    grid.AfterEdit.connect([this](std::int32_t row, std::int32_t) { grid.SetCell(row, 5, "by the host"); });
    typeInto(1, 1, "typed");
    grid.SetCell(2, 2, "written");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + changed(1, 5) + changed(2, 2));
}

TEST_F(SetCell, InCellChangedOfACommitDoesNotCommitAgain) {
    typeInto(1, 1, "typed");
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (col == 1) grid.SetCell(row, 5, "by the host");
    });
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(heard(), changed(1, 1) + changed(1, 5) + edited(1, 1));
}

TEST_F(SetCell, LeavesARefusedTextAloneUntilItIsChanged) {
    refusesCodes(1);
    typeInto(1, 1, "X9");
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(named(heard(), "TxtValidBmS").size(), 1u);
    desk.clear();
    grid.SetCell(2, 2, "written");
    EXPECT_EQ(heard(), changed(2, 2));
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "X9");
    desk.type("Y");
    heard();
    grid.SetCell(2, 2, "again");
    EXPECT_EQ(named(heard(), "TxtValidBmS").size(), 1u);
    EXPECT_EQ(text(2, 2), "again");
}

TEST_F(SetCell, WritesAlsoWhenItsCommitIsRefused) {
    column(1).iType(flexDTDouble);
    typeInto(1, 1, "1+");
    grid.SetCell(2, 2, "written");
    EXPECT_EQ(heard(), changed(2, 2));
    EXPECT_EQ(text(2, 2), "written");
    EXPECT_TRUE(desk.editor().visible);
}

// --- Failures.

TEST_F(SetCell, ShowsTheErrorOfAHostAndGivesUpTheRest) {
    auto failing = grid.CellChanged.connect(Boom());
    EXPECT_NO_THROW(grid.SetCell(2, 2, "text", "tag"));
    EXPECT_EQ(boxes(), Lines{"错误|16|SetCell Error::boom"});
    EXPECT_EQ(tag(2, 2), "tag");
    EXPECT_EQ(text(2, 2), "");
    failing.disconnect();
    desk.clear();
    grid.SetCell(2, 2, "text", "tag");
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_EQ(text(2, 2), "text");
}

TEST_F(SetCell, KeepsWhatWasWrittenBeforeTheError) {
    grid.CellChanged.connect(Boom());
    grid.SetCell(2, 2, "text");
    EXPECT_EQ(boxes(), Lines{"错误|16|SetCell Error::boom"});
    EXPECT_EQ(text(2, 2), "text");
}

TEST_F(SetCell, LeavesTheTotalWhenTheHostFailsAfterTheWrite) {
    summed(2);
    setUp();
    grid.SetCell(1, 2, "5");
    grid.CellChanged.connect(Boom());
    grid.SetCell(2, 2, "7");
    EXPECT_EQ(boxes(), Lines{"错误|16|SetCell Error::boom"});
    EXPECT_EQ(text(2, 2), "7");
    EXPECT_EQ(grid.ReadSum(2), "5");
}

TEST_F(SetCell, ShowsTheErrorOfItsCommitAndWritesNothing) {
    auto failing = grid.AfterEdit.connect(Boom());
    typeInto(1, 1, "typed");
    EXPECT_NO_THROW(grid.SetCell(2, 2, "text", "tag"));
    EXPECT_EQ(boxes(), Lines{"错误|16|SetCell Error::boom"});
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_EQ(text(2, 2), "");
    EXPECT_EQ(tag(2, 2), "");

    failing.disconnect();
    desk.clear();
    EXPECT_TRUE(desk.editor().visible);
    grid.SetCell(2, 2, "text", "tag");
    EXPECT_EQ(heard(), edited(1, 1) + changed(2, 2) + changed(2, 2));
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(SetCell, ShowsTheErrorOfTheCodeCheckOfItsCommit) {
    refusesCodes(1);
    auto failing = grid.TxtValidBmS.connect(
        [](const auto&, const auto&, const auto&, const auto&, auto&, auto&) { Boom()(); });
    typeInto(1, 1, "X9");
    grid.SetCell(2, 2, "text");
    EXPECT_EQ(boxes(), Lines{"错误|16|SetCell Error::boom"});
    EXPECT_EQ(text(2, 2), "");
    failing.disconnect();
    grid.TxtValidBmS.connect([](const auto&, const auto&, const auto&, const auto& typed, auto& code,
                                auto& name) { code = name = typed; });
    desk.clear();
    grid.SetCell(2, 2, "text");
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_EQ(text(1, 1), "X9");
    EXPECT_EQ(text(2, 2), "text");
}

TEST_F(SetCell, PutsTheDescriptionDirectlyBehindThePrefix) {
    grid.CellChanged.connect([](std::int32_t, std::int32_t) { throw std::out_of_range(" 第 3 行"); });
    grid.SetCell(2, 2, "text");
    EXPECT_EQ(boxes(), Lines{"错误|16|SetCell Error:: 第 3 行"});
}

TEST_F(SetCell, CallsTheHostAgainFromInsideItsOwnEvent) {
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (col < 4) grid.SetCell(row, col + 1, "x" + std::to_string(col));
    });
    grid.SetCell(1, 2, "start");
    EXPECT_EQ(heard(), changed(1, 2) + changed(1, 3) + changed(1, 4));
    EXPECT_EQ(text(1, 4), "x3");
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(SetCell, SurvivesAHostThatRemovesTheRowsBetweenTagAndText) {
    auto shrinking = grid.CellChanged.connect([this](std::int32_t, std::int32_t) {
        if (grid.Grid().Rows() > 3) grid.Grid().Rows(3);
    });
    EXPECT_NO_THROW(grid.SetCell(5, 2, "text", "tag"));
    EXPECT_EQ(vs().Rows(), 3);
    shrinking.disconnect();
    desk.clear();
    grid.SetCell(2, 2, "fine");
    EXPECT_EQ(text(2, 2), "fine");
    EXPECT_EQ(boxes(), Nothing);
}
}  // namespace
}  // namespace kxVsGrid::testing
