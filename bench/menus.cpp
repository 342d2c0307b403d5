// The commands of the context menu that write much: several rows, and the rest of a column. A host listens to
// everything that is raised and does nothing. The whole command is measured, from the press of the mouse to
// the total that it changes.
#include <memory>
#include <string>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"

namespace kxbench {
namespace {

constexpr std::int32_t Cols = 10;
constexpr std::int32_t Rows = 100'000;
constexpr std::int32_t Number = FirstSummed + HeaderCols;
constexpr std::int32_t Date = 1 + HeaderCols;
constexpr std::int32_t Plain = HeaderCols;

/// What is chosen, and with what above and in the current cell.
struct Command {
    const char* name;
    const char* work;
    const char* caption;
    const char* under;
    std::int32_t col;
    const char* above;
    const char* text;
};

// Counting months or years from the calendar's first date reaches furthest; years end before the rows do.
constexpr Command Commands[] = {
    {"add", "add 500 rows at the end by the menu", "新增..行", nullptr, Plain, "", ""},
    {"insert", "insert 500 rows in the middle of 100,000 by the menu", "插入..行", nullptr, Plain, "", ""},
    {"numbers", "fill 100,000 rows with a series of numbers", "填充列", "序列方式填充(&S)", Number, "0.1",
     "0.2"},
    {"dates", "fill 100,000 rows with a series of dates", "填充列", "序列方式填充(&S)", Date, "1950-01-01",
     "1950-01-08"},
    {"days", "fill 100,000 rows by days", "填充列", "以天数填充(&D)", Date, "", "1950-01-31"},
    {"months", "fill 100,000 rows by months", "填充列", "以月填充(&M)", Date, "", "0100-01-31"},
    {"years", "fill a column of 100,000 rows by years, 9,899 of them to the year 9999", "填充列",
     "以年填充(&Y)", Date, "", "0100-02-28"},
    {"copies", "fill 100,000 rows with copies", "填充列", "复制单元格(&C)", Plain, "", "螺栓 M8 镀锌"},
};

/// An order with default texts, and a host that hears everything.
struct Office : OnDesk {
    explicit Office(const Command& command) {
        define(grid, Cols);
        grid.VsCtrl(Date)->iType(kxVsGrid::flexDTDate);
        grid.VsCtrl(Plain)->iType(kxVsGrid::flexDTString);
        grid.VsCtrl(Cols)->sDefaultText_Name("件");
        setRows(grid, Rows);
        const bool inserts = std::string_view(command.name) == "insert";
        grid.Grid().Select(inserts ? Rows / 2 : 2, command.col);
        grid.SetCell(1, command.col, command.above);
        grid.SetCell(2, command.col, command.text, "A001");
        grid.MouseDown.connect([](auto, auto, auto, auto, bool&) {});
        grid.AddVsRow.connect([](auto, bool&) {});
        grid.AfterAddRow.connect([](bool&, auto, auto, auto) {});
        grid.CellChanged.connect([](auto, auto) {});
        grid.EnterCell.connect([] {});
        grid.RowColChange.connect([] {});
        grid.AfterRowColChange.connect([](auto, auto, auto, auto) {});
        desk.answerInputBox("500");
        desk.onPopup([command](kxVsGrid::headless::PoppedMenu& menu) {
            if (command.under)
                menu.choose(command.caption, command.under);
            else
                menu.choose(command.caption);
        });
    }
    void run(const Command& command) {
        // on a header, which leaves the current cell where it is
        desk.mouseDown(kxVsGrid::RightButton, command.under ? 0 : kxVsGrid::CtrlKey, 1500, 100);
        benchmark::DoNotOptimize(grid.ReadSum(Number));
    }
};

std::string nameOf(const Command& command) {
    return std::string("menu/") + command.name;
}

/// A command that did not do its work must not look fast.
bool done(const Office& office, const Command& command) {
    const kxVsGrid::kxGrid& grid = office.grid;
    if (!command.under) return grid.Rows() == Rows + HeaderRows + 500;
    const bool years = std::string_view(command.name) == "years";
    return !grid.Grid().Text(years ? 9'901 : Rows, command.col).empty();
}
}  // namespace

void planMenus(Plan& plan) {
    Group group{"menu", {}, {}};
    for (const Command& command : Commands) {
        measure(nameOf(command), 1, 9, [&command](benchmark::State& state) {
            for (auto _ : state) {
                const auto office = std::make_unique<Office>(command);
                state.SetIterationTime(seconds([&] { office->run(command); }));
                if (!done(*office, command)) state.SkipWithError("the command was not carried out");
            }
        });
        group.lines.push_back({command.work, nameOf(command), "", Limit::Seconds, 0.2, Show::Milliseconds});
    }
    plan.push_back(group);
}
}  // namespace kxbench
