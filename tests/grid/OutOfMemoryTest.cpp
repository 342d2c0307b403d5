// Each allocation of a short piece of work fails once. Whatever it was: nothing crashes, no two cells share
// what they hold, and the totals are those of the cells.
#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "grid/FailingAllocator.h"
#include "kit/PlacedGrid.h"
#include "kxVsGrid/Frame.h"
#include "kxVsGrid/HelpTable.h"
#include "kxVsGrid/MemoryBag.h"
#include "support/Numbers.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::size_t MostPoints = 5000;
constexpr const char* LongText = "不锈钢内六角螺栓 M8 x 40，镀锌";

/// A fresh grid with a summed column 2, and what a clerk and a host do to it.
struct ShortOfMemory {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    MemoryBag bag;

    ShortOfMemory() {
        grid.Cols(6);
        grid.VsCtrl(2)->iType(flexDTDouble);
        grid.VsCtrl(2)->b是否合计数据(true);
        grid.SumRow(true);
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.ReDraw(true);
        grid.SetCell(1, 1, LongText, "a tag that fits into no slot");
        grid.SetCell(2, 2, "5");
        grid.SetCell(3, 2, "7", "code");
        desk.focusGrid();
        grid.Grid().Select(2, 2);
        grid.WriteProperties(bag);
        grid.ReadSum(2);
    }
    void chooseFill(const char* way) {
        desk.onPopup([way](headless::PoppedMenu& menu) { menu.choose("填充列", way); });
        desk.press(Key::Menu);
    }
};

struct Work {
    const char* what;
    std::function<void(ShortOfMemory&)> prepare;
    std::function<void(ShortOfMemory&)> run;
    friend std::ostream& operator<<(std::ostream& out, const Work& work) { return out << work.what; }
};

void nothing(ShortOfMemory&) {}

class OutOfMemory : public ::testing::TestWithParam<Work> {
  protected:
    /// Every cell takes a text and a tag of its own and gives them back.
    static void expectCellsOfTheirOwn(CellGrid& cells) {
        const auto text = [](std::int32_t r, std::int32_t c) {
            return "text of the cell " + std::to_string(r) + ", " + std::to_string(c);
        };
        const std::int32_t cols = std::min(cells.Cols(), 4);
        for (std::int32_t r = 0; r < cells.Rows(); ++r)
            for (std::int32_t c = 0; c < cols; ++c) {
                static_cast<void>(cells.Text(r, c));
                cells.Text(r, c, text(r, c));
                cells.Data(r, c, "tag " + text(r, c));
            }
        for (std::int32_t r = 0; r < cells.Rows(); ++r)
            for (std::int32_t c = 0; c < cols; ++c) {
                ASSERT_EQ(cells.Text(r, c), text(r, c));
                ASSERT_EQ(cells.Data(r, c), "tag " + text(r, c));
            }
    }
    static double sumOf(const CellGrid& cells) {
        double sum = 0;
        for (std::int32_t r = cells.FixedRows(); r < cells.Rows(); ++r) sum += cells.CellNumber(r, 2);
        return sum;
    }
    static std::string shown(double sum) { return support::totalText(sum); }

    static void expectRight(ShortOfMemory& at) {
        kxGrid& grid = at.grid;
        at.desk.onPopup({});
        static_cast<void>(makeFrame(grid.Grid()));
        static_cast<void>(makeFrame(grid.Grid_Sum()));
        if (grid.Cols() > 2 && grid.ReDraw() && grid.ReadSum(2) != "") {
            grid.SetCell(grid.FixedRows(), 2, "11");
            EXPECT_EQ(grid.ReadSum(2), shown(sumOf(grid.Grid())));
        }
        grid.InitProperties();
        if (grid.Cols() < 3) grid.Cols(6);
        grid.ReDraw(true);
        grid.VsCtrl(2)->b是否合计数据(true);
        grid.Rows(std::max(grid.Rows(), 8));
        EXPECT_EQ(grid.ReadSum(2), shown(sumOf(grid.Grid())));
        EXPECT_EQ(grid.Grid_Sum().Cols(), grid.Cols());
        expectCellsOfTheirOwn(grid.Grid());
        grid.Rows(6);
    }
};

TEST_P(OutOfMemory, LeavesEverythingWhole) {
    for (std::size_t point = 1; point <= MostPoints; ++point) {
        ShortOfMemory at;
        GetParam().prepare(at);
        const std::string before = at.grid.ReadSum(2);
        bool failed = false;
        {
            const FailingAllocation failing(point);
            try {
                GetParam().run(at);
            } catch (const std::exception&) {
            }
            failed = failing.failed();
        }
        SCOPED_TRACE("allocation " + std::to_string(point));
        if (!failed) return;
        expectRight(at);
        if (HasFatalFailure() || HasNonfatalFailure()) return;
    }
}

