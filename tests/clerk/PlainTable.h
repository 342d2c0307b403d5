// A grid of texts and tags that knows how blocks are written, and nothing of speed, steps or windows: the obvious
// twin of the control's commands.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/CellRange.h"

namespace kxVsGrid::testing {

struct PlainCell {
    std::string text;
    std::string tag;
    friend bool operator==(const PlainCell&, const PlainCell&) = default;
};
struct PlainRow {
    std::vector<PlainCell> cells = std::vector<PlainCell>(8);
    bool hidden = false;  ///< from the beginning; it stays so wherever it goes
    friend bool operator==(const PlainRow&, const PlainRow&) = default;
};

/// A cell of a block on the clipboard; the column that it came from, where the control has put it there.
struct PlainCopy {
    PlainCell cell;
    std::int32_t col = -1;
};
using PlainBlock = std::vector<std::vector<PlainCopy>>;

struct PlainPlace {
    std::int32_t row;
    std::int32_t col;
};

/// What has become of a block.
struct PlainOutcome {
    std::int64_t same = 0, passedOver = 0, beyond = 0, rowsAdded = 0;
    std::vector<PlainPlace> written;
    std::vector<PlainPlace> refused;
};

class PlainTable {
  public:
    enum Column : std::int32_t { Text = 1, Number, ReadOnly, Toggle, Hidden, Ruled, Coded, Count };
    static constexpr std::int32_t MostRows = 30;  ///< the host gives no more
    static constexpr std::int32_t LeastRows = 5;

    /// As the grid counts them, from 1 on; 0 is the heading.
    std::vector<PlainRow> rows = std::vector<PlainRow>(1 + LeastRows);

    friend bool operator==(const PlainTable&, const PlainTable&) = default;

    std::int32_t last() const { return static_cast<std::int32_t>(rows.size()) - 1; }
    PlainCell& at(std::int32_t row, std::int32_t col) {
        return rows[static_cast<std::size_t>(row)].cells[static_cast<std::size_t>(col)];
    }
    bool hidden(std::int32_t row) const { return rows[static_cast<std::size_t>(row)].hidden; }
    std::vector<std::int32_t> shownRows(std::int32_t from, std::int32_t to) const {
        std::vector<std::int32_t> found;
        for (std::int32_t row = from; row <= to; ++row)
            if (!hidden(row)) found.push_back(row);
        return found;
    }
    static std::vector<std::int32_t> shown(std::int32_t from, std::int32_t to) {
        std::vector<std::int32_t> cols;
        for (std::int32_t col = from; col <= to; ++col)
            if (col != Hidden) cols.push_back(col);
        return cols;
    }
    bool hostGivesRow() const { return last() < MostRows; }
    void append(std::int64_t count = 1) {
        for (; count > 0; --count) rows.emplace_back();
    }

    PlainBlock copy(const CellRange& from) {
        PlainBlock block;
        for (const std::int32_t row : shownRows(from.firstRow, from.lastRow)) {
            block.emplace_back();
            for (const std::int32_t col : shown(from.firstCol, from.lastCol))
                block.back().push_back({at(row, col), col});
        }
        return block;
    }
    PlainOutcome paste(const PlainBlock& block, const CellRange& selected) {
        PlainOutcome outcome;
        if (block.size() == 1 && block[0].size() == 1) {
            for (const std::int32_t row : shownRows(selected.firstRow, selected.lastRow)) {
                for (const std::int32_t col : shown(selected.firstCol, selected.lastCol))
                    write(outcome, row, col, block[0][0]);
            }
            return outcome;
        }
        const auto cols = shown(selected.firstCol, Count - 1);
        std::int32_t row = selected.firstRow;
        for (const auto& line : block) {
            if (&line != block.data()) askForRow(outcome, row - 1);
            while (row <= last() && hidden(row)) ++row;
            const std::size_t fit = row > last() ? 0 : std::min(cols.size(), line.size());
            outcome.beyond += static_cast<std::int64_t>(line.size() - fit);
            for (std::size_t j = 0; j < fit; ++j) write(outcome, row, cols[j], line[j]);
            ++row;
        }
        return outcome;
    }
    /// The last row that a clerk has put something into; the one before `first` when there is none.
    std::int32_t lastInUse(std::int32_t first) {
        std::int32_t row = last();
        const auto used = [&] {
            for (const std::int32_t col : {Text, Number, Toggle, Ruled, Coded})
                if (!at(row, col).text.empty()) return true;
            return false;
        };
        while (row >= first && !used()) --row;
        return row;
    }
    PlainOutcome clear(const CellRange& range) {
        PlainOutcome outcome;
        for (const std::int32_t row : shownRows(range.firstRow, range.lastRow))
            for (const std::int32_t col : shown(range.firstCol, range.lastCol))
                if (at(row, col) != PlainCell()) write(outcome, row, col, {}, false);
        return outcome;
    }
    PlainOutcome fillDown(const CellRange& range) {
        PlainOutcome outcome;
        auto targets = shownRows(range.firstRow, range.lastRow);
        const bool one = range.rows() == 1;
        const std::int32_t source = one ? shownRows(1, range.firstRow - 1).back() : targets[0];
        if (!one) targets.erase(targets.begin());
        for (const std::int32_t row : targets)
            for (const std::int32_t col : shown(range.firstCol, range.lastCol))
                write(outcome, row, col, {at(source, col), col});
        return outcome;
    }
    PlainOutcome fillRight(const CellRange& range) {
        PlainOutcome outcome;
        auto cols = shown(range.firstCol, range.lastCol);
        const bool one = cols.size() == 1;
        const std::int32_t source = one ? shown(1, cols[0] - 1).back() : cols[0];
        if (!one) cols.erase(cols.begin());
        for (const std::int32_t row : shownRows(range.firstRow, range.lastRow))
            for (const std::int32_t col : cols) write(outcome, row, col, {at(row, source)});
        return outcome;
    }
    PlainOutcome copyFromAbove(std::int32_t row, std::int32_t col) {
        PlainOutcome outcome;
        write(outcome, row, col, {at(shownRows(1, row - 1).back(), col), col});
        return outcome;
    }
    void erase(std::int32_t first, std::int32_t lastRow) {
        rows.erase(rows.begin() + first, rows.begin() + lastRow + 1);
        if (last() < LeastRows) append(LeastRows - last());
    }
    void insert(std::int32_t before) { rows.insert(rows.begin() + before, PlainRow()); }
    void duplicate(std::int32_t row) {
        PlainRow copy = rows[static_cast<std::size_t>(row)];
        rows.push_back(std::move(copy));
    }
    void moveDown(std::int32_t first, std::int32_t lastRow) {
        std::rotate(rows.begin() + first, rows.begin() + lastRow + 1, rows.begin() + lastRow + 2);
    }
    void moveUp(std::int32_t first, std::int32_t lastRow) {
        std::rotate(rows.begin() + first - 1, rows.begin() + first, rows.begin() + lastRow + 1);
    }

