// Saving in one call, what all lines keep together, live answers about the lines, and lines that a function reads.
#include <memory>
#include <stdexcept>
#include <utility>

#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

class SheetSave : public OrderSheet {
  protected:
    using Changes = RecordChanges<OrderLine>;

    std::optional<Fault> save() {
        return sheet.save([this](Changes& changes) {
            ++written;
            last = changes;
            for (auto& line : changes.added) line.record.id = 100 + written;
            for (auto& line : changes.changed) ++line.after.version;
        });
    }
    /// The editor stays open with it.
    void typeTooHighAPrice(std::int32_t row) {
        sheet.rule(
            "price", [](const OrderLine& line) { return line.price < 100; }, "单价太高");
        grid.Grid().Select(row, Price);
        desk.type("500");
    }
    int written = 0;
    Changes last;
};

TEST_F(SheetSave, TakesOverWhatIsBeingTypedWritesAndAccepts) {
    loaded();
    grid.Grid().Select(2, Price);
    desk.type("9");
    ASSERT_TRUE(desk.editor().visible);
    EXPECT_FALSE(save());
    EXPECT_FALSE(desk.editor().visible);
    ASSERT_EQ(last.changed.size(), 1u);
    EXPECT_EQ(last.changed[0].after.price, 9);
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(sheet.record(2).version, 2);
}

TEST_F(SheetSave, WhatIsRefusedWhileTypedIsNamedWithItsCellAndNothingIsWritten) {
    loaded();
    typeTooHighAPrice(2);
    const auto why = save();
    ASSERT_TRUE(why);
    EXPECT_EQ(why->row, 2);
    EXPECT_EQ(why->col, Price);
    EXPECT_EQ(why->text(), "正在输入的内容没有通过检查");
    EXPECT_EQ(written, 0);
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "500");
}

TEST_F(SheetSave, TheFirstFaultIsGoneToAndNothingIsWritten) {
    loaded();
    sheet.expects(
        "quantity", [](const OrderLine& line) { return line.quantity.has_value(); }, "没有数量");
    type(1, Price, "7");
    const auto why = save();
    ASSERT_TRUE(why);
    EXPECT_EQ(why->text(), "第 2 行的数量：没有数量");
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), Quantity);
    EXPECT_EQ(written, 0);
    EXPECT_TRUE(sheet.modified());
}

TEST_F(SheetSave, WhatTheLinesHaveToKeepTogetherIsAskedWhenEveryCellIsRight) {
    loaded();
    std::size_t asked = 0;
    sheet.together([&](const std::vector<OrderLine>& lines) {
        asked = lines.size();
        return sheet.sum("quantity") == 2 ? std::string() : "合计不是 2";
    });
    type(1, Quantity, "3");
    auto why = save();
    ASSERT_TRUE(why);
    EXPECT_EQ(asked, 3u);
    EXPECT_EQ(why->text(), "合计不是 2");
    EXPECT_EQ(why->row, -1);
    EXPECT_EQ(written, 0);
    why->show();
    type(1, Quantity, "2");
    EXPECT_FALSE(save());
    EXPECT_EQ(written, 1);
}

TEST_F(SheetSave, WhatFailsToBeWrittenIsStillToBeSaved) {
    loaded();
    type(1, Price, "7");
    EXPECT_THROW(sheet.save([](Changes&) { throw std::runtime_error("the server has gone"); }),
                 std::runtime_error);
    EXPECT_TRUE(sheet.modified());
    EXPECT_EQ(sheet.changes().changed.size(), 1u);
    EXPECT_FALSE(save());
    EXPECT_FALSE(sheet.modified());
}

TEST_F(SheetSave, IsCalledWithNoChangesWhereNothingIsModified) {
    loaded();
    EXPECT_FALSE(save());
    EXPECT_EQ(written, 1);
    EXPECT_TRUE(last.empty());
}

TEST_F(SheetSave, CommitTellsWhetherTheEditorCouldBeClosed) {
    loaded();
    EXPECT_TRUE(sheet.commit());
    typeTooHighAPrice(2);
    EXPECT_FALSE(sheet.commit());
    desk.press(Key::Escape);
    EXPECT_TRUE(sheet.commit());
}