const Work Works[] = {
    {"FillingATable", nothing,
     [](ShortOfMemory& at) {
         for (std::int32_t r = 1; r < 6; ++r)
             for (std::int32_t c = 1; c < 4; ++c)
                 at.grid.SetCell(r, c, LongText, "tag of a cell in the table");
         at.grid.SetCell(4, 2, "12.5");
     }},
    {"FillingColumns", nothing,
     [](ShortOfMemory& at) {
         const std::vector<std::string_view> texts{"12.5", "0", "", LongText, "6"};
         const std::vector<std::string_view> tags{"", "tag of a cell in the column", "t", LongText, "code"};
         for (std::int32_t c = 1; c < 4; ++c) at.grid.Fill(c, 1, texts, tags);
         at.grid.Fill(2, 3, texts);
     }},
    {"FillingColumnsThatAreListenedTo",
     [](ShortOfMemory& at) {
         at.grid.CellChanged.connect([&at](std::int32_t row, std::int32_t col) {
             if (col == 2) at.grid.SetCell(row, 3, "computed from the column before it");
         });
     },
     [](ShortOfMemory& at) {
         const std::vector<std::string_view> texts{"1", "2", LongText};
         const std::vector<std::string_view> tags{"x", "a long tag of the row", "y"};
         at.grid.Fill(2, 1, texts, tags);
     }},
    {"FillingATableThatIsListenedTo",
     [](ShortOfMemory& at) {
         at.grid.CellChanged.connect([&at](std::int32_t row, std::int32_t col) {
             if (col == 2) at.grid.SetCell(row, 3, "computed from the column before it");
         });
     },
     [](ShortOfMemory& at) {
         for (std::int32_t r = 1; r < 6; ++r)
             at.grid.SetCell(r, 2, std::to_string(r), "a long tag of the row");
     }},
    {"TypingAndCommitting", nothing,
     [](ShortOfMemory& at) { at.desk.type("12*3").press(Key::Enter).type("a").press(Key::Down); }},
    {"TypingInTheLastRow", [](ShortOfMemory& at) { at.grid.Grid().Select(5, 1); },
     [](ShortOfMemory& at) { at.desk.type("x").press(Key::Enter).press(Key::Down); }},
    {"InsertingAndRemovingRows", nothing,
     [](ShortOfMemory& at) { at.desk.press(Key::Insert).press(Key::Insert).press(Key::Delete); }},
    {"ChangingTheNumberOfRows", nothing,
     [](ShortOfMemory& at) {
         at.grid.Rows(400);
         at.grid.SetCell(300, 2, "3");
         at.grid.SetCell(100, 1, LongText);
         at.grid.Grid().InsertRow(200);
         at.grid.Grid().RemoveRow(100);
         at.grid.Grid().RowHeight(50, 600);
         at.grid.Grid().MergeRow(60, true);
         at.grid.Grid().InsertRow(55);
         at.grid.Rows(50);
     }},
    {"ManyStretchesOfRows",
     [](ShortOfMemory& at) {
         at.grid.Rows(1000);
         for (std::int32_t r = 10; r < 1000; r += 15) {  // more runs than a block of them holds
             at.grid.Grid().RowHeight(r, 450);
             at.grid.Grid().CellForeColor(r, 1, static_cast<std::uint32_t>(r));
         }
     },
     [](ShortOfMemory& at) {
         for (std::int32_t r = 950; r > 100; r -= 170) {
             at.grid.SetCell(r, 2, "1");
             at.grid.Grid().RowHeight(r, 500);
             at.grid.Grid().CellForeColor(r, 1, static_cast<std::uint32_t>(2 * r));
             at.grid.Grid().InsertRow(r - 60);
             at.grid.Grid().RemoveRow(r - 30);
         }
     }},
    {"RowsThatChangePlaces",
     [](ShortOfMemory& at) {
         at.grid.Rows(400);
         for (std::int32_t r = 1; r < 400; r += 7)
             at.grid.Grid().CellForeColor(r, 1, static_cast<std::uint32_t>(r));
         at.grid.Grid().RowHeight(3, 600);
         at.grid.Grid().IdOf(2);
     },
     [](ShortOfMemory& at) {
         at.grid.Grid().MoveRows(2, 3, 300);
         at.grid.Grid().MoveRows(300, 90, 2);
     }},
    {"FilteringRows",
     [](ShortOfMemory& at) {
         at.grid.Rows(400);
         for (std::int32_t r = 1; r < 400; r += 7) at.grid.Grid().RowHidden(r, true);
     },
     [](ShortOfMemory& at) {
         std::vector<bool> filtered(399);
         for (std::size_t i = 0; i < filtered.size(); i += 3) filtered[i] = true;
         at.grid.Grid().FilterRows(1, filtered);
         at.grid.Grid().FilterRows({{2, true}, {5, true}, {200, false}, {301, true}});
         at.grid.Grid().RowFiltered(3, true);
         at.grid.Grid().InsertRow(100);
         at.grid.Filters().Show(1, {LongText, ""});
         at.grid.Filters().ShowAll();
     }},
    {"ChangingTheNumberOfColumns", nothing,
     [](ShortOfMemory& at) {
         at.grid.Cols(14);
         at.grid.SetCell(2, 12, LongText);
         at.grid.Cols(4);
         at.grid.FormatString("行号|货号|>数量|金额|备注");
     }},
    {"FillingASeriesByTheMenu", nothing, [](ShortOfMemory& at) { at.chooseFill("序列方式填充(&S)"); }},
    {"FillingCopiesByTheMenu", [](ShortOfMemory& at) { at.grid.Grid().Select(1, 1); },
     [](ShortOfMemory& at) { at.chooseFill("复制单元格(&C)"); }},
    {"ComputedTexts", nothing,
     [](ShortOfMemory& at) {
         for (std::int32_t r = 1; r < 6; ++r)
             at.grid.Grid().ComputedText(r, 4, [] { return std::string("computed"); });
         at.grid.SetCell(3, 4, "written");
         at.grid.Grid().ComputedText(2, 4, {});
     }},
    {"AskingWhoTheRowsAre", nothing,
     [](ShortOfMemory& at) {
         at.grid.Rows(400);
         for (std::int32_t r = 399; r > 0; r -= 2) at.grid.Grid().IdOf(r);
         at.grid.Grid().InsertRow(100);
         at.grid.Grid().RemoveRow(50);
         at.grid.Rows(20);
     }},
    {"FillingDefaultTexts",
     [](ShortOfMemory& at) {
         at.grid.VsCtrl(3)->sDefaultText_Name(LongText);
         at.grid.VsCtrl(3)->sDefaultText_Code("the code of the long text");
     },
     [](ShortOfMemory& at) {
         at.desk.press(Key::Down).press(Key::Down).press(Key::Insert);
         at.chooseFill("复制单元格(&C)");
     }},
    {"SettingUp", nothing,
     [](ShortOfMemory& at) {
         at.grid.VsCtrl(1)->b是否设列颜色(true);
         at.grid.ReDraw(true);
     }},
    {"ReadingSettings", nothing, [](ShortOfMemory& at) { at.grid.ReadProperties(at.bag); }},
    {"WritingSettings", nothing, [](ShortOfMemory& at) { at.grid.WriteProperties(at.bag); }},
    {"LookingUpACode",
     [](ShortOfMemory& at) {
         at.grid.VsCtrl(1)->b是否提供帮助(true);
         at.grid.VsCtrl(1)->sHelp_Code("goods");
         at.grid.ReDraw(true);
         at.grid.GetHelpCodeInfo.connect(
             [](const Variant&, Variant& definition, Variant& info, Variant& data) {
                 HelpTable table("货号");
                 table.field("code", "编码").field("name", "名称").result("code", "name").search({"code"});
                 for (const char* code : {"A1", "A2", "B1"}) table.row({code, LongText});
                 table.answer(definition, info, data);
             });
         at.desk.onDialog([](headless::LookupDialog& dialog) {
             dialog.type("A2");
             dialog.press(Key::Enter);
         });
         at.grid.Grid().Select(1, 1);
         at.desk.press(Key::Space);
     },
     [](ShortOfMemory& at) { at.desk.press(Key::F2).press(Key::Enter); }},
};
INSTANTIATE_TEST_SUITE_P(During, OutOfMemory, ::testing::ValuesIn(Works),
                         [](const auto& tested) { return std::string(tested.param.what); });

