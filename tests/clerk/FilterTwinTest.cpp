// A clerk who types, pastes, fills, deletes, adds, sorts, filters, undoes and redoes at random, beside a plain table
// that knows which rows have to be seen.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "kit/Random.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxVsGrid.h"
#include "support/Numbers.h"

namespace kxVsGrid::testing {
namespace {
namespace filter_twin {

constexpr int Acts = 3'000;
enum Column : std::int32_t { Kind = 1, Number, Note, Count };

/// Rows by what they hold and how they are seen; a row is known by its id, which the twin asks the grid for.
struct PlainRow {
    RowId id;
    std::vector<std::string> texts = std::vector<std::string>(Column::Count);
    bool hidden = false;  ///< by the host
    bool filtered = false;
    bool touched = false;  ///< to be looked at when another row becomes the current one
};

class FilterTwin : public ::testing::TestWithParam<bool> {
  protected:
    FilterTwin() {
        grid.Cols(Column::Count);
        grid.VsCtrl(Number)->iType(flexDTDouble);
        grid.VsCtrl(Number)->b是否合计数据(true);
        for (const Column col : {Kind, Number, Note}) {
            grid.Options(col).sortable(true);
            grid.Options(col).filterable(true);
        }
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = grid.Rows() < 30; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        grid.SumRow(true);
        grid.Rows(16);
        grid.ReDraw(true);
        for (std::int32_t row = 1; row < grid.Rows(); ++row) {
            grid.SetCell(row, Kind, anyText(Kind));
            grid.SetCell(row, Number, anyText(Number));
        }
        if (GetParam())
            for (const std::int32_t row : {3, 7}) cells.RowHidden(row, true);
        grid.History().Forget();
        desk.focusGrid();
        cells.Select(1, Kind);
        read();
    }
    void TearDown() override {
        if (HasFailure()) std::cout << desk.ascii() << "\n" << act_ << "\n";
    }

    std::int32_t roll(std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, to));
    }
    std::string anyText(std::int32_t col) {
        if (col == Number) return std::to_string(roll(0, 4));
        static const std::vector<std::string> Kinds{"", "a", "b", "c", "d"};
        return Kinds[static_cast<std::size_t>(roll(0, 4))];
    }
    Column anyCol() { return static_cast<Column>(roll(Kind, Note)); }

    // --- The twin. Contents are read from the grid before and after an act; what is seen is its own.
    PlainRow* find(RowId id) {
        for (PlainRow& row : rows)
            if (row.id == id) return &row;
        return nullptr;
    }
    bool passes(const PlainRow& row) const {
        for (std::int32_t col = Kind; col < Column::Count; ++col) {
            const auto& shown = filters[static_cast<std::size_t>(col)];
            if (shown && !shown->contains(row.texts[static_cast<std::size_t>(col)])) return false;
        }
        return true;
    }
    bool filtersBy(std::int32_t col) const { return filters[static_cast<std::size_t>(col)].has_value(); }
    bool anyFilter() const {
        return std::any_of(filters.begin(), filters.end(), [](const auto& one) { return one.has_value(); });
    }
    RowId currentId() { return cells.IdOf(grid.Row()); }

    /// What the rows hold now; marks those as touched that came or changed in a column that filters. Answers the
    /// rows that are new here.
    std::set<RowId> read() {
        std::set<RowId> came;
        std::vector<PlainRow> now;
        for (std::int32_t row = 1; row < grid.Rows(); ++row) {
            const RowId id = cells.IdOf(row);
            PlainRow read;
            if (const PlainRow* known = find(id))
                read = *known;
            else
                came.insert(read.id = id);
            if (came.contains(id)) read.touched = anyFilter();
            read.id = id;
            read.hidden = cells.RowHidden(row);
            for (std::int32_t col = Kind; col < Column::Count; ++col) {
                std::string& text = read.texts[static_cast<std::size_t>(col)];
                const std::string stands = cells.Text(row, col);
                if (text != stands && filtersBy(col)) read.touched = true;
                text = stands;
            }
            now.push_back(std::move(read));
        }
        rows = std::move(now);
        return came;
    }
    /// Another row may have become the current one: those that were touched are looked at, but for it and `spared`.
    void look(const std::set<RowId>& spared) {
        const RowId now = currentId();
        if (now != current)
            for (PlainRow& row : rows)
                if (row.touched && row.id != now && !spared.contains(row.id)) {
                    row.filtered = !passes(row);
                    row.touched = false;
                }
        arrive();
        current = now;
    }
    /// A row that the current cell has come to is seen; not one that it has fallen to, where no row was left.
    void arrive() {
        if (!find(current)) return;
        PlainRow* const row = find(currentId());
        if (!row || !row->filtered || !anyFilter() || currentId() == current) return;
        row->filtered = false;
        row->touched = true;
    }
    void applyAll() {
        for (PlainRow& row : rows) {
            row.filtered = !passes(row);
            row.touched = false;
        }
        current = currentId();
    }