    /// What the cell would hold, were the text typed and committed there; nothing when it is refused.
    std::optional<PlainCell> admitted(std::int32_t row, std::int32_t col, const std::string& given) {
        const PlainCell now = at(row, col);
        std::optional<std::string> text = read(col, given);
        if (!text) return std::nullopt;
        PlainCell next{*text, text->empty() ? std::string() : now.tag};
        if (next == now || next.text == now.text) return next;
        if (breaksRule(col, next.text)) return std::nullopt;
        if (col == Coded) {
            if (!given.starts_with("A")) return std::nullopt;  // the host is asked for the text as it came
            next.tag = "name of " + next.text;
        }
        return next;
    }

  private:
    /// The last row is written into, or more is to come below it.
    void askForRow(PlainOutcome& outcome, std::int32_t row) {
        if (row != last() || !hostGivesRow()) return;
        append();
        ++outcome.rowsAdded;
    }
    void write(PlainOutcome& outcome, std::int32_t row, std::int32_t col, const PlainCopy& given,
               bool asks = true) {
        if (col == ReadOnly) return static_cast<void>(++outcome.passedOver);
        const PlainCell now = at(row, col);
        std::optional<PlainCell> next;
        if (given.col == col)
            next = given.cell.text == now.text || !breaksRule(col, given.cell.text)
                       ? std::optional(given.cell)
                       : std::nullopt;
        else
            next = admitted(row, col, given.col == Toggle ? boxText(given.cell.text) : given.cell.text);
        if (!next) return outcome.refused.push_back({row, col});
        if (*next == now) return static_cast<void>(++outcome.same);
        if (asks) askForRow(outcome, row);
        at(row, col) = *next;
        outcome.written.push_back({row, col});
    }
    /// What is copied of a check box for other columns.
    static std::string boxText(const std::string& stored) {
        return stored.empty() ? "" : stored == "0" ? "否" : "是";
    }
    static bool breaksRule(std::int32_t col, const std::string& text) {
        return col == Ruled && text.find('x') != std::string::npos;
    }
    static std::string trimmed(const std::string& text) {
        const auto first = text.find_first_not_of(' ');
        return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
    }
    static std::optional<std::string> read(std::int32_t col, const std::string& given) {
        using Forms = std::map<std::string, std::string>;
        static const Forms Booleans{{"-1", "-1"}, {"1", "-1"},    {"True", "-1"}, {"是", "-1"},
                                    {"0", "0"},   {"False", "0"}, {"否", "0"},    {"", ""}};
        static const Forms Numbers{{"", ""},   {"0", "0"},        {"1", "1"},   {"-1", "-1"},
                                   {"5", "5"}, {"2*3", "6"},      {"6", "6"},   {" 9 ", "9"},
                                   {"9", "9"}, {"-4.50", "-4.5"}, {"12", "12"}, {"-4.5", "-4.5"}};
        if (col != Number && col != Toggle) return trimmed(given);
        const Forms& forms = col == Number ? Numbers : Booleans;
        const auto found = forms.find(given);
        return found == forms.end() ? std::nullopt : std::optional(found->second);
    }
};
}  // namespace kxVsGrid::testing
