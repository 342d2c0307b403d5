// Texts that are no values, numbers that do not fit, functions of the host that throw.
#include <stdexcept>

#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

const CellMark* problemAt(kxGrid& grid, std::int32_t row, std::int32_t col) {
    const CellMark* const mark = grid.Mark(row, col);
    return mark && mark->kind == CellMark::Kind::Problem ? mark : nullptr;
}

class BadInput : public OrderSheet {};

TEST_F(BadInput, AnOverflowLeavesTheComputedCellEmptyWithAProblemAndAFault) {
    loaded();
    type(1, Quantity, "999999999999");
    type(1, Price, "999999999999");
    EXPECT_EQ(text(1, Amount), "");
    ASSERT_NE(problemAt(grid, 1, Amount), nullptr);
    EXPECT_NE(problemAt(grid, 1, Amount)->text, "");
    EXPECT_GT(problemAt(grid, 1, Amount)->text[0] & 0x80, 0) << problemAt(grid, 1, Amount)->text;
    const auto fault = sheet.firstFault();
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->col, Amount);
    EXPECT_EQ(fault->where, "第 1 行的金额");
    type(1, Price, "1");
    EXPECT_EQ(text(1, Amount), "999999999999");
    EXPECT_EQ(problemAt(grid, 1, Amount), nullptr);
    EXPECT_FALSE(sheet.firstFault().has_value());
}

TEST_F(BadInput, UndoAndRedoTakeTheProblemAwayAndPutItBack) {
    loaded();
    type(1, Quantity, "999999999999");
    type(1, Price, "999999999999");
    grid.History().Undo();
    EXPECT_EQ(text(1, Amount), "1499999999998.5");
    EXPECT_EQ(problemAt(grid, 1, Amount), nullptr);
    grid.History().Redo();
    EXPECT_EQ(text(1, Amount), "");
    EXPECT_NE(problemAt(grid, 1, Amount), nullptr);
    EXPECT_TRUE(sheet.firstFault().has_value());
}

TEST_F(BadInput, ANumberThatDoesNotFitIsRefusedAsItIsTyped) {
    loaded();
    grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
    grid.Grid().Select(1, Price);
    desk.type("1234567890123456789").press(Key::Enter);
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "1234567890123456789");
    desk.press(Key::Escape);
    EXPECT_EQ(text(1, Price), "1.5");
    grid.Grid().Select(1, Price);
    desk.type("999999999999*999999999999").press(Key::Enter);
    desk.press(Key::Escape);
    EXPECT_EQ(text(1, Price), "1.5");
}

TEST_F(BadInput, ATextOfTheHostThatIsNoValueIsAFaultAndIsNotHandedOut) {
    loaded();
    {
        auto step = grid.Step("by the host");
        grid.SetCell(2, Price, "5 about");
    }
    EXPECT_EQ(text(2, Price), "5 about");
    EXPECT_EQ(text(2, Amount), "");
    EXPECT_TRUE(sheet.modified());
    const auto fault = sheet.firstFault();
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->where, "第 2 行的单价");
    EXPECT_EQ(fault->row, 2);
    EXPECT_EQ(fault->col, Price);
    EXPECT_THROW(static_cast<void>(sheet.records()), UnreadableCell);
    EXPECT_THROW(static_cast<void>(sheet.record(2)), UnreadableCell);
    EXPECT_NO_THROW(static_cast<void>(sheet.record(1)));
    try {
        static_cast<void>(sheet.changes());
        FAIL() << "it was handed out";
    } catch (const UnreadableCell& error) {
        EXPECT_EQ(error.fault.row, 2);
        EXPECT_EQ(error.fault.col, Price);
        EXPECT_NE(std::string(error.what()).find("第 2 行的单价"), std::string::npos) << error.what();
    }
    grid.History().Undo();
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(sheet.records().size(), 3u);
}

TEST_F(BadInput, ShowingAFaultGoesThere) {
    loaded();
    {
        auto step = grid.Step("by the host");
        grid.SetCell(3, Price, "5 about");
    }
    grid.Grid().Select(1, Code);
    const auto fault = sheet.firstFault();
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(grid.Row(), 1);
    fault->show();
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), Price);
}