TEST_F(SheetSave, ALineThatIsRefusedIsGoneToAndNamed) {
    loaded();
    type(1, Price, "7");
    type(3, Price, "8");
    grid.Grid().Select(1, Code);
    const auto why = sheet.save(
        [](Changes& changes) { throw LineRefused(changes.changed.back().row, "别人已经修改了这一行"); });
    ASSERT_TRUE(why);
    EXPECT_EQ(why->text(), "第 3 行：别人已经修改了这一行");
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_TRUE(sheet.modified());
}

TEST_F(SheetSave, WhatSomebodyElseHasSavedIsComparedWithFromThenOn) {
    loaded();
    type(1, Price, "7");
    const RowId row = grid.Grid().IdOf(1);
    OrderLine theirs = line(11, "A1", "5", "1.5");
    theirs.version = 9;
    sheet.storedAs(row, theirs);
    EXPECT_EQ(text(1, Price), "7");
    EXPECT_EQ(sheet.record(1).version, 9);
    ASSERT_EQ(sheet.changes().changed.size(), 1u);
    EXPECT_EQ(sheet.changes().changed[0].before, theirs);
    EXPECT_EQ(sheet.changes().changed[0].after.quantity, number("2"));
    EXPECT_THROW(sheet.storedAs(grid.Grid().IdOf(4), theirs), GridError);
}

TEST_F(SheetSave, LinesThatAreLoadedWhileTheyAreWrittenAreAsTheyAreSaved) {
    loaded();
    type(1, Price, "7");
    EXPECT_FALSE(
        sheet.save([this](Changes&) { sheet.load(std::vector<OrderLine>{line(21, "N", "1", "1")}); }));
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    EXPECT_EQ(sheet.records().front().id, 21);
}

TEST_F(SheetSave, ChangesOfLinesThatAreNotThereAnyMoreAreNotAccepted) {
    loaded();
    type(1, Price, "7");
    const auto changes = sheet.changes();
    sheet.load(std::vector<OrderLine>{line(21, "N", "1", "1")});
    EXPECT_THROW(sheet.accept(changes), GridError);
    EXPECT_FALSE(sheet.modified());
}

TEST_F(SheetSave, WhatIsBeingTypedIsAStepOfItsOwnWhereTheClerkIsTakenElsewhere) {
    loaded();
    bool told = false;
    const ScopedConnection heard = sheet.onModified([&](bool modified) { told = modified; });
    grid.Grid().Select(1, Price);
    desk.type("10");
    sheet.goTo(3, "code");
    EXPECT_EQ(text(1, Amount), "20");
    EXPECT_TRUE(told);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(text(1, Amount), "3");
}

TEST_F(SheetSave, TheClerkStaysWithWhatIsRefusedWhereverHeIsToBeTaken) {
    loaded();
    typeTooHighAPrice(1);
    sheet.goTo(3, "code");
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(desk.editor().text, "500");
}

/// Sheet and control go while the host is asked, as when a window is closed under a message box.
class SheetGoneWhileSaved : public SheetDesk {
  protected:
    SheetGoneWhileSaved() {
        sheet = std::make_unique<Sheet<OrderLine>>(grid);
        sheet->text("code", "货号", &OrderLine::code);
        sheet->load(std::vector<OrderLine>{{}});
        grid.SetCell(1, 1, "x");
    }
    void go() {
        sheet.reset();
        desk.remove(grid);
    }
    std::unique_ptr<Sheet<OrderLine>> sheet;
};

TEST_F(SheetGoneWhileSaved, WhileItsLinesAreLookedAtTogether) {
    sheet->together([this](const std::vector<OrderLine>&) {
        go();
        return std::string("太晚");
    });
    sheet->save([](RecordChanges<OrderLine>&) {});
    EXPECT_FALSE(sheet);
}

TEST_F(SheetGoneWhileSaved, WhileItsChangesAreWritten) {
    EXPECT_FALSE(sheet->save([this](RecordChanges<OrderLine>&) { go(); }));
    EXPECT_FALSE(sheet);
}