    // --- What the clerk does.
    void type() {
        act_ = "type";
        if (!cells.RowShown(grid.Row())) return;
        const std::string text = anyText(grid.Col());
        desk.press(Key::Space);
        ASSERT_TRUE(desk.editor().visible);
        grid.Text(text);
        ASSERT_TRUE(grid.IsValid());
        const auto came = read();
        look(came);
        if (roll(0, 1) == 0) go();
    }
    void go() {
        act_ += ", go";
        static const Key Keys[] = {Key::Up, Key::Down, Key::Left, Key::Right, Key::PageDown, Key::Tab};
        desk.press(Keys[roll(0, 5)]);
        read();
        look({});
    }
    void leap() {
        act_ = "leap";
        cells.Select(roll(1, grid.Rows() - 1), anyCol());  // also to rows that are not seen
        read();
        look({});
    }
    void select() {
        act_ = "select";
        const std::int32_t row = grid.Row();
        cells.SelectRange(row, grid.Col(), roll(row, grid.Rows() - 1), grid.Col());
    }
    void block(Command command) {
        act_ = nameOf(command);
        if (roll(0, 1) == 0) select();
        const auto unseen = unseenTexts();
        desk.clipboard(anyText(grid.Col()) + "\n" + anyText(grid.Col()) + "\n");
        desk.run(command);
        EXPECT_EQ(unseenTexts(unseen), unseen) << "an unseen row was written to";
        look(read());
    }
    void rowsAct(Command command) {
        act_ = nameOf(command);
        if (roll(0, 2) == 0 && command == Command::DeleteRows)
            cells.SelectRows(grid.Row(), roll(1, grid.Rows() - 1));
        const auto unseen = unseenTexts();
        const std::size_t before = rows.size();
        desk.run(command);
        EXPECT_EQ(unseenTexts(unseen), unseen) << "an unseen row has gone";
        if (command != Command::DeleteRows) {
            EXPECT_GE(static_cast<std::size_t>(grid.Rows()) - 1, before);
        }
        look(read());
    }
    void fill() {
        act_ = "fill of the menu";
        const auto unseen = unseenTexts();
        desk.onPopup([](headless::PoppedMenu& menu) {
            if (menu.menu().items.back().visible) menu.choose("填充列", "复制单元格");
        });
        desk.press(Key::Menu);
        desk.onPopup({});
        if (anyFilter()) {
            EXPECT_EQ(unseenTexts(unseen), unseen);
        }
        look(read());
    }
    void sort() {
        act_ = "sort";
        desk.run(roll(0, 1) == 0 ? Command::SortUp : Command::SortDown);
        look(read());
    }
    void filter() {
        act_ = "filter";
        const Column col = anyCol();
        if (roll(0, 3) == 0) {
            ASSERT_TRUE(grid.Filters().ShowAll(col));
            if (!filtersBy(col)) return;
            filters[static_cast<std::size_t>(col)].reset();
        } else {
            std::set<std::string> texts;
            for (int n = roll(0, 3); n >= 0; --n) texts.insert(anyText(col));
            ASSERT_TRUE(grid.Filters().Show(col, {texts.begin(), texts.end()}));
            filters[static_cast<std::size_t>(col)] = texts;
        }
        read();
        applyAll();
        if (find(currentId())->filtered) {
            EXPECT_TRUE(std::none_of(rows.begin(), rows.end(),
                                     [](const PlainRow& row) { return !row.filtered && !row.hidden; }));
        }
    }
    void unfilter() {
        act_ = "unfilter";
        if (roll(0, 2) != 0) return;
        EXPECT_EQ(desk.run(Command::Unfilter), anyFilter());
        filters = decltype(filters)(Column::Count);
        applyAll();
    }
    void goBack() {
        const bool undoes = roll(0, 2) != 0;
        act_ = undoes ? "undo" : "redo";
        const std::vector<PlainRow> before = rows;
        const RowId was = current;
        if (!desk.run(undoes ? Command::Undo : Command::Redo)) return;
        std::set<RowId> brought = read();
        for (const PlainRow& old : before)
            if (PlainRow* const row = find(old.id))
                for (std::int32_t col = Kind; col < Column::Count; ++col)
                    if (filtersBy(col) &&
                        row->texts[static_cast<std::size_t>(col)] != old.texts[static_cast<std::size_t>(col)])
                        brought.insert(old.id);
        if (PlainRow* const row = find(currentId()); row && row->filtered && !cells.RowFiltered(grid.Row())) {
            // where it leads to is seen, also where the current cell was there before
            row->filtered = false;
            row->touched = true;
            brought.insert(row->id);
        }
        for (PlainRow& row : rows)
            if (brought.contains(row.id) && row.filtered && passes(row)) row.filtered = false;
        current = was;
        look(brought);
    }