/// A column that the host computes as he likes.
struct ComputingSheet : SheetDesk {
    struct Line {
        std::string name;
        Decimal number;
        Decimal made;
        std::string told;
    };
    ComputingSheet() {
        sheet.text("name", "名称", &Line::name);
        sheet.number("number", "数", &Line::number);
        sheet.number("made", "所得", &Line::made).computed([this](const Line& line) { return make(line); });
        sheet.text("told", "说明", &Line::told).computed([this](const Line& line) { return tell(line); });
        sheet.load(std::vector<Line>{{"a", 1, 0, ""}, {"b", 2, 0, ""}});
        desk.focusGrid();
    }
    std::function<Decimal(const Line&)> make = [](const Line& line) { return line.number * 2; };
    std::function<std::string(const Line&)> tell = [](const Line& line) { return line.made.text() + "!"; };
    Sheet<Line> sheet{grid};
};

TEST_F(ComputingSheet, WhatThrowsLeavesItsCellEmptyWithTheReasonAndTheOthersGoOn) {
    make = [](const Line& line) -> Decimal {
        if (line.number == 7) throw std::runtime_error("七不行");
        return line.number * 2;
    };
    type(1, 2, "7");
    EXPECT_EQ(text(1, 3), "");
    ASSERT_NE(problemAt(grid, 1, 3), nullptr);
    EXPECT_EQ(problemAt(grid, 1, 3)->text, "七不行");
    EXPECT_EQ(text(1, 4), "0!");
    EXPECT_EQ(text(1, 2), "7");
    const auto fault = sheet.firstFault();
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->text(), "第 1 行的所得：七不行");
    EXPECT_TRUE(desk.messages().empty());
    type(1, 2, "8");
    EXPECT_EQ(text(1, 3), "16");
    EXPECT_EQ(problemAt(grid, 1, 3), nullptr);
    grid.History().Undo();
    EXPECT_EQ(text(1, 3), "");
    EXPECT_NE(problemAt(grid, 1, 3), nullptr);
    grid.History().Undo();
    EXPECT_EQ(text(1, 3), "2");
    EXPECT_EQ(problemAt(grid, 1, 3), nullptr);
}

TEST_F(ComputingSheet, WhatThrowsNoExceptionOfTheLibraryIsAProblemToo) {
    make = [](const Line& line) -> Decimal {
        if (line.number == 7) throw 7;
        return line.number;
    };
    type(1, 2, "7");
    EXPECT_EQ(text(1, 3), "");
    ASSERT_NE(problemAt(grid, 1, 3), nullptr);
    EXPECT_NE(problemAt(grid, 1, 3)->text, "");
    type(1, 2, "6");
    EXPECT_EQ(text(1, 3), "6");
}

TEST_F(ComputingSheet, ALineThatThrowsAsItIsLoadedIsLoadedWithAProblem) {
    make = [](const Line& line) -> Decimal {
        if (line.number == 7) throw std::runtime_error("七不行");
        return line.number;
    };
    sheet.load(std::vector<Line>{{"a", 1, 0, ""}, {"b", 7, 0, ""}, {"c", 3, 0, ""}});
    EXPECT_EQ(text(2, 3), "");
    EXPECT_NE(problemAt(grid, 2, 3), nullptr);
    EXPECT_EQ(text(3, 3), "3");
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    ASSERT_EQ(sheet.faults().size(), 1u);
    sheet.load(std::vector<Line>{{"a", 1, 0, ""}, {"b", 2, 0, ""}});
    EXPECT_EQ(problemAt(grid, 2, 3), nullptr);
    EXPECT_TRUE(sheet.faults().empty());
}

TEST_F(ComputingSheet, RecomputesWhatFollowsFromSomethingElse) {
    Decimal factor = 2;
    make = [&](const Line& line) { return line.number * factor; };
    factor = 3;
    sheet.recompute();
    EXPECT_EQ(text(1, 3), "3");
    EXPECT_EQ(text(2, 3), "6");
    EXPECT_EQ(text(2, 4), "6!");
    EXPECT_TRUE(sheet.modified());
    EXPECT_TRUE(grid.History().Undo());  // nothing that anybody entered
    EXPECT_EQ(text(2, 3), "6");
    EXPECT_TRUE(sheet.modified());
    factor = 2;
    sheet.recompute();
    EXPECT_EQ(text(2, 3), "4");
    EXPECT_FALSE(sheet.modified());
}

