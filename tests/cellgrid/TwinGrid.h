// The slow, obvious grid: a vector of rows of cells. What CellGrid answers is compared with it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/RowId.h"

namespace kxVsGrid::test {

struct TwinCell {
    std::string text;
    std::string tag;
    bool written = false;  ///< a text was written since rows were numbered
    std::optional<mEmflexAlign> alignment;
    std::optional<std::uint32_t> foreColor;
    std::optional<std::uint32_t> backColor;
};

struct TwinRow {
    std::vector<TwinCell> cells;
    std::int32_t height = 300;
    bool hidden = false;
    bool filtered = false;
    bool merged = false;
    RowId id = RowId::None;  ///< none until somebody asks
};

class TwinGrid {
  public:
    std::int32_t cols = 10;
    std::int32_t fixedRows = 1;
    std::int32_t row = 1;
    std::int32_t col = 1;
    bool numbered = false;
    std::vector<TwinRow> lines = std::vector<TwinRow>(6, emptyRow());

    std::int32_t rows() const { return static_cast<std::int32_t>(lines.size()); }
    TwinCell& at(std::int32_t r, std::int32_t c) {
        return lines[static_cast<std::size_t>(r)].cells[static_cast<std::size_t>(c)];
    }

    void setRows(std::int32_t count) {
        lines.resize(static_cast<std::size_t>(count), emptyRow());
        row = std::min(row, count - 1);
    }
    void setCols(std::int32_t count) {
        cols = count;
        for (TwinRow& line : lines) line.cells.resize(static_cast<std::size_t>(count));
        col = std::min(col, count - 1);
    }
    void insertRow(std::int32_t at) {
        lines.insert(lines.begin() + at, emptyRow());
        if (row >= at) ++row;
    }
    void removeRow(std::int32_t at) {
        lines.erase(lines.begin() + at);
        if (row > at || row == rows()) --row;
    }
    void reorder(std::int32_t first, const std::vector<std::int32_t>& from) {
        const std::vector<TwinRow> old(lines.begin() + first,
                                       lines.begin() + first + static_cast<std::int32_t>(from.size()));
        const std::int32_t oldRow = row;
        for (std::size_t i = 0; i < from.size(); ++i) {
            lines[static_cast<std::size_t>(first) + i] = old[static_cast<std::size_t>(from[i] - first)];
            if (from[i] == oldRow) row = first + static_cast<std::int32_t>(i);
        }
    }
    void setText(std::int32_t r, std::int32_t c, const std::string& text) {
        at(r, c).text = text;
        at(r, c).written = numbered && c == 0;
    }
    std::string text(std::int32_t r, std::int32_t c) {
        const TwinCell& cell = at(r, c);
        const bool number = numbered && c == 0 && r >= fixedRows && cell.text.empty() && !cell.written;
        return number ? std::to_string(r - fixedRows + 1) : cell.text;
    }
    void clearText(std::int32_t first, std::int32_t last) {
        for (std::int32_t r = first; r <= last; ++r) {
            for (std::int32_t c = 0; c < cols; ++c) {
                at(r, c).tag.clear();
                setText(r, c, "");
            }
        }
    }
    void numberRows() {
        numbered = true;
        for (std::int32_t r = fixedRows; r < rows(); ++r) {
            at(r, 0).text.clear();
            at(r, 0).written = false;
        }
    }
    /// Adds up `value(text)` row by row.
    template <class Value>
    double sum(std::int32_t c, Value value) {
        double total = 0;
        for (std::int32_t r = fixedRows; r < rows(); ++r) total += value(text(r, c));
        return total;
    }

  private:
    TwinRow emptyRow() const {
        TwinRow line;
        line.cells.resize(static_cast<std::size_t>(cols));
        return line;
    }
};
}  // namespace kxVsGrid::test
