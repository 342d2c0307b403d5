// Each allocation of a load, a put and a save fails once. Whatever it was: the sheet is as it was or as it was to be,
// or says that there is nothing, and goes on working.
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "grid/FailingAllocator.h"
#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::size_t MostSheetPoints = 20'000;
constexpr const char* LongName = "不锈钢内六角螺栓 M8 x 40，镀锌";

/// A sheet of its own: three lines, a typed price that can be undone, and marks on what is wrong.
class SheetShortOfMemory : public OrderSheet {
  public:
    using OrderSheet::Amount;
    using OrderSheet::Code;
    using OrderSheet::grid;
    using OrderSheet::line;
    using OrderSheet::Name;
    using OrderSheet::number;
    using OrderSheet::Price;
    using OrderSheet::sheet;
    using OrderSheet::type;

    SheetShortOfMemory() {
        sheet.rule(
            "price", [](const OrderLine& line) { return line.price != 9; }, "9 is no price");
        sheet.load(std::vector<OrderLine>{line(11, "A1", "2", "1.5"), line(12, "B2", "1", "9")});
        desk.focusGrid();
        sheet.markFaults();
        type(1, Price, "7");
        before = sheet.records();
        rows = grid.Rows();
        told.reserve(64);  // hearing of it takes no memory
        sheet.onModified([this](bool modified) { told.push_back(modified); });
    }
    void TestBody() override {}

    /// The sheet tells the truth of what it holds.
    void expectHonest() { EXPECT_EQ(sheet.modified(), !sheet.changes().empty()); }
    bool isAsItWas() {
        return sheet.records() == before && sheet.modified() && grid.Rows() == rows &&
               grid.History().CanUndo();
    }
    /// It takes lines, and what is typed into them.
    void expectToGoOn() {
        const std::vector<OrderLine> others{line(31, "X", "1", "2"), line(32, "Y", "3", "4")};
        EXPECT_TRUE(sheet.load(others));
        EXPECT_EQ(sheet.records(), others);
        EXPECT_FALSE(sheet.modified());
        EXPECT_FALSE(grid.Mark(1, Price));
        EXPECT_FALSE(grid.Mark(2, Price));
        type(2, Price, "5");
        const auto changes = sheet.changes();
        ASSERT_EQ(changes.changed.size(), 1u);
        EXPECT_EQ(changes.changed[0].after.amount, 15);
    }

    std::vector<OrderLine> before;
    std::int32_t rows = 0;
    std::vector<bool> told;
};

/// `run` with each of its allocations failing, each time on a sheet of its own; answers how often `judge` was asked.
std::size_t failEachAllocation(const std::function<void(SheetShortOfMemory&)>& run,
                               const std::function<void(SheetShortOfMemory&)>& judge) {
    for (std::size_t point = 1; point < MostSheetPoints; ++point) {
        SheetShortOfMemory at;
        bool failed = false;
        {
            const FailingAllocation failing(point);
            try {
                run(at);
            } catch (const std::exception&) {
            }
            failed = failing.failed();
        }
        SCOPED_TRACE("allocation " + std::to_string(point));
        if (!failed) return point - 1;
        judge(at);
        at.expectHonest();
        at.expectToGoOn();
        if (::testing::Test::HasFailure()) return point;
    }
    ADD_FAILURE() << "it never ends";
    return 0;
}

std::vector<OrderLine> linesWithLongNames() {
    std::vector<OrderLine> lines;
    for (int i = 0; i < 8; ++i) {
        lines.push_back(SheetShortOfMemory::line(20 + i, "code of " + std::to_string(i), "2", "1.25"));
        lines.back().name = LongName;
    }
    return lines;
}

TEST(SheetOutOfMemory, ALoadLeavesWhatWasThereOrNothingOrIsDone) {
    const std::vector<OrderLine> fresh = linesWithLongNames();
    int asItWas = 0;
    int none = 0;
    const std::size_t points = failEachAllocation([&](SheetShortOfMemory& at) { at.sheet.load(fresh); },
                                                  [&](SheetShortOfMemory& at) {
                                                      if (at.isAsItWas()) {
                                                          ++asItWas;
                                                          EXPECT_TRUE(at.told.empty());
                                                          return;
                                                      }
                                                      const std::vector<OrderLine> now = at.sheet.records();
                                                      none += now.empty();
                                                      EXPECT_TRUE(now.empty() || now == fresh)
                                                          << ::testing::PrintToString(now.size());
                                                      EXPECT_FALSE(at.sheet.modified());
                                                      EXPECT_EQ(at.told, (std::vector<bool>{false}));
                                                      EXPECT_FALSE(at.grid.History().CanUndo());
                                                  });
    EXPECT_GT(points, 50u);
    EXPECT_GT(asItWas, 20);
    EXPECT_GT(none, 5);
}

TEST(SheetOutOfMemory, AFirstLoadCanBeTriedAgain) {
    const std::vector<OrderLine> fresh = linesWithLongNames();
    bool failed = true;
    for (std::size_t point = 1; failed && point < MostSheetPoints; ++point) {
        SCOPED_TRACE("allocation " + std::to_string(point));
        headless::Desk desk;
        kxGrid& grid = desk.place();
        Sheet<OrderLine> sheet(grid);
        sheet.text("code", "货号", &OrderLine::code);
        sheet.text("name", "品名", &OrderLine::name);
        {
            const FailingAllocation failing(point);
            try {
                sheet.load(fresh);
            } catch (const std::exception&) {
            }
            failed = failing.failed();
        }
        EXPECT_FALSE(sheet.modified());
        sheet.load(fresh);
        ASSERT_EQ(sheet.records().size(), fresh.size());
        EXPECT_EQ(sheet.records()[7].name, LongName);
        EXPECT_TRUE(sheet.changes().empty());
    }
    EXPECT_FALSE(failed);
}

TEST(SheetOutOfMemory, APutCanBeDoneAgainAndUndone) {
    const auto put = [](SheetShortOfMemory& at) {
        OrderLine line = SheetShortOfMemory::line(12, "B2 of another kind", "3", "2.5");
        line.name = LongName;
        at.sheet.put(2, line);
    };
    failEachAllocation(put, [&](SheetShortOfMemory& at) {
        put(at);
        at.sheet.recompute();  // what follows may have been what failed
        const OrderLine line = at.sheet.record(2);
        EXPECT_EQ(line.code, "B2 of another kind");
        EXPECT_EQ(line.name, LongName);
        EXPECT_EQ(line.amount, SheetShortOfMemory::number("7.5"));
        while (at.grid.History().Undo()) {
        }
    });
}

TEST(SheetOutOfMemory, AnAcceptIsDoneOrCanBeDoneAgain) {
    failEachAllocation(
        [](SheetShortOfMemory& at) {
            auto changes = at.sheet.changes();
            for (auto& line : changes.changed) ++line.after.version;
            at.sheet.accept(changes);
        },
        [](SheetShortOfMemory& at) {
            EXPECT_EQ(at.sheet.records().size(), at.before.size());
            auto changes = at.sheet.changes();
            for (auto& line : changes.changed) ++line.after.version;
            at.sheet.accept(changes);
            EXPECT_FALSE(at.sheet.modified());
            EXPECT_EQ(at.sheet.record(1).version, 2);
            at.type(1, SheetShortOfMemory::Price, "8");
            ASSERT_EQ(at.sheet.changes().changed.size(), 1u);
        });
}
}  // namespace
}  // namespace kxVsGrid::testing
