// Hosts that fail, take cells away or end the control while a block is pasted.
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <tuple>
#include <utility>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {
namespace in_a_paste {

/// A grid whose last two rows get four lines of two texts and a code, beside one that stays as it is.
struct Office {
    headless::Desk desk;
    kxGrid& other = desk.place();
    kxGrid& grid = desk.place();
    std::vector<PasteReport> reports;
    bool gone = false;

    Office() {
        grid.Cols(6);
        grid.VsCtrl(2)->i有效性判断(1);
        grid.VsCtrl(2)->i字段有效性判断类型(ij编码型);
        grid.VsCtrl(5)->iType(flexDTDouble);
        grid.VsCtrl(5)->b是否合计数据(true);
        grid.SumRow(true);
        grid.ReDraw(true);
        for (std::int32_t row = 1; row <= 5; ++row) grid.SetCell(row, 1, "old", "tag");
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.TxtValidBmS.connect([](const std::string&, const std::string&, const std::string&,
                                    const std::string& typed, std::string& code, std::string& name) {
            code = typed;
            name = "name of " + typed;
        });
        grid.Commands().Reported.connect([this](const PasteReport& report) { reports.push_back(report); });
        grid.Grid().NumberRows();
        desk.focusGrid();
        grid.Grid().Select(4, 1);
        desk.clipboard("a\tA1\tx\nb\tB1\ty\nc\tC1\tz\nd\tD1\tw");
    }
};

/// An event of a paste, in which `act` is done once, at its nth time.
struct Moment {
    const char* name;
    std::function<void(Office&, std::function<void(std::int32_t row)>)> listen;
    friend std::ostream& operator<<(std::ostream& out, const Moment& of) { return out << of.name; }
};

std::function<void(std::int32_t)> once(int turn, std::function<void(std::int32_t)> act) {
    return [turn, act = std::move(act), seen = 0](std::int32_t row) mutable {
        if (++seen == turn) act(row);
    };
}

const std::vector<Moment>& moments() {
    using Act = std::function<void(std::int32_t)>;
    const auto written = [](int turn) {
        return [turn](Office& at, Act act) {
            at.grid.CellChanged.connect(
                [act = once(turn, std::move(act))](auto row, auto) mutable { act(row); });
        };
    };
    const auto edited = [](int turn) {
        return [turn](Office& at, Act act) {
            at.grid.AfterEdit.connect(
                [act = once(turn, std::move(act))](auto row, auto) mutable { act(row); });
        };
    };
    const auto asked = [](int turn) {
        return [turn](Office& at, Act act) {
            at.grid.AddVsRow.connect(
                [act = once(turn, std::move(act))](auto row, bool&) mutable { act(row); });
        };
    };
    const auto checked = [](int turn) {
        return [turn](Office& at, Act act) {
            at.grid.TxtValidBmS.connect(
                [turn, act = once(turn, std::move(act))](auto&&...) mutable { act(3 + turn); });
        };
    };
    const auto locked = [](Office& at, Act act) {
        at.grid.Options().CellLocked.connect(
            [act = once(1, std::move(act))](std::int32_t row, std::int32_t col, bool&) mutable {
                if (row == 5 && col == 2) act(row);
            });
    };
    static const std::vector<Moment> All{{"the first written text", written(1)},
                                         {"the fifth written part", written(5)},
                                         {"the last written part", written(16)},
                                         {"the first AfterEdit", edited(1)},
                                         {"the fifth AfterEdit", edited(5)},
                                         {"the last AfterEdit", edited(12)},
                                         {"the first AddVsRow", asked(1)},
                                         {"the last AddVsRow", asked(3)},
                                         {"the first code", checked(1)},
                                         {"the third code", checked(3)},
                                         {"CellLocked", locked}};
    return All;
}

struct Deed {
    const char* name;
    std::function<void(Office&, std::int32_t row)> act;
    /// What is told of it for sure.
    bool takesTheCellsAway = false;
    friend std::ostream& operator<<(std::ostream& out, const Deed& of) { return out << of.name; }
};

const std::vector<Deed>& deeds() {
    static const std::vector<Deed> All{
        {"clears the grid", [](Office& at, auto) { at.grid.Clear(); }, true},
        {"removes the row", [](Office& at, auto row) { at.grid.Grid().RemoveRow(row); }, true},
        {"removes a row above", [](Office& at, auto) { at.grid.Grid().RemoveRow(1); }},
        {"removes the last row", [](Office& at, auto) { at.grid.Grid().RemoveRow(at.grid.Rows() - 1); }},
        {"removes all data rows", [](Office& at, auto) { at.grid.Grid().Rows(1); }, true},
        {"puts a number of rows", [](Office& at, auto) { at.grid.Rows(3); }},
        {"inserts a row above", [](Office& at, auto) { at.grid.Grid().InsertRow(1); }},
        {"takes columns away", [](Office& at, auto) { at.grid.Cols(2); }},
        {"takes all columns away", [](Office& at, auto) { at.grid.Cols(0); }, true},
        {"adds columns", [](Office& at, auto) { at.grid.Cols(9); }},
        {"hides a column", [](Office& at, auto) { at.grid.ColHidden(2, true); }},
        {"hides the row", [](Office& at, auto row) { at.grid.Grid().RowHidden(row, true); }},
        {"fixes the rows", [](Office& at, auto) { at.grid.Grid().FixedRows(at.grid.Rows()); }},
        {"fixes the columns", [](Office& at, auto) { at.grid.Grid().FixedCols(6); }},
        {"makes the grid read-only", [](Office& at, auto) { at.grid.Editable(false); }},
        {"makes the column read-only", [](Office& at, auto) { at.grid.VsCtrl(1)->bIsEditable(false); }},
        {"goes elsewhere", [](Office& at, auto) { at.grid.Grid().Select(1, 3); }},
        {"selects everything", [](Office& at, auto) { at.grid.Grid().SelectAll(); }},
        {"pastes again", [](Office& at, auto) { at.grid.Run(Command::Paste); }},
        {"deletes rows", [](Office& at, auto) { at.grid.Run(Command::DeleteRows); }},
        {"undoes", [](Office& at, auto) { at.grid.Run(Command::Undo); }},
        {"forgets", [](Office& at, auto) { at.grid.History().Forget(); }},
        {"writes the same cell", [](Office& at, auto row) { at.grid.SetCell(row, 1, "host", "host's"); }},
        {"types", [](Office& at, auto) { at.desk.type("9"); }},
        {"marks every cell",
         [](Office& at, auto) {
             for (std::int32_t row = 1; row < at.grid.Rows(); ++row)
                 at.grid.Mark(row, 1, CellMark{CellMark::Kind::Problem, "marked"});
         }},
        {"puts something else on the clipboard", [](Office& at, auto) { at.desk.clipboard("q"); }},
        {"unbinds keys",
         [](Office& at, auto) {
             at.grid.Commands().Unbind('V', CtrlKey);
             at.grid.Commands().Reported.disconnectAll();
         }},
    };
    return All;
}

std::vector<std::size_t> upTo(std::size_t count) {
    std::vector<std::size_t> numbers(count);
    for (std::size_t i = 0; i < count; ++i) numbers[i] = i;
    return numbers;
}

class HostInAPaste : public ::testing::TestWithParam<std::tuple<std::size_t, std::size_t>> {
  protected:
    const Moment& moment() const { return moments()[std::get<0>(GetParam())]; }
    const Deed& deed() const { return deeds()[std::get<1>(GetParam())]; }
    std::string named() const { return std::string("a host that ") + deed().name + " in " + moment().name; }
};

TEST_P(HostInAPaste, LeavesAControlThatWorks) {
    Office at;
    bool done = false;
    moment().listen(at, [&](std::int32_t row) {
        if (row >= at.grid.Rows()) return;
        done = true;
        deed().act(at, row);
    });
    at.desk.run(Command::Paste);
    ASSERT_TRUE(done) << named();
    EXPECT_FALSE(at.grid.Grid().StepOpen()) << named();
    EXPECT_TRUE(at.desk.messages().empty()) << named();
    if (deed().takesTheCellsAway && std::string_view(moment().name).find("last") == std::string_view::npos) {
        ASSERT_FALSE(at.reports.empty()) << named();
        EXPECT_TRUE(at.reports.back().cutShort) << named();
    }
    for (int steps = 0; at.grid.CanRun(Command::Undo) && steps < 50; ++steps) at.grid.Run(Command::Undo);
    while (at.grid.CanRun(Command::Redo)) at.grid.Run(Command::Redo);
    // All as it was set up, and the same again.
    at.grid.Editable(true);
    at.grid.Cols(6);
    at.grid.FixedRows(1);
    at.grid.FixedCols(1);
    at.grid.Rows(6);
    at.grid.VsCtrl(1)->bIsEditable(true);
    at.grid.ColHidden(2, false);
    for (std::int32_t row = 1; row < at.grid.Rows(); ++row) at.grid.Grid().RowHidden(row, false);
    if (at.desk.editor().visible) at.desk.press(Key::Escape);
    at.grid.Grid().Select(1, 3);
    at.desk.clipboard("p\tq\nr\ts");
    EXPECT_TRUE(at.desk.run(Command::Paste)) << named();
    EXPECT_EQ(at.grid.Grid().Text(2, 4), "s") << named();
}
INSTANTIATE_TEST_SUITE_P(All, HostInAPaste,
                         ::testing::Combine(::testing::ValuesIn(upTo(moments().size())),
                                            ::testing::ValuesIn(upTo(deeds().size()))));

class MomentOfAPaste : public ::testing::TestWithParam<Moment> {};

TEST_P(MomentOfAPaste, LetsWhatAHostThrowsThroughWhenTheStepIsClosed) {
    Office at;
    const Lines before = wholeOf(at.grid);
    GetParam().listen(at, [](auto) { throw HostFailure(); });
    EXPECT_THROW(at.desk.run(Command::Paste), HostFailure);
    EXPECT_FALSE(at.grid.Grid().StepOpen());
    ASSERT_EQ(at.reports.size(), 1U);
    EXPECT_TRUE(at.reports[0].cutShort);
    EXPECT_FALSE(at.reports[0].cancelled);
    if (at.grid.CanRun(Command::Undo)) at.grid.Run(Command::Undo);
    Lines after = wholeOf(at.grid);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t row = 0; row + 1 < before.size(); ++row) EXPECT_EQ(after[row], before[row]);
    EXPECT_FALSE(at.grid.CanRun(Command::Undo)) << "one step";
}