TEST_F(SheetGoneWhileSaved, WhileAFaultIsPutIntoOtherWords) {
    sheet->expects(
        "code", [](const OrderLine&) { return false; }, "不对");
    sheet->wording([this](const Fault& fault) {
        go();
        return fault.reason;
    });
    sheet->save([](RecordChanges<OrderLine>&) {});
    EXPECT_FALSE(sheet);
}

using SheetChanged = OrderSheet;

TEST_F(SheetChanged, IsToldOnceForEachStepWithEverythingThatFollowsAndForEachLoad) {
    int told = 0;
    Decimal total;
    const ScopedConnection heard = sheet.onChanged([&] {
        ++told;
        total = sheet.sum("amount");
    });
    loaded();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(total, 3);
    type(1, Price, "7");
    EXPECT_EQ(told, 2);
    EXPECT_EQ(total, 14);
    grid.History().Undo();
    EXPECT_EQ(told, 3);
    EXPECT_EQ(total, 3);
    grid.Grid().Select(2, Price);
    EXPECT_EQ(told, 3);
}

TEST_F(SheetChanged, AListenerMayDestroyTheSheetAndIsNotToldAgain) {
    headless::Desk other;
    kxGrid& second = other.place();
    auto dying = std::make_unique<Sheet<OrderLine>>(second);
    dying->text("code", "货号", &OrderLine::code);
    int told = 0;
    const ScopedConnection heard = dying->onChanged([&] {
        ++told;
        dying.reset();
    });
    dying->load(std::vector<OrderLine>{});
    EXPECT_EQ(told, 1);
    EXPECT_FALSE(dying);
    second.SetCell(1, 1, "x");
    EXPECT_EQ(told, 1);
}

TEST_F(SheetChanged, WhoIsToldOfALoadMayLoadOthers) {
    bool once = true;
    const ScopedConnection heard = sheet.onChanged([&] {
        if (std::exchange(once, false)) sheet.load(std::vector<OrderLine>{line(21, "N", "1", "1")});
    });
    loaded();
    EXPECT_EQ(sheet.records().front().id, 21);
}

TEST_F(SheetChanged, AListenerThatThrowsIsHeardOnceTheLinesAreThere) {
    type(1, Code, "x");
    loaded();
    type(1, Price, "7");
    const ScopedConnection heard = sheet.onModified([](bool) { throw std::runtime_error("the window"); });
    const std::vector<OrderLine> lines{line(21, "N", "1", "1")};
    EXPECT_THROW(sheet.load(lines), std::runtime_error);
    EXPECT_EQ(sheet.records(), lines);
    EXPECT_FALSE(sheet.modified());
}

using SheetLoadingEach = OrderSheet;

TEST_F(SheetLoadingEach, LinesMayComeFromAFunctionUntilItAnswersNone) {
    const std::vector<OrderLine> lines = {line(11, "A1", "2", "1.5"), line(12, "B2", "", "4")};
    std::size_t next = 0, told = 0;
    EXPECT_TRUE(sheet.load([&] { return next < lines.size() ? std::optional(lines[next++]) : std::nullopt; },
                           [&](std::size_t, std::size_t total) {
                               told = total;
                               return true;
                           },
                           2));
    EXPECT_EQ(told, 2u);
    EXPECT_EQ(sheet.records(), lines);
    EXPECT_FALSE(sheet.modified());
}

TEST_F(SheetLoadingEach, TheLastLookAtTheProgressCanStillEndIt) {
    const auto lines = loaded();
    EXPECT_FALSE(sheet.load(std::vector<OrderLine>(7, line(1, "x", "1", "1")),
                            [](std::size_t done, std::size_t total) { return done < total; }));
    EXPECT_EQ(sheet.records(), lines);
}

