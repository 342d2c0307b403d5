// Reads a frame as somebody sees it on a screen.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/Frame.h"

namespace kxVsGrid {

class FrameReader {
  public:
    explicit FrameReader(const CellGrid& grid, const FrameState& state = {})
        : grid_(grid), frame_(makeFrame(grid, state)) {}

    const Frame& frame() const { return frame_; }
    const std::vector<FrameItem>& items() const { return frame_.items; }

    /// The item of a kind that belongs to a cell; null without one.
    const FrameItem* find(FrameItem::Kind kind, std::int32_t row, std::int32_t col) const {
        const auto at = std::find_if(items().begin(), items().end(), [&](const FrameItem& item) {
            return item.kind == kind && item.row == row && item.col == col;
        });
        return at == items().end() ? nullptr : &*at;
    }

    bool showsText(std::int32_t row, std::int32_t col) const {
        return find(FrameItem::Kind::Text, row, col) != nullptr;
    }
    std::string text(std::int32_t row, std::int32_t col) const {
        const auto* item = find(FrameItem::Kind::Text, row, col);
        return item ? item->text : std::string();
    }
    std::uint32_t textColor(std::int32_t row, std::int32_t col) const {
        const auto* item = find(FrameItem::Kind::Text, row, col);
        return item ? item->color : 0xFFFFFFFF;
    }

    /// The colour that the last fill leaves at a point; 0xFFFFFFFF where there is none.
    std::uint32_t fillAt(std::int32_t x, std::int32_t y) const {
        std::uint32_t color = 0xFFFFFFFF;
        for (const auto& item : items())
            if (item.kind == FrameItem::Kind::Fill && item.rect.contains(x, y)) color = item.color;
        return color;
    }
    /// In the middle of a cell.
    std::uint32_t fillOf(std::int32_t row, std::int32_t col) const {
        const Rect rect = grid_.CellRect(row, col);
        return fillAt(rect.left + rect.width / 2, rect.top + rect.height / 2);
    }

    /// The colour of the line at a point, 0 where no line is or a later fill covers it.
    std::uint32_t lineAt(std::int32_t x, std::int32_t y) const {
        std::uint32_t color = 0;
        for (const auto& item : items()) {
            if (!item.rect.contains(x, y)) continue;
            if (item.kind == FrameItem::Kind::Line) color = item.color;
            if (item.kind == FrameItem::Kind::Fill) color = 0;
        }
        return color;
    }
    /// Below a cell, in the middle of its width.
    std::uint32_t lineBelow(std::int32_t row, std::int32_t col) const {
        const Rect rect = grid_.CellRect(row, col);
        return lineAt(rect.left + rect.width / 2, rect.bottom() - 1);
    }
    /// To the right of a cell, in the middle of its height.
    std::uint32_t lineBeside(std::int32_t row, std::int32_t col) const {
        const Rect rect = grid_.CellRect(row, col);
        return lineAt(rect.right() - 1, rect.top + rect.height / 2);
    }

    std::size_t count(FrameItem::Kind kind) const {
        return static_cast<std::size_t>(std::count_if(
            items().begin(), items().end(), [&](const FrameItem& item) { return item.kind == kind; }));
    }

  private:
    const CellGrid& grid_;
    Frame frame_;
};

/// A grid with a header row and a header column of 300 by 500 twips, data cells of 1000 by 300, each with the
/// text "row,col", in a view without scroll bars.
class FilledGrid : public CellGrid {
  public:
    FilledGrid(std::int32_t rows, std::int32_t cols, std::int32_t width, std::int32_t height) {
        ScrollBars(false);
        Rows(rows);
        Cols(cols);
        ColWidth(0, 500);
        Resize(width, height);
        for (std::int32_t row = 0; row < std::min(rows, 60); ++row)
            for (std::int32_t col = 0; col < cols; ++col)
                Text(row, col, std::to_string(row) + "," + std::to_string(col));
    }
};
}  // namespace kxVsGrid
