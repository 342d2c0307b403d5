// What the clerk sees on the desk.
#include <algorithm>
#include <string>
#include <vector>

#include "headless/Station.h"
#include "support/Text.h"

namespace kxVsGrid::headless {
namespace {

std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const std::string_view character = support::left(text, 1);
        columns += support::isWide(support::firstCodePoint(character)) ? 2 : 1;
        text.remove_prefix(character.size());
    }
    return columns;
}

std::vector<std::int32_t> shownRows(const CellGrid& cells) {
    std::vector<std::int32_t> rows;
    for (std::int32_t r = 0; r < cells.FixedRows(); ++r)
        if (cells.RowIsVisible(r)) rows.push_back(r);
    for (std::int32_t r = std::max(cells.TopRow(), cells.FixedRows()); r < cells.Rows(); ++r) {
        if (!cells.RowShown(r)) continue;
        if (!cells.RowIsVisible(r)) break;
        rows.push_back(r);
    }
    return rows;
}

std::vector<std::int32_t> shownCols(const CellGrid& cells) {
    std::vector<std::int32_t> cols;
    for (std::int32_t c = 0; c < cells.Cols(); ++c)
        if (cells.ColIsVisible(c)) cols.push_back(c);
    return cols;
}

std::string render(const std::vector<std::vector<std::string>>& lines) {
    std::vector<std::size_t> widths;
    for (const auto& line : lines)
        for (std::size_t c = 0; c < line.size(); ++c) {
            if (widths.size() <= c) widths.push_back(0);
            widths[c] = std::max(widths[c], columnsOf(line[c]));
        }
    std::string out;
    for (const auto& line : lines) {
        for (std::size_t c = 0; c < line.size(); ++c)
            out += line[c] + std::string(widths[c] - columnsOf(line[c]), ' ') + " | ";
        out += "\n";
    }
    return out;
}
}  // namespace

SeenEditor Desk::editor() const {
    const kxGrid& grid = *station().address;
    SeenEditor seen{grid.editorView(), grid.TextTag()};
    seen.text = grid.Text();
    seen.helpButton = seen.visible && seen.helpButton;
    if (!seen.helpButton) seen.helpRect = {};
    return seen;
}

std::string Desk::ascii() const {
    const kxGrid& grid = *station().address;
    const CellGrid& cells = grid.Grid();
    std::vector<std::vector<std::string>> lines;
    for (const std::int32_t r : shownRows(cells)) {
        auto& line = lines.emplace_back();
        line.push_back(std::to_string(r));
        for (const std::int32_t c : shownCols(cells)) {
            const bool current = r == cells.Row() && c == cells.Col();
            const CellMark* const mark = cells.Mark(r, c);
            const bool problem = mark && mark->kind == CellMark::Kind::Problem;
            const std::string text = cells.DisplayText(r, c) + (problem ? "!" : "");
            if (current && grid.editorView().visible)
                line.push_back("[" + grid.Text() + "]");
            else
                line.push_back(current ? "<" + text + ">" : text);
        }
    }
    if (grid.totalRowShown()) {
        auto& line = lines.emplace_back();
        line.push_back("=");
        for (const std::int32_t c : shownCols(cells)) line.push_back(grid.Grid_Sum().DisplayText(0, c));
    }
    return render(lines);
}
}  // namespace kxVsGrid::headless