TEST_F(ComputingSheet, WhatAComputedColumnDoesToTheGridIsNotLost) {
    // A host who reads the grid as it is made.
    make = [&](const Line& line) {
        static_cast<void>(sheet.modified());
        static_cast<void>(sheet.records());
        static_cast<void>(grid.Text());
        return line.number * 2;
    };
    type(1, 2, "5");
    EXPECT_EQ(text(1, 3), "10");
    EXPECT_TRUE(sheet.modified());
}

#ifndef NDEBUG
TEST_F(ComputingSheet, ReportsAColumnThatDoesNotSettleByItsNameAndLosesNothing) {
    int count = 0;
    make = [&](const Line&) { return Decimal(++count); };
    std::string said;
    try {
        type(1, 2, "5");
    } catch (const GridError& error) {
        said = error.what();
    }
    if (said.empty() && !desk.messages().empty()) said = desk.messages().back().text;
    EXPECT_NE(said.find("made"), std::string::npos) << said;
    EXPECT_EQ(text(1, 2), "5");
    make = [](const Line& line) { return line.number * 2; };
    desk.press(Key::Escape);
    type(2, 2, "6");
    EXPECT_EQ(text(2, 3), "12");
    EXPECT_TRUE(sheet.modified());
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(text(2, 2), "2");
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(text(1, 2), "1");
}
#endif

/// Members that are whole numbers, days and moments.
struct OtherKinds : ::testing::Test {
    struct Line {
        std::string name;
        std::int16_t small = 0;
        std::optional<Date> day;
        std::optional<DateTime> moment;
    };
    OtherKinds() {
        sheet.text("name", "名称", &Line::name);
        sheet.number("small", "小数目", &Line::small);
        sheet.date("day", "日期", &Line::day);
        sheet.moment("moment", "时刻", &Line::moment);
        sheet.load(std::vector<Line>{{"a", 1, {}, {}}});
        grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
        desk.focusGrid();
    }
    bool refused(std::int32_t col, std::string_view typed) {
        grid.Grid().Select(1, col);
        desk.type(typed).press(Key::Enter);
        const bool open = desk.editor().visible;
        if (open) desk.press(Key::Escape);
        return open;
    }
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Line> sheet{grid};
};

TEST_F(OtherKinds, AWholeNumberThatDoesNotFitIsRefused) {
    EXPECT_TRUE(refused(2, "32768"));
    EXPECT_TRUE(refused(2, "99999999999999999999"));
    EXPECT_EQ(sheet.record(1).small, 1);
    EXPECT_FALSE(refused(2, "32767"));
    EXPECT_EQ(sheet.record(1).small, 32767);
    EXPECT_FALSE(refused(2, "-32768"));
    EXPECT_EQ(sheet.record(1).small, -32768);
}

TEST_F(OtherKinds, NothingThatIsTypedIsLeftUnreadable) {
    for (const char* const typed : {"12.5", "1/3", "1e3", "+5", "007", "-0", "5.0", "2*3"}) {
        refused(2, typed);
        EXPECT_NO_THROW(static_cast<void>(sheet.record(1))) << typed << " -> " << grid.Grid().Text(1, 2);
    }
    for (const char* const typed : {"11-23", "2026-2-3", "20261123", "2027-02-29", "0099-01-01", "x"}) {
        refused(3, typed);
        EXPECT_NO_THROW(static_cast<void>(sheet.record(1))) << typed << " -> " << grid.Grid().Text(1, 3);
    }
    for (const char* const typed : {"11-23", "2026-11-23 8:5", "2026-11-23 08:05:09", "25:00", "x"}) {
        refused(4, typed);
        EXPECT_NO_THROW(static_cast<void>(sheet.record(1))) << typed << " -> " << grid.Grid().Text(1, 4);
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
