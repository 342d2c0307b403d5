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
using PlainRow = std::vector<PlainCell>;

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
    std::vector<PlainRow> rows{1 + LeastRows, PlainRow(Count)};

    friend bool operator==(const PlainTable&, const PlainTable&) = default;

    std::int32_t last() const { return static_cast<std::int32_t>(rows.size()) - 1; }
    PlainCell& at(std::int32_t row, std::int32_t col) {
        return rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(col)];
    }
    static std::vector<std::int32_t> shown(std::int32_t from, std::int32_t to) {
        std::vector<std::int32_t> cols;
        for (std::int32_t col = from; col <= to; ++col)
            if (col != Hidden) cols.push_back(col);
        return cols;
    }
    bool hostGivesRow() const { return last() < MostRows; }
    void append(std::int64_t count = 1) {
        for (; count > 0; --count) rows.emplace_back(Count);
    }

    PlainBlock copy(const CellRange& from) {
        PlainBlock block;
        for (std::int32_t row = from.firstRow; row <= from.lastRow; ++row) {
            block.emplace_back();
            for (const std::int32_t col : shown(from.firstCol, from.lastCol))
                block.back().push_back({at(row, col), col});
        }
        return block;
    }
    PlainOutcome paste(const PlainBlock& block, const CellRange& selected) {
        PlainOutcome outcome;
        const bool fills = block.size() == 1 && block[0].size() == 1;
        const std::int32_t count = fills ? selected.rows() : static_cast<std::int32_t>(block.size());
        const auto cols =
            fills ? shown(selected.firstCol, selected.lastCol) : shown(selected.firstCol, Count - 1);
        for (std::int32_t i = 0; i < count; ++i) {
            const auto& line = block[fills ? 0 : static_cast<std::size_t>(i)];
            const std::int32_t row = selected.firstRow + i;
            if (row == last() && hostGivesRow()) {
                append();
                ++outcome.rowsAdded;
            }
            if (row > last()) {
                outcome.beyond += static_cast<std::int64_t>(line.size());
                continue;
            }
            const std::size_t width = fills ? cols.size() : line.size();
            for (std::size_t j = 0; j < width; ++j) {
                if (j >= cols.size())
                    ++outcome.beyond;
                else
                    write(outcome, row, cols[j], line[fills ? 0 : j]);
            }
        }
        return outcome;
    }
    PlainOutcome clear(const CellRange& range) {
        PlainOutcome outcome;
        for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
            for (const std::int32_t col : shown(range.firstCol, range.lastCol))
                if (at(row, col) != PlainCell()) write(outcome, row, col, {});
        return outcome;
    }
    PlainOutcome fillDown(const CellRange& range) {
        PlainOutcome outcome;
        const bool one = range.rows() == 1;
        const std::int32_t source = one ? range.firstRow - 1 : range.firstRow;
        for (std::int32_t row = source + 1; row <= range.lastRow; ++row)
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
        for (std::int32_t row = range.firstRow; row <= range.lastRow; ++row)
            for (const std::int32_t col : cols) write(outcome, row, col, {at(row, source)});
        return outcome;
    }
    PlainOutcome copyFromAbove(std::int32_t row, std::int32_t col) {
        PlainOutcome outcome;
        write(outcome, row, col, {at(row - 1, col), col});
        return outcome;
    }
    void erase(std::int32_t first, std::int32_t lastRow) {
        rows.erase(rows.begin() + first, rows.begin() + lastRow + 1);
        if (last() < LeastRows) append(LeastRows - last());
    }
    void insert(std::int32_t before) { rows.insert(rows.begin() + before, PlainRow(Count)); }
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
    void write(PlainOutcome& outcome, std::int32_t row, std::int32_t col, const PlainCopy& given) {
        if (col == ReadOnly) return static_cast<void>(++outcome.passedOver);
        const PlainCell now = at(row, col);
        std::optional<PlainCell> next;
        if (given.col == col)
            next = given.cell.text == now.text || !breaksRule(col, given.cell.text)
                       ? std::optional(given.cell)
                       : std::nullopt;
        else
            next = admitted(row, col, given.cell.text);
        if (!next) return outcome.refused.push_back({row, col});
        if (*next == now) return static_cast<void>(++outcome.same);
        at(row, col) = *next;
        outcome.written.push_back({row, col});
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
