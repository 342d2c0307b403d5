#include "kxVsGrid/Frame.h"

#include <algorithm>
#include <span>

#include "cellgrid/Selection.h"
#include "cellgrid/frame/FrameRegion.h"
#include "cellgrid/frame/FrameWriter.h"
#include "cellgrid/frame/Overlap.h"
#include "cellgrid/frame/VisibleBands.h"

namespace kxVsGrid {
namespace {

using cellgrid::Band;
using cellgrid::Bands;
using cellgrid::Difference;
using cellgrid::FrameRegion;
using cellgrid::FrameScene;
using cellgrid::FrameWriter;
using cellgrid::overlap;

/// What the cells leave of the view: to their right, and below them.
void writeBackground(FrameWriter& writer, const FrameScene& scene, const Rect& shown, const Bands& rows,
                     const Bands& cols) {
    const bool anyCell = !rows.all.empty() && !cols.all.empty();
    const std::int32_t right = anyCell ? cols.end(scene.client.right()) : 0;
    const std::int32_t bottom = anyCell ? rows.end(scene.client.bottom()) : 0;
    const std::uint32_t color = scene.grid.BackColorBkg();
    const Rect beside = overlap(shown, {right, 0, shown.right() - right, shown.bottom()});
    const Rect below = overlap(shown, {0, bottom, right, shown.bottom() - bottom});
    if (!beside.empty()) writer.add(FrameItem::Kind::Fill, beside, color);
    if (!below.empty()) writer.add(FrameItem::Kind::Fill, below, color);
}

/// Where the bands from one element to another one lie; of no length when none of them is shown.
Band stretchOf(std::span<const Band> bands, std::int32_t first, std::int32_t last) {
    Band stretch;
    for (const Band& band : bands) {
        if (band.index < first || band.index > last) continue;
        if (stretch.size == 0) stretch.start = band.start;
        stretch.size = band.end() - stretch.start;
    }
    return stretch;
}

/// Over what is selected, save the current cell.
void writeTints(FrameWriter& writer, const FrameScene& scene, std::span<const Band> rows,
                std::span<const Band> cols) {
    for (const CellRange& part : Difference(scene.selected, {scene.row, scene.col, scene.row, scene.col})) {
        const Band down = stretchOf(rows, part.firstRow, part.lastRow);
        const Band across = stretchOf(cols, part.firstCol, part.lastCol);
        const Rect rect = overlap(scene.client, {across.start, down.start, across.size, down.size});
        if (!rect.empty()) writer.add(FrameItem::Kind::Tint, rect, cellgrid::FrameColor::Highlight);
    }
}

/// Whether the current cell begins under what stands still.
struct Cut {
    Cut(const FrameScene& scene, const Bands& rows, const Bands& cols) {
        const Band* const row = rows.find(scene.row);
        const Band* const col = cols.find(scene.col);
        down = row != nullptr && !row->still && row->start < scene.grid.FixedHeight();
        across = col != nullptr && !col->still && col->start < scene.grid.StillWidth();
    }
    bool down = false;
    bool across = false;
};

/// The cells beside the headers, and what is selected of them.
void writeData(FrameWriter& writer, const FrameScene& scene, std::span<const Band> rows,
               std::span<const Band> cols) {
    FrameRegion(scene, writer, rows, cols, false).write();
    writeTints(writer, scene, rows, cols);
}

/// Where scrolling begins, beside frozen columns.
void writeFrozenEdge(FrameWriter& writer, const FrameScene& scene, const Bands& rows) {
    const CellGrid& grid = scene.grid;
    const std::int32_t right = grid.StillWidth();
    if (right == grid.FixedWidth()) return;
    const Rect edge = overlap(
        scene.client, {right - cellgrid::LineWidth, 0, cellgrid::LineWidth, rows.end(scene.client.bottom())});
    if (!edge.empty() && edge.overlaps(scene.area))
        writer.add(FrameItem::Kind::Line, edge, cellgrid::FrameColor::Shadow);
}

void writeFocus(FrameWriter& writer, const FrameScene& scene, const FrameState& state, const Bands& rows,
                const Bands& cols) {
    if (scene.wholeRow) return;
    const auto* row = rows.find(scene.row);
    const auto* col = cols.find(scene.col);
    if (!row || !col) return;
    const auto color = state.focused ? cellgrid::FrameColor::Highlight : cellgrid::FrameColor::Shadow;
    writer.add(FrameItem::Kind::Focus, {col->start, row->start, col->size, row->size}, color, scene.row,
               scene.col);
}
}  // namespace

void makeFrame(Frame& frame, const CellGrid& grid, const FrameState& state) {
    frame.width = grid.Width();
    frame.height = grid.Height();
    const Rect view{0, 0, frame.width, frame.height};
    const Rect shown = state.clip.empty() ? view : overlap(view, state.clip);
    FrameWriter writer(frame);
    if (shown.empty()) return;

    const FrameScene scene(grid, state, shown);
    const Bands rows = cellgrid::visibleRows(grid, scene.area);
    const Bands cols = cellgrid::visibleCols(grid, scene.area);
    writeBackground(writer, scene, shown, rows, cols);
    // what is cut lies under what stands still, and the outline of the current cell with it
    const Cut cut(scene, rows, cols);
    if (grid.TextsRunOver() || grid.LeftOffset() > 0) {
        // no text runs over the edge of frozen columns: beyond it stands now this one, now that one
        writeData(writer, scene, rows.scrolled(), cols.scrolled());
        if (cut.across) writeFocus(writer, scene, state, rows, cols);
        writeData(writer, scene, rows.scrolled(), cols.frozen());
    } else {
        writeData(writer, scene, rows.scrolled(), cols.data());
    }
    if (cut.down && !cut.across) writeFocus(writer, scene, state, rows, cols);
    FrameRegion(scene, writer, rows.scrolled(), cols.fixed(), true).write();
    if (grid.LeftOffset() > 0) {
        FrameRegion(scene, writer, rows.fixed(), cols.scrolled(), true).write();
        FrameRegion(scene, writer, rows.fixed(), cols.still(), true).write();
    } else {
        FrameRegion(scene, writer, rows.fixed(), cols.all, true).write();
    }
    writeFrozenEdge(writer, scene, rows);
    if (!cut.down && !cut.across) writeFocus(writer, scene, state, rows, cols);
}

Frame makeFrame(const CellGrid& grid, const FrameState& state) {
    Frame frame;
    makeFrame(frame, grid, state);
    return frame;
}
}  // namespace kxVsGrid
