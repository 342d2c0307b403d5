// One part of a grid's picture: the data cells, the header rows, or the header columns beside the data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "cellgrid/frame/FrameWriter.h"
#include "cellgrid/frame/MergedCells.h"
#include "cellgrid/frame/RunOver.h"
#include "cellgrid/frame/VisibleBands.h"

namespace kxVsGrid::cellgrid {

/// The colours of the frame that the grid does not hold; all from the system.
namespace FrameColor {
constexpr std::uint32_t Highlight = 0x8000000D;
constexpr std::uint32_t HighlightText = 0x8000000E;
constexpr std::uint32_t Shadow = 0x80000010;
constexpr std::uint32_t ButtonHighlight = 0x80000014;
constexpr std::uint32_t LightEdge = 0x80000016;
}  // namespace FrameColor

/// A grid line takes the last twips of its row or column.
constexpr std::int32_t LineWidth = 15;

/// What the whole picture has in common.
struct FrameScene {
    /// `clip` is the part of the view that is asked for.
    FrameScene(const CellGrid& grid, const FrameState& state, const Rect& clip);

    const CellGrid& grid;
    Rect client;            // the view without its scroll bars
    Rect area;              // what of it is asked for
    std::int32_t row = -1;  // the current cell where it is shown as such, -1 where not
    std::int32_t col = -1;
    bool wholeRow = false;  // shown by its whole row
    bool editorOpen = false;
    bool raised = false;  // fixed cells are
    CellRange selected;   // beside the current cell; empty where nothing else is

    /// The header belongs to the current cell, or to what is selected.
    bool marksHeader(std::int32_t r, std::int32_t c) const {
        return !wholeRow && (r == row || c == col || (r >= selected.firstRow && r <= selected.lastRow) ||
                             (c >= selected.firstCol && c <= selected.lastCol));
    }
    bool highlighted(std::int32_t r) const { return wholeRow && r == row; }
};

/// What a cell is painted with first.
struct Ground {
    std::uint32_t color = 0;
    std::uint8_t shade = 0;
    friend bool operator==(const Ground&, const Ground&) = default;
};

class FrameRegion {
  public:
    /// The cells where the bands meet, all of them data or all of them fixed. The scene and the bands must
    /// outlive it.
    FrameRegion(const FrameScene& scene, FrameWriter& writer, std::span<const Band> rows,
                std::span<const Band> cols, bool fixed);

    /// Fills, then lines, then texts and check marks.
    void write();

  private:
    /// Neighbouring cells of one column and one colour.
    struct Run {
        std::size_t firstRow;
        std::size_t lastRow;
        Ground ground;
        std::size_t item;  // number of its fill
    };

    void writeFills();
    void readRuns(std::size_t col, std::vector<Run>& runs) const;
    void writeLines();
    void writeLine(const Rect& line);
    void writeMergedBlocks();
    void writeRelief();
    void writeRaised(const Rect& cell, std::size_t row, std::size_t col);
    void findStretches();
    void coverLinesUnder(std::size_t row, const Stretch& stretch);
    /// Where the text of a cell has its place.
    Rect roomOf(std::size_t row, std::size_t col) const;
    void writeContents();
    void writeContent(const Band& row, const Band& col, bool checkBoxes, const Rect& cell);
    bool writesFunnel(const Band& row, std::size_t firstCol, std::size_t lastCol) const;
    Rect writeFunnel(std::size_t col, const Rect& header);
    void writeText(const Band& row, const Band& col, const Rect& cell);
    void writeMark(const Band& row, const Band& col, const Rect& cell);
    CellGrid::Tint tintOf(std::int32_t row, std::int32_t col) const;
    std::optional<Ground> ownGround(std::size_t rowBand, std::size_t colBand) const;
    std::uint32_t textColor(std::int32_t row, std::int32_t col) const;
    Rect rectOf(std::size_t firstRow, std::size_t lastRow, std::size_t firstCol, std::size_t lastCol) const;

    const FrameScene& scene_;
    FrameWriter& writer_;
    std::span<const Band> rows_;
    std::span<const Band> cols_;
    std::uint32_t backColor_;
    std::uint32_t foreColor_;
    std::uint32_t lineColor_;
    Rect area_;  // of the whole region, within the client area
    std::optional<MergedCells> merged_;
    std::optional<std::uint32_t> fitted_;
    std::vector<std::uint8_t> shades_;  // of the columns' cells without a colour; none: not shaded
    std::vector<Stretch> stretches_;    // of the texts, row after row; none: each in its cell
};
}  // namespace kxVsGrid::cellgrid