TEST_P(MomentOfAPaste, MayBeTheEndOfTheControl) {
    Office at;
    int heard = 0;
    GetParam().listen(at, [&](auto) {
        at.gone = true;
        at.desk.remove(at.grid);
    });
    at.grid.AfterEdit.connect([&](auto, auto) { heard += at.gone ? 1 : 0; });
    at.grid.Run(Command::Paste);
    EXPECT_TRUE(at.gone);
    EXPECT_EQ(heard, 0);
    EXPECT_TRUE(at.reports.empty());
    at.desk.use(at.other);
    EXPECT_TRUE(at.desk.messages().empty());
}
INSTANTIATE_TEST_SUITE_P(All, MomentOfAPaste, ::testing::ValuesIn(moments()));

TEST(HostThatFailsInAPaste, KeepsWhatWasWrittenBefore) {
    Office at;
    at.grid.AfterEdit.connect([](std::int32_t row, std::int32_t col) {
        if (row == 5 && col == 1) throw HostFailure();
    });
    EXPECT_THROW(at.desk.run(Command::Paste), HostFailure);
    EXPECT_EQ(blockOf(at.grid.Grid(), {4, 1, 6, 3}, false), "a|A1|x/b||/||");
    EXPECT_EQ(at.grid.Grid().Data(4, 2), "name of A1");
    ASSERT_EQ(at.reports.size(), 1U);
    EXPECT_EQ(at.reports[0].written, 4);
    EXPECT_TRUE(at.grid.bIsDirty());
}