// --- The two halves of a cell.

/// A text and a tag.
using Pair = std::pair<std::string, std::string>;

class PairOutOfMemory : public ::testing::Test {
  protected:
    static constexpr std::int32_t Row = 4;
    static constexpr std::int32_t Col = 2;

    static Pair pairOf(const CellGrid& cells) { return {cells.Text(Row, Col), cells.Data(Row, Col)}; }
    /// Of all the sizes that are kept in different ways. The name is a digit: the column is one of numbers.
    static std::vector<Pair> pairs(const std::string& name) {
        const std::string longer = name + ", which fits into no slot";
        const std::string big(2000, name[0]);
        return {{"", ""}, {name, name}, {longer, longer + "."}, {big, big + "."}, {name, big}, {big, longer}};
    }
    /// Each allocation of the write fails once, on a fresh grid that `prepare` has seen.
    template <class Prepare, class Write, class Check>
    void failEach(const Pair& old, Prepare prepare, Write write, Check check) {
        for (std::size_t point = 1; point <= MostPoints; ++point) {
            ShortOfMemory at;
            at.grid.SetCell(Row, Col, old.first, old.second);
            prepare(at);
            bool failed = false;
            {
                const FailingAllocation failing(point);
                try {
                    write(at);
                } catch (const std::exception&) {
                }
                failed = failing.failed();
            }
            check(pairOf(at.grid.Grid()), point);
            if (!failed || HasNonfatalFailure()) return;
        }
    }
    template <class Prepare, class Write>
    void expectBothOldOrBothNew(Prepare prepare, Write write) {
        for (const Pair& old : pairs("1"))
            for (const Pair& fresh : pairs("2")) {
                failEach(
                    old, prepare, [&](ShortOfMemory& at) { write(at, fresh); },
                    [&](const Pair& found, std::size_t point) {
                        EXPECT_TRUE(found == old || found == fresh)
                            << "allocation " << point << ": " << found.first << " / " << found.second
                            << " of " << old.first << " / " << old.second;
                    });
                if (HasNonfatalFailure()) return;
            }
    }
    static void writeThroughTheGrid(ShortOfMemory& at, const Pair& fresh) {
        at.grid.Grid().Cell(Row, Col, fresh.first, fresh.second);
    }
    static void writeAsAHost(ShortOfMemory& at, const Pair& fresh) {
        at.grid.SetCell(Row, Col, fresh.first, fresh.second);
    }
    static void fillThroughTheGrid(ShortOfMemory& at, const Pair& fresh) {
        const std::string_view text = fresh.first;
        const std::string_view tag = fresh.second;
        at.grid.Grid().Fill(Col, Row, {&text, 1}, {&tag, 1});
    }
    static void fillAsAHost(ShortOfMemory& at, const Pair& fresh) {
        const std::string_view text = fresh.first;
        const std::string_view tag = fresh.second;
        at.grid.Fill(Col, Row, {&text, 1}, {&tag, 1});
    }
    static void listen(ShortOfMemory& at) {
        at.grid.Grid().CellChanged.connect([](std::int32_t, std::int32_t) {});
    }
    static void leaveATotalOpen(ShortOfMemory& at) { at.grid.RecalculateTotals(); }
    static void hideTheTotals(ShortOfMemory& at) { at.grid.ReDraw(false); }
};