    std::vector<std::pair<RowId, std::vector<std::string>>> unseenTexts() {
        std::vector<std::pair<RowId, std::vector<std::string>>> found;
        for (std::int32_t row = 1; row < grid.Rows(); ++row)
            if (cells.RowFiltered(row)) found.emplace_back(cells.IdOf(row), textsOf(row));
        std::sort(found.begin(), found.end());
        return found;
    }
    /// Of the same rows, wherever they are now.
    std::vector<std::pair<RowId, std::vector<std::string>>> unseenTexts(
        const std::vector<std::pair<RowId, std::vector<std::string>>>& of) {
        std::vector<std::pair<RowId, std::vector<std::string>>> found;
        for (const auto& [id, texts] : of)
            if (cells.RowOf(id) >= 0) found.emplace_back(id, textsOf(cells.RowOf(id)));
        return found;
    }
    std::vector<std::string> textsOf(std::int32_t row) const {
        std::vector<std::string> texts;
        for (std::int32_t col = 0; col < Column::Count; ++col)
            texts.push_back(col == 0 ? "" : cells.Text(row, col));
        return texts;
    }

    void act() {
        desk.focusGrid();
        switch (roll(0, 19)) {
            case 0:
            case 1:
            case 2:
            case 3:
                return type();
            case 4:
            case 5:
                act_ = "";
                return go();
            case 6:
                return leap();
            case 7:
                return block(Command::Paste);
            case 8:
                return block(Command::FillDown);
            case 9:
                return block(Command::ClearCells);
            case 10:
                return rowsAct(Command::DeleteRows);
            case 11:
                return rowsAct(Command::AppendRow);
            case 12:
                return rowsAct(roll(0, 1) == 0 ? Command::InsertRow : Command::DuplicateRow);
            case 13:
                return fill();
            case 14:
                return sort();
            case 15:
            case 16:
                return filter();
            case 17:
                return unfilter();
            default:
                return goBack();
        }
    }
    void compare() {
        ASSERT_EQ(rows.size(), static_cast<std::size_t>(grid.Rows()) - 1);
        double sum = 0;
        std::int32_t hidden = 0;
        for (std::int32_t row = 1; row < grid.Rows(); ++row) {
            const PlainRow& twin = rows[static_cast<std::size_t>(row) - 1];
            ASSERT_EQ(cells.RowFiltered(row), twin.filtered) << row;
            ASSERT_EQ(cells.RowShown(row), !twin.filtered && !twin.hidden) << row;
            hidden += twin.filtered && !twin.hidden ? 1 : 0;
            sum += support::leadingNumber(cells.Text(row, Number));
        }
        ASSERT_EQ(grid.Filters().HiddenRows(), hidden);
        ASSERT_EQ(support::leadingNumber(grid.ReadSum(Number)), sum);
        ASSERT_FALSE(desk.editor().visible);
    }

    kit::Random dice;
    headless::Desk desk;
    kxGrid& grid = desk.place();
    CellGrid& cells = grid.Grid();
    std::vector<PlainRow> rows;
    std::vector<std::optional<std::set<std::string>>> filters{Column::Count};
    RowId current = RowId::None;
    std::string act_;
};

TEST_P(FilterTwin, ShowsTheRowsThatAPlainTableWouldShow) {
    current = currentId();
    for (int n = 0; n < Acts; ++n) {
        act();
        compare();
        if (HasFailure()) {
            ADD_FAILURE() << "act " << n << ", " << act_;
            return;
        }
    }
}
INSTANTIATE_TEST_SUITE_P(RowsHiddenByTheHostOrNot, FilterTwin, ::testing::Bool());
}  // namespace filter_twin
}  // namespace
}  // namespace kxVsGrid::testing