TEST(HostThatFailsInAPaste, CanHaveItAgainAfterwards) {
    Office at;
    bool fails = true;
    at.grid.TxtValidBmS.connect([&](auto&&...) {
        if (fails) throw HostFailure();
    });
    EXPECT_THROW(at.desk.run(Command::Paste), HostFailure);
    fails = false;
    EXPECT_TRUE(at.desk.run(Command::Paste));
    EXPECT_EQ(blockOf(at.grid.Grid(), {4, 1, 7, 3}, false), "a|A1|x/b|B1|y/c|C1|z/d|D1|w");
}

TEST(HostThatFailsInAPaste, MayBeItsToolbarAsARefusalIsMarked) {
    Office at;
    at.desk.clipboard("a\nb");
    at.grid.VsCtrl(1)->iType(flexDTDouble);
    bool fails = true;
    at.grid.Commands().Changed.connect([&] {
        if (std::exchange(fails, false)) throw HostFailure();
    });
    EXPECT_THROW(at.grid.Run(Command::Paste), HostFailure);
    EXPECT_FALSE(at.grid.Grid().StepOpen());
    at.desk.clipboard("1\n2");
    at.grid.Grid().Select(1, 1);
    EXPECT_TRUE(at.desk.run(Command::Paste));
    EXPECT_EQ(blockOf(at.grid.Grid(), {1, 1, 2, 1}, false), "1/2");
}

TEST(HostThatFailsInAPaste, MayBeTheOneWhoHearsTheReport) {
    Office at;
    at.grid.Commands().Reported.connect([](const PasteReport&) { throw HostFailure(); });
    EXPECT_THROW(at.desk.run(Command::Paste), HostFailure);
    EXPECT_FALSE(at.grid.Grid().StepOpen());
    EXPECT_EQ(blockOf(at.grid.Grid(), {4, 1, 7, 3}, false), "a|A1|x/b|B1|y/c|C1|z/d|D1|w");
}

TEST(HostThatFailsInAPaste, MayEndTheControlAsItHearsTheReport) {
    Office at;
    at.grid.Commands().Reported.connect([&](const PasteReport&) { at.desk.remove(at.grid); });
    at.grid.Run(Command::Paste);
    at.desk.use(at.other);
    EXPECT_TRUE(at.desk.messages().empty());
}
}  // namespace in_a_paste
}  // namespace
}  // namespace kxVsGrid::testing