class ZeroSheet : public SheetDesk {
  protected:
    struct Line {
        std::string name;
        Decimal count, rate;
        friend bool operator==(const Line&, const Line&) = default;
    };
    ZeroSheet() {
        sheet.text("name", "名称", &Line::name);
        sheet.number("count", "数", &Line::count).decimals(3);
        sheet.constants("rate", "率", &Line::rate, {"0", "0.06", "0.13"}).preset(Decimal("0.13"));
        sheet.load(std::vector<Line>{{"a", 1, Decimal("0.06")}, {"b", 2, 0}, {"c", 3, 0}});
        desk.focusGrid();
    }
    Sheet<Line> sheet{grid};
};

TEST_F(ZeroSheet, ATypedZeroIsAsBlankAsALoadedOne) {
    type(1, 2, "0");
    EXPECT_EQ(text(1, 2), "");
    type(2, 2, "0.0");
    EXPECT_EQ(text(2, 2), "");
    EXPECT_EQ(sheet.record(2).count, 0);
}

TEST_F(ZeroSheet, AZeroThatIsAConstantIsAValueWhichNoPresetTakesThePlaceOf) {
    EXPECT_EQ(text(2, 3), "0");
    grid.Grid().Select(1, 1);
    desk.press(Key::Down).press(Key::Down);
    EXPECT_EQ(sheet.record(2).rate, 0);
    EXPECT_EQ(sheet.record(3).rate, 0);
    EXPECT_FALSE(sheet.modified());
    type(1, 3, "0");
    EXPECT_EQ(text(1, 3), "0");
}

class DatedSheet : public SheetDesk {
  protected:
    struct Line {
        std::string name;
        std::optional<Date> due;
    };
    DatedSheet() {
        sheet.text("name", "名称", &Line::name);
        sheet.date("due", "日期", &Line::due);
        sheet.rule(
            "due",
            [](const Line& line) {
                return !line.due || *line.due >= Date{2026, 11, 20};
            },
            "太早");
        sheet.load(std::vector<Line>{{"a", {}}, {"b", {}}});
        desk.focusGrid();
    }
    Sheet<Line> sheet{grid};
};

TEST_F(DatedSheet, ARuleSeesADateInWhateverFormItIsEntered) {
    for (const std::string_view typed : {"2026-11-19", "2026/11/19", "11-19", "26.11.19", "20261119"}) {
        grid.Grid().Select(1, 2);
        desk.type(typed).press(Key::Enter);
        EXPECT_TRUE(desk.editor().visible) << typed;
        desk.press(Key::Escape).press(Key::Escape);
        EXPECT_EQ(text(1, 2), "") << typed;
    }
    sheet.load(std::vector<Line>{{"a", {}}, {"b", {}}});
    grid.Grid().Select(1, 2);
    desk.clipboard("2026/11/18\n2026/11/21");
    EXPECT_TRUE(desk.run(Command::Paste)) << desk.ascii();
    EXPECT_EQ(text(1, 2), "");
    EXPECT_EQ(text(2, 2), "2026-11-21") << desk.ascii();
    EXPECT_TRUE(grid.Mark(1, 2));
}

struct Numbered {
    std::int64_t id = 0;
    int number = 0;
    std::string name;
    friend bool operator==(const Numbered&, const Numbered&) = default;
};

class GappedSheet : public SheetDesk {
  protected:
    GappedSheet() {
        sheet.identity(&Numbered::id).position(&Numbered::number);
        sheet.text("name", "名称", &Numbered::name);
        sheet.load(std::vector<Numbered>{{11, 1, "a"}, {12, 2, "b"}, {13, 4, "c"}});
        desk.focusGrid();
    }
    Sheet<Numbered> sheet{grid};
};

TEST_F(GappedSheet, LinesLoadedWithGapsAreNotModified) {
    EXPECT_FALSE(sheet.modified());
    EXPECT_EQ(sheet.records()[2].number, 3);
}

TEST_F(GappedSheet, NoTwoLinesHaveOneNumberAfterALineWasAddedBehindTheGap) {
    type(4, 1, "d");
    const auto changes = sheet.changes();
    ASSERT_EQ(changes.added.size(), 1u);
    EXPECT_EQ(changes.added[0].record.number, 4);
    ASSERT_EQ(changes.changed.size(), 1u);
    EXPECT_EQ(changes.changed[0].before, (Numbered{13, 4, "c"}));
    EXPECT_EQ(changes.changed[0].after, (Numbered{13, 3, "c"}));
}

