// Sheets that come and go, and hosts who take them, their rows or the control away in the middle of something.
#include <functional>
#include <memory>
#include <stdexcept>

#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

/// A sheet that can be taken away.
struct SheetThatGoes : SheetDesk {
    struct Line {
        std::string name;
        Decimal number;
        Decimal made;
    };
    std::unique_ptr<Sheet<Line>> place() {
        auto made = std::make_unique<Sheet<Line>>(grid);
        made->text("name", "名称", &Line::name);
        made->number("number", "数", &Line::number).decimals(2);
        made->number("made", "所得", &Line::made).computed([this](const Line& line) {
            if (computing) computing();
            return line.number * 2;
        });
        made->rule(
            "number",
            [this](const Line& line) {
                if (ruling) ruling();
                return line.number != 13;
            },
            "不能是十三");
        made->load(std::vector<Line>{{"a", 1, 0}, {"b", 2, 0}});
        desk.focusGrid();
        return made;
    }
    /// Loads while somebody listens who takes sheet and control away, once.
    template <class Listen>
    void loadUntilGone(Listen listen) {
        auto sheet = place();
        bool gone = false;
        listen([&] {
            if (gone) return;
            gone = true;
            sheet.reset();
            desk.remove(grid);
        });
        Sheet<Line>& loading = *sheet;
        loading.load(std::vector<Line>{{"c", 3, 0}, {"d", 4, 0}});
        EXPECT_TRUE(gone);
    }
    std::function<void()> computing, ruling;
};

TEST_F(SheetThatGoes, MakesRoomForAnotherOne) {
    auto first = place();
    EXPECT_THROW(place(), GridError);
    EXPECT_EQ(text(1, 1), "a");
    type(1, 2, "5");
    EXPECT_EQ(text(1, 3), "10");
    first.reset();
    auto second = place();
    EXPECT_EQ(second->records().size(), 2u);
    type(1, 2, "7");
    EXPECT_EQ(text(1, 3), "14");
    EXPECT_TRUE(second->modified());
    type(1, 2, "1");
    EXPECT_FALSE(second->modified());
}

TEST_F(SheetThatGoes, LeavesAGridInWhichTheClerkGoesOn) {
    auto sheet = place();
    type(1, 2, "5");
    sheet.reset();
    type(1, 2, "7");
    EXPECT_EQ(text(1, 2), "7");
    EXPECT_EQ(text(1, 3), "10");
    type(2, 2, "13");
    EXPECT_EQ(text(2, 2), "13");
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(text(1, 2), "1");
    desk.press(Key::Insert).press(Key::Delete);
}

TEST_F(SheetThatGoes, MayGoWhileItTellsThatItIsModified) {
    auto sheet = place();
    int told = 0;
    sheet->onModified([&](bool) {
        ++told;
        sheet.reset();
    });
    type(1, 2, "5");
    EXPECT_EQ(told, 1);
    EXPECT_EQ(text(1, 3), "10");
    type(1, 2, "6");
    EXPECT_EQ(told, 1);
    EXPECT_EQ(text(1, 2), "6");
}

TEST_F(SheetThatGoes, MayGoWhileItComputes) {
    auto sheet = place();
    computing = [&] { sheet.reset(); };
    type(1, 2, "5");
    EXPECT_EQ(text(1, 2), "5");
    computing = nullptr;
    type(2, 2, "6");
    EXPECT_EQ(text(2, 2), "6");
}

TEST_F(SheetThatGoes, MayGoWhileItAsksARule) {
    auto sheet = place();
    ruling = [&] { sheet.reset(); };
    type(1, 2, "5");
    ruling = nullptr;
    desk.press(Key::Escape);
    type(2, 2, "6");
    EXPECT_EQ(text(2, 2), "6");
}

TEST_F(SheetThatGoes, ItsFaultGoesNowhereAfterwards) {
    auto sheet = place();
    {
        auto step = grid.Step("by the host");
        grid.SetCell(2, 2, "5x");
    }
    const auto fault = sheet->firstFault();
    ASSERT_TRUE(fault.has_value());
    const std::int32_t row = grid.Row();
    sheet.reset();
    fault->show();
    EXPECT_EQ(grid.Row(), row);
}

TEST_F(SheetThatGoes, TheControlMayGoWhileItComputes) {
    auto sheet = place();
    bool gone = false;
    computing = [&] {
        if (gone) return;
        gone = true;
        sheet.reset();
        desk.remove(grid);
    };
    grid.Grid().Select(1, 2);
    desk.type("5").press(Key::Enter);
    EXPECT_TRUE(gone);
}

TEST_F(SheetThatGoes, TheControlMayGoWhileTheSheetWritesWhatItComputed) {
    auto sheet = place();
    bool gone = false;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t col) {
        if (col != 3 || gone) return;
        gone = true;
        sheet.reset();
        desk.remove(grid);
    });
    grid.Grid().Select(1, 2);
    desk.type("5").press(Key::Enter);
    EXPECT_TRUE(gone);
}