TEST_F(PairOutOfMemory, IsOldOrNewAsAWholeWhereNobodyListens) {
    expectBothOldOrBothNew(hideTheTotals, writeThroughTheGrid);
    expectBothOldOrBothNew(hideTheTotals, writeAsAHost);
    expectBothOldOrBothNew(hideTheTotals, fillThroughTheGrid);
    expectBothOldOrBothNew(hideTheTotals, fillAsAHost);
}

TEST_F(PairOutOfMemory, IsOldOrNewAsAWholeUnderATotalThatIsStillToBeMade) {
    expectBothOldOrBothNew(leaveATotalOpen, writeThroughTheGrid);
    expectBothOldOrBothNew(leaveATotalOpen, writeAsAHost);
    expectBothOldOrBothNew(leaveATotalOpen, fillThroughTheGrid);
    expectBothOldOrBothNew(leaveATotalOpen, fillAsAHost);
}

TEST_F(PairOutOfMemory, IsOldOrNewAsAWholeWhereSomebodyListens) {
    expectBothOldOrBothNew(listen, writeThroughTheGrid);
    expectBothOldOrBothNew(listen, writeAsAHost);
    expectBothOldOrBothNew(listen, fillThroughTheGrid);
    expectBothOldOrBothNew(listen, fillAsAHost);
}

TEST_F(PairOutOfMemory, HasWholeHalvesAfterACommit) {
    const Pair old{"12", "the tag that was there before"};
    const Pair fresh{"3456", "the tag that the editor brings"};
    const auto type = [&](ShortOfMemory& at) {
        at.grid.Grid().Select(Row, Col);
        at.desk.type(fresh.first);
        at.grid.TextTag(fresh.second);
    };
    failEach(
        old, type, [](ShortOfMemory& at) { at.desk.press(Key::Enter); },
        [&](const Pair& found, std::size_t point) {
            EXPECT_TRUE(found.first == old.first || found.first == fresh.first) << point << found.first;
            EXPECT_TRUE(found.second == old.second || found.second == fresh.second) << point << found.second;
        });
}
}  // namespace
}  // namespace kxVsGrid::testing