TEST_F(GappedSheet, LoadedInAnotherOrderThanTheirNumbersLinesAreNotModified) {
    sheet.load(std::vector<Numbered>{{12, 2, "b"}, {11, 1, "a"}});
    EXPECT_FALSE(sheet.modified());
    EXPECT_FALSE(sheet.moved());
    EXPECT_TRUE(sheet.changes().empty());
    type(1, 1, "B");
    EXPECT_EQ(sheet.changes().changed.size(), 2u);
}

TEST_F(GappedSheet, WhatALineIsKnownByIsSaidBeforeTheFirstLoad) {
    EXPECT_THROW(sheet.position(&Numbered::number), GridError);
    EXPECT_THROW(sheet.identity(&Numbered::id), GridError);
    EXPECT_THROW(sheet.inUse([](const Numbered&) { return true; }), GridError);
}

struct Preset {
    std::string name, unit;
    friend bool operator==(const Preset&, const Preset&) = default;
};

TEST(PresetSheet, WhoStandsInAnotherRowSinceHisHasGoneHasItsPresets) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Preset> sheet(grid);
    sheet.text("name", "名称", &Preset::name);
    sheet.text("unit", "单位", &Preset::unit).preset("袋");
    sheet.load(std::vector<Preset>{{"a", "箱"}});
    desk.focusGrid();
    ASSERT_TRUE(desk.run(Command::DeleteRows));
    EXPECT_EQ(grid.Grid().Text(1, 2), "袋");
    desk.type("b").press(Key::Enter);
    EXPECT_EQ(sheet.records(), (std::vector<Preset>{{"b", "袋"}}));
}

TEST(PresetSheet, APresetMayBeSaidBeforeTheLoadAndHasToBeAValueOfItsColumn) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    struct Line {
        std::string name;
        Decimal count;
    };
    Sheet<Line> sheet(grid);
    sheet.text("name", "名称", &Line::name);
    sheet.preset("name", std::string("x"));
    sheet.number("count", "数", &Line::count);
    EXPECT_THROW(sheet.preset("count", std::string("x")), GridError);
    sheet.load(std::vector<Line>{});
    EXPECT_EQ(grid.Grid().Text(1, 1), "x");
}

TEST(PresetSheet, TheFirstRowOfAnEmptySheetHasThePresetsTooAndIsNoLine) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Preset> sheet(grid);
    sheet.text("name", "名称", &Preset::name);
    sheet.text("unit", "单位", &Preset::unit).preset("袋");
    sheet.load(std::vector<Preset>{});
    EXPECT_EQ(grid.Grid().Text(1, 2), "袋");
    EXPECT_FALSE(sheet.modified());
    EXPECT_FALSE(grid.History().CanUndo());
    EXPECT_TRUE(sheet.records().empty());
    desk.focusGrid();
    desk.type("a").press(Key::Enter);
    EXPECT_EQ(sheet.records(), (std::vector<Preset>{{"a", "袋"}}));
    sheet.load(std::vector<Preset>{{"b", ""}});
    EXPECT_EQ(grid.Grid().Text(1, 2), "");
    EXPECT_FALSE(sheet.modified());
}

TEST(CopiedRow, HasARowBelowItToTypeInto) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Preset> sheet(grid);
    sheet.text("name", "名称", &Preset::name);
    sheet.text("unit", "单位", &Preset::unit).enterToNextRow("name");
    sheet.load(std::vector<Preset>{{"a", "箱"}, {"b", "袋"}});
    desk.focusGrid();
    grid.Grid().Select(1, 1);
    const std::int32_t rows = grid.Rows();
    ASSERT_TRUE(desk.run(Command::DuplicateRow));
    EXPECT_EQ(sheet.records().back().name, "a");
    sheet.goTo(sheet.endRow(), "name");
    EXPECT_FALSE(sheet.isInUse(grid.Row()));
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(grid.Rows(), rows);
}
}  // namespace
}  // namespace kxVsGrid::testing