TEST_F(SheetThatGoes, TheSheetMayGoInTheProgressOfItsLoad) {
    auto sheet = place();
    EXPECT_FALSE(sheet->load(std::vector<Line>(10000), [&](std::size_t, std::size_t) {
        sheet.reset();
        return true;
    }));
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(SheetThatGoes, TheControlMayGoWhileLinesAreLoaded) {
    loadUntilGone([this](const std::function<void()>& go) {
        grid.CellChanged.connect([go](std::int32_t, std::int32_t col) {
            if (col == 2) go();
        });
    });
}

TEST_F(SheetThatGoes, TheControlMayGoAsTheCurrentCellMovesToTheFirstLine) {
    loadUntilGone([this](const std::function<void()>& go) {
        grid.Grid().Select(2, 2);
        grid.RowColChange.connect(go);
    });
}

TEST_F(SheetThatGoes, ARowMayGoWhileTheSheetWritesWhatItComputed) {
    auto sheet = place();
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        if (col != 3 || !once) return;
        once = false;
        grid.Grid().RemoveRow(row);
    });
    type(1, 2, "5");
    EXPECT_FALSE(once);
    ASSERT_EQ(sheet->records().size(), 1u);
    EXPECT_EQ(sheet->records()[0].name, "b");
    EXPECT_EQ(sheet->records()[0].made, 4);
    EXPECT_EQ(sheet->changes().removed.size(), 1u);
    EXPECT_TRUE(sheet->modified());
}

TEST_F(SheetThatGoes, AListenerMayThrowWhileTheSheetWritesWhatItComputed) {
    auto sheet = place();
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t col) {
        if (col != 3 || !once) return;
        once = false;
        throw std::runtime_error("the host's own");
    });
    try {
        type(1, 2, "5");
    } catch (const std::runtime_error&) {
    }
    EXPECT_FALSE(once);
    EXPECT_TRUE(sheet->modified());
    desk.press(Key::Escape);
    type(2, 2, "6");
    EXPECT_EQ(text(2, 3), "12");
}

TEST_F(SheetThatGoes, ARuleThatThrowsTakesNothingAway) {
    auto sheet = place();
    ruling = [] { throw std::runtime_error("no database"); };
    try {
        type(1, 2, "5");
    } catch (const std::runtime_error&) {
    }
    ruling = nullptr;
    desk.press(Key::Escape);
    type(1, 2, "6");
    EXPECT_EQ(text(1, 3), "12");
}

using SheetColumns = OrderSheet;

TEST_F(SheetColumns, RefuseANameThatIsTaken) {
    EXPECT_THROW(sheet.text("name", "又一个", &OrderLine::name), GridError);
    loaded();
    EXPECT_EQ(grid.Cols(), 7);
}

TEST_F(SheetColumns, RefuseNamesThatNobodyHas) {
    loaded();
    EXPECT_THROW(static_cast<void>(sheet.col("nobody")), GridError);
    EXPECT_THROW(static_cast<void>(sheet.sum("nobody")), GridError);
    EXPECT_EQ(sheet.col("price"), Price);
}

TEST_F(SheetColumns, RefuseARuleOfNobodysColumn) {
    EXPECT_THROW(sheet.rule(
                     "nobody", [](const OrderLine&) { return true; }, "x"),
                 GridError);
    loaded();
}

TEST(SheetPaths, RefuseAWayToNobodysColumn) {
    headless::Desk desk;
    Sheet<OrderLine> sheet(desk.place());
    sheet.text("code", "货号", &OrderLine::code).enterTo("nobody");
    EXPECT_THROW(sheet.load(std::vector<OrderLine>{}), GridError);
}

TEST_F(SheetColumns, HaveNoSumOfWhatIsNoNumber) {
    loaded();
    EXPECT_THROW(static_cast<void>(sheet.sum("name")), GridError);
}

TEST_F(SheetColumns, AnswerNothingForARowThatHasGone) {
    loaded();
    const RowId row = grid.Grid().IdOf(2);
    EXPECT_EQ(sheet.find(row)->code, "B2");
    grid.Grid().Select(2, Code);
    EXPECT_TRUE(desk.run(Command::DeleteRows));
    EXPECT_FALSE(sheet.find(row).has_value());
    grid.History().Undo();
    EXPECT_TRUE(sheet.find(row).has_value());
    for (const std::int32_t outside : {-1, 0, grid.Rows(), 1000000}) {
        EXPECT_THROW(static_cast<void>(sheet.record(outside)), GridError) << outside;
        EXPECT_THROW(sheet.put(outside, OrderLine()), GridError) << outside;
        EXPECT_THROW(sheet.edit(outside, [](OrderLine&) {}), GridError) << outside;
        EXPECT_THROW(static_cast<void>(sheet.isInUse(outside)), GridError) << outside;
    }
}

TEST(SheetBeforeItsLoad, AnswersThatThereIsNothing) {
    headless::Desk desk;
    Sheet<OrderLine> sheet(desk.place());
    sheet.text("code", "货号", &OrderLine::code);
    EXPECT_FALSE(sheet.modified());
    EXPECT_TRUE(sheet.changes().empty());
    EXPECT_TRUE(sheet.records().empty());
    EXPECT_TRUE(sheet.faults().empty());
    EXPECT_THROW(static_cast<void>(sheet.record(1)), GridError);
}

TEST(SheetBeforeItsLoad, WithoutColumnsHoldsNothing) {
    headless::Desk desk;
    Sheet<OrderLine> sheet(desk.place());
    EXPECT_THROW(sheet.load(std::vector<OrderLine>(3)), GridError);
    EXPECT_TRUE(sheet.records().empty());
    EXPECT_FALSE(sheet.modified());
}
}  // namespace
}  // namespace kxVsGrid::testing
