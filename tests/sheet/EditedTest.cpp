// What a host makes of what a clerk does to the lines of a sheet, and how it says what is wrong with them.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/sheet/Sheet.h"

namespace kxVsGrid::testing {
namespace {

struct Item {
    std::string code, name;
};

struct KeyedLine {
    std::string code, name, unit, place, note;
    std::optional<Decimal> quantity;
    Date day;
    std::string stamp;

    friend bool operator==(const KeyedLine&, const KeyedLine&) = default;
};

class KeyedSheet : public ::testing::Test {
  protected:
    enum Column : std::int32_t { Number, Code, Name, Unit, Quantity, Place, Day, Note, Stamp };

    KeyedSheet() {
        sheet.code("code", "货号", &KeyedLine::code, Codes<Item>({{"1", "甲"}, {"2", "乙"}}, &Item::code))
            .found([](KeyedLine& line, const Item& item) { line.name = item.name; });
        sheet.text("name", "品名", &KeyedLine::name).readOnly();
        sheet.constants("unit", "单位", &KeyedLine::unit, {"个", "箱"});
        sheet.number("quantity", "数量", &KeyedLine::quantity).decimals(2);
        sheet.text("place", "仓库", &KeyedLine::place).preset("一仓");
        sheet.date("day", "日期", &KeyedLine::day);
        sheet.text("note", "备注", &KeyedLine::note);
        sheet.text("stamp", "录入", &KeyedLine::stamp).readOnly();
        sheet.inUse([](const KeyedLine& line) { return !line.code.empty() || !line.note.empty(); });
    }
    void load(const std::vector<KeyedLine>& lines = {}) {
        desk.resize(18600, 8000);
        sheet.load(lines);
        desk.focusGrid();
    }
    static KeyedLine item(std::string code, std::string name, int quantity) {
        KeyedLine line;
        line.code = std::move(code);
        line.name = std::move(name);
        line.quantity = quantity;
        line.place = "一仓";
        return line;
    }
    void at(int row, Column col) { grid.Grid().Select(row, col); }
    void enter(int row, Column col, std::string_view text) {
        at(row, col);
        desk.type(text).press(Key::Enter);
    }
    std::string cell(int row, Column col) { return grid.Grid().Text(row, col); }
    std::string problem(int row, Column col) {
        const CellMark* const mark = grid.Mark(row, col);
        return mark && mark->kind == CellMark::Kind::Problem ? mark->text : std::string();
    }
    void fillDown(int row, Column col) {
        desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格"); });
        desk.rightClick(row, col);
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<KeyedLine> sheet{grid};
};

TEST_F(KeyedSheet, WhatFollowsFromATypedCellIsOfItsStep) {
    sheet.edited([](KeyedLine& line, const sheet::Edited& cell) {
        line.stamp = std::string(cell.column) + std::to_string(cell.row) + line.name;
    });
    load();
    enter(1, Code, "2");
    EXPECT_EQ(cell(1, Stamp), "code1乙") << "after what follows from the code";
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_EQ(cell(1, Stamp), "");
    EXPECT_FALSE(sheet.modified());
}

TEST_F(KeyedSheet, EachCellOfAPastedBlockIsEditedAndThoseThatAFillHasWritten) {
    std::vector<std::string> told;
    sheet.edited([&](KeyedLine&, const sheet::Edited& cell) {
        told.push_back(std::string(cell.column) + std::to_string(cell.row) + (cell.filled ? "f" : ""));
    });
    load();
    at(1, Code);
    desk.clipboard("1\n2");
    EXPECT_TRUE(desk.run(Command::Paste));
    EXPECT_EQ(told, (std::vector<std::string>{"code1", "code2"}));
    told.clear();
    at(1, Note);
    desk.type("x").press(Key::Enter);
    fillDown(1, Note);
    EXPECT_EQ(told, (std::vector<std::string>{"note1", "note2f"}));
}

TEST_F(KeyedSheet, WhatCodeWritesAndUndoBringsBackIsNobodysEdit) {
    int told = 0;
    sheet.edited([&](KeyedLine&, const sheet::Edited&) { ++told; });
    load({item("1", "甲", 2)});
    sheet.edit(1, [](KeyedLine& line) { line.note = "x"; });
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_EQ(told, 0);
}

TEST_F(KeyedSheet, WhatALineHasToBeInTheEndCanBeTypedOtherwise) {
    sheet.expects(
        "quantity", [](const KeyedLine& line) { return line.quantity.value_or(0) != 0; }, "不能为零");
    load({item("1", "甲", 2)});
    enter(1, Quantity, "0");
    EXPECT_EQ(cell(1, Quantity), "0");
    ASSERT_TRUE(sheet.firstFault());
    EXPECT_EQ(sheet.firstFault()->reason, "不能为零");
}

TEST_F(KeyedSheet, AHostWordsWhatIsWrongByItsKind) {
    sheet
        .expects(
            "note", [](const KeyedLine&) { return false; }, "规则")
        .wording(
            [](const Fault& fault) { return std::to_string(static_cast<int>(fault.kind)) + fault.reason; });
    KeyedLine line = item("9", "", 2);
    line.unit = "担";
    load({line});
    grid.Grid().Text(1, Day, "某日");
    std::vector<std::string> reasons;
    for (const Fault& fault : sheet.faults()) reasons.push_back(fault.reason);
    ASSERT_FALSE(reasons.empty());
    EXPECT_EQ(reasons.back(), std::to_string(static_cast<int>(FaultKind::Unreadable)) + "“某日”不能识别")
        << "the rest of the line is not known";
    grid.Grid().Text(1, Day, "");
    reasons.clear();
    for (const Fault& fault : sheet.faults()) reasons.push_back(fault.reason);
    ASSERT_EQ(reasons.size(), 3u);
    EXPECT_EQ(reasons[0].front(), std::to_string(static_cast<int>(FaultKind::Unknown)).front());
    EXPECT_EQ(reasons[1].front(), std::to_string(static_cast<int>(FaultKind::Unknown)).front());
    EXPECT_EQ(reasons[2], std::to_string(static_cast<int>(FaultKind::Rule)) + "规则");
}

TEST_F(KeyedSheet, MarksOfFaultsChangeAndGoWithThem) {
    sheet.expects(
        "quantity", [](const KeyedLine& line) { return line.note == "赠" || line.quantity.value_or(0) != 0; },
        "不能为零");
    load({item("1", "甲", 0), item("2", "乙", 0), item("1", "甲", 3)});
    EXPECT_EQ(sheet.markFaults(), 2);
    EXPECT_EQ(problem(1, Quantity), "不能为零");
    enter(1, Quantity, "1-1");
    EXPECT_EQ(problem(1, Quantity), "不能为零");
    enter(1, Quantity, "4");
    EXPECT_EQ(problem(1, Quantity), "");
    enter(2, Note, "赠");
    EXPECT_EQ(problem(2, Quantity), "") << "another cell has put it right";
    EXPECT_EQ(sheet.markFaults(), 0);
    enter(3, Quantity, "0");
    EXPECT_EQ(problem(3, Quantity), "") << "nobody has asked";
    sheet.markFaults();
    sheet.clearMarks();
    EXPECT_EQ(problem(3, Quantity), "");
}

TEST_F(KeyedSheet, SeveralSelectedRowsAreAskedAboutOnceAndGoInOneStep) {
    std::vector<std::vector<std::int32_t>> asked;
    bool agrees = false;
    sheet.mayDelete([&](const std::vector<std::int32_t>& rows) {
        asked.push_back(rows);
        return agrees;
    });
    load({item("1", "甲", 1), item("1", "甲", 2), item("1", "甲", 3), item("1", "甲", 4)});
    const std::vector<std::vector<std::int32_t>> once{{1, 2, 3}};
    for (const bool byKey : {true, false}) {
        for (const bool agreed : {false, true}) {
            agrees = agreed;
            asked.clear();
            at(1, Code);
            grid.Grid().SelectRows(1, 3);
            byKey ? void(desk.press(Key::Delete)) : void(desk.run(Command::DeleteRows));
            EXPECT_EQ(asked, once) << byKey << agreed;
            EXPECT_EQ(sheet.records().size(), agreed ? 1u : 4u);
        }
        EXPECT_TRUE(desk.run(Command::Undo));
        EXPECT_EQ(sheet.records().size(), 4u);
    }
    asked.clear();
    at(2, Code);
    desk.press(Key::Delete);
    EXPECT_EQ(asked, (std::vector<std::vector<std::int32_t>>{{2}}));
    EXPECT_EQ(sheet.records().size(), 3u);
}

TEST_F(KeyedSheet, AnotherPresetGoesToRowsThatAreNoLinesAndHoldTheOneOfBefore) {
    load();
    for (const int row : {2, 3, 4}) at(row, Code);
    enter(3, Code, "1");
    sheet.preset("place", std::string("二仓"));
    EXPECT_EQ(cell(2, Place), "二仓");
    EXPECT_EQ(cell(3, Place), "一仓") << "a line";
    at(5, Code);
    EXPECT_EQ(cell(5, Place), "二仓");
    EXPECT_EQ(cell(1, Place), "二仓") << "where the clerk begins";
}

TEST_F(KeyedSheet, AHostSaysHowManyRowsThereAreAtLeast) {
    sheet.leastRows(9);
    load();
    EXPECT_EQ(grid.Rows() - grid.FixedRows(), 9);
    load(std::vector<KeyedLine>(9, item("1", "甲", 1)));
    EXPECT_EQ(grid.Rows() - grid.FixedRows(), 10);
}

TEST_F(KeyedSheet, LinesThatHaveChangedPlacesHaveMovedUntilTheyAreSaved) {
    load({item("1", "甲", 1), item("2", "乙", 2)});
    at(2, Code);
    EXPECT_TRUE(desk.run(Command::MoveRowDown));
    EXPECT_FALSE(sheet.moved()) << "past a row that is no line";
    EXPECT_TRUE(desk.run(Command::Undo));
    at(2, Code);
    EXPECT_TRUE(desk.run(Command::MoveRowUp));
    EXPECT_TRUE(sheet.moved());
    EXPECT_TRUE(sheet.changes().empty());
    sheet.saved(sheet.records());
    EXPECT_FALSE(sheet.moved());
}

TEST_F(KeyedSheet, AllLinesAreSavedAsTheHostHasThem) {
    load({item("1", "甲", 1)});
    enter(2, Code, "2");
    std::vector<KeyedLine> lines = sheet.records();
    sheet.saved(lines);
    EXPECT_FALSE(sheet.modified());
    enter(2, Quantity, "5");
    ASSERT_EQ(sheet.changes().changed.size(), 1u);
    EXPECT_EQ(sheet.changes().changed[0].before, lines[1]);
    lines.pop_back();
    EXPECT_THROW(sheet.saved(lines), GridError);
}

TEST_F(KeyedSheet, TextsThatAreNoValuesCanCountAsBlank) {
    sheet.unreadable(sheet::Unreadable::Blank);
    load({item("1", "甲", 1)});
    for (const int row : {1, 2}) grid.Grid().Text(row, Day, "某日");
    ASSERT_EQ(sheet.records().size(), 1u) << "a text that says nothing makes no line";
    EXPECT_EQ(sheet.records()[0].day, Date());
    ASSERT_EQ(sheet.faults().size(), 1u);
    EXPECT_EQ(sheet.faults()[0].row, 1);
    EXPECT_EQ(sheet.faults()[0].kind, FaultKind::Unreadable);
}

TEST_F(KeyedSheet, BlanksAroundAConstantAreNone) {
    load({item("1", "甲", 1)});
    enter(1, Unit, "箱");
    enter(1, Unit, " 个 ");
    EXPECT_EQ(cell(1, Unit), "个");
    enter(1, Unit, "  ");
    EXPECT_EQ(cell(1, Unit), "");
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(KeyedSheet, AFillOverWhatFollowsFromACodeLeavesItAsItWas) {
    load({item("1", "甲", 1), item("2", "乙", 2)});
    at(1, Name);
    fillDown(1, Name);
    EXPECT_EQ(cell(2, Name), "乙");
    EXPECT_FALSE(sheet.modified());
}

TEST_F(KeyedSheet, AFillCopiesANumberWithoutTheSignsOfItsLook) {
    KeyedLine line = item("1", "甲", 1);
    line.quantity = Decimal("1234567.5");
    load({line, item("2", "乙", 2)});
    at(1, Quantity);
    fillDown(1, Quantity);
    EXPECT_EQ(cell(2, Quantity), "1234567.5");
    EXPECT_EQ(sheet.record(2).quantity, Decimal("1234567.5"));
}

TEST_F(KeyedSheet, WhatIsEditedIsRoundedBeforeAnythingFollowsFromIt) {
    sheet.edited([](KeyedLine& line, const sheet::Edited& cell) {
        if (cell.column == "quantity") line.note = line.quantity.value_or(0).text();
    });
    load({item("1", "甲", 2)});
    enter(1, Quantity, "1.239");
    EXPECT_EQ(cell(1, Quantity), "1.24");
    EXPECT_EQ(cell(1, Note), "1.24");
}

TEST(SheetInAFunctionOfItsHost, GoesWithItsGridWhileFaultsAreLookedFor) {
    for (const int where : {0, 1, 2}) {
        headless::Desk desk;
        auto grid = std::make_unique<kxGrid>(desk);
        grid->InitProperties();
        auto sheet = std::make_unique<Sheet<KeyedLine>>(*grid);
        bool armed = false;
        const auto end = [&](int here) {
            if (!armed || where != here) return;
            armed = false;
            sheet.reset();
            grid.reset();
        };
        sheet->text("code", "货号", &KeyedLine::code);
        sheet->text("note", "备注", &KeyedLine::note);
        sheet->text("name", "品名", &KeyedLine::name).computed([&](const KeyedLine& line) {
            end(0);
            return line.code;
        });
        sheet->rule(
            "code",
            [&](const KeyedLine&) {
                end(1);
                return true;
            },
            "规则");
        sheet->inUse([&](const KeyedLine& line) {
            end(2);
            return !line.code.empty();
        });
        KeyedLine line;
        line.code = "1";
        sheet->load(std::vector<KeyedLine>(3, line));
        armed = true;
        EXPECT_FALSE(sheet->firstFault());
        EXPECT_FALSE(grid) << where;
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
