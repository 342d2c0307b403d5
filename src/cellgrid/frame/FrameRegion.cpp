#include "cellgrid/frame/FrameRegion.h"

#include <algorithm>
#include <string>
#include <utility>

#include "cellgrid/frame/Overlap.h"
#include "support/Numbers.h"

namespace kxVsGrid::cellgrid {
namespace {

/// Of the current cell.
constexpr std::int32_t OutlineWidth = 30;
/// Each side of the triangle that a mark is.
constexpr std::int32_t MarkSide = 90;

/// The sign of a column that filters, and what lies between it and the end of its header.
constexpr std::int32_t FunnelSide = 135;
constexpr std::int32_t FunnelMargin = 45;

/// In the colours' order, blue in the high byte: red, amber, blue.
std::uint32_t colorOf(CellMark::Kind kind) {
    constexpr std::uint32_t Colors[] = {0x1C1CC8, 0x0082D9, 0xC85A14};
    return Colors[static_cast<int>(kind)];
}
}  // namespace

FrameScene::FrameScene(const CellGrid& shown, const FrameState& state, const Rect& clip)
    : grid(shown),
      client{0, 0, shown.ClientWidth(), shown.ClientHeight()},
      area(overlap(clip, client)),
      wholeRow(shown.SelectsRows()),
      editorOpen(state.editorOpen),
      raised(shown.Appearance() != 0 && !state.flat) {
    if (!grid.SelectsOneCell()) selected = grid.Selected();
    // what a cell shows depends on its neighbours
    if (grid.TextsRunOver() && !area.empty()) area = {0, area.top, client.width, area.height};
    const bool data = grid.Row() >= grid.FixedRows() && grid.Col() >= grid.FixedCols();
    if (!grid.ShowCursor() || !data) return;
    row = grid.Row();
    col = grid.Col();
}

FrameRegion::FrameRegion(const FrameScene& scene, FrameWriter& writer, std::span<const Band> rows,
                         std::span<const Band> cols, bool fixed)
    : scene_(scene),
      writer_(writer),
      rows_(rows),
      cols_(cols),
      backColor_(fixed ? scene.grid.BackColorFixed() : scene.grid.BackColor()),
      foreColor_(fixed ? scene.grid.ForeColorFixed() : scene.grid.ForeColor()),
      lineColor_(fixed ? FrameColor::Shadow : FrameColor::LightEdge) {
    if (rows.empty() || cols.empty()) return;
    area_.left = cols.front().start;
    area_.top = rows.front().start;
    area_.width = std::min(cols.back().end(), scene.client.right()) - area_.left;
    area_.height = std::min(rows.back().end(), scene.client.bottom()) - area_.top;
    fitted_ = scene.grid.FittedColor();
    if (fixed)
        merged_.emplace(scene.grid, rows, cols);
    else if (const auto& shade = scene.grid.ColShade())
        for (const Band& col : cols) shades_.push_back(shade(col.index));
}

void FrameRegion::write() {
    if (area_.empty()) return;
    writeFills();
    writeLines();
    if (merged_ && scene_.raised) writeRelief();
    if (merged_) writeMergedBlocks();
    if (!merged_ && scene_.grid.TextsRunOver()) findStretches();
    writeContents();
}

Rect FrameRegion::rectOf(std::size_t firstRow, std::size_t lastRow, std::size_t firstCol,
                         std::size_t lastCol) const {
    const std::int32_t left = cols_[firstCol].start;
    const std::int32_t top = rows_[firstRow].start;
    return {left, top, cols_[lastCol].end() - left, rows_[lastRow].end() - top};
}

CellGrid::Tint FrameRegion::tintOf(std::int32_t row, std::int32_t col) const {
    const auto& tint = scene_.grid.CellTint();
    return tint && !merged_ ? tint(row, col) : CellGrid::Tint::None;
}

/// The ground of a cell that differs from its surroundings.
std::optional<Ground> FrameRegion::ownGround(std::size_t rowBand, std::size_t colBand) const {
    const std::int32_t row = rows_[rowBand].index;
    const std::int32_t col = cols_[colBand].index;
    if (scene_.highlighted(row)) return Ground{FrameColor::Highlight};
    if (const auto tint = tintOf(row, col); tint != CellGrid::Tint::None)
        return Ground{tint == CellGrid::Tint::Found ? FoundGround : FoundHereGround};
    const std::optional<std::uint32_t> color = scene_.grid.CellBackColor(row, col);
    if (color) {
        if (color == backColor_) return std::nullopt;
        return Ground{color == fitted_ ? FittedGrey : *color};
    }
    // the headers of the current cell and of the selection stand out, so that the clerk sees where he is
    if (merged_ && scene_.marksHeader(row, col)) return Ground{FrameColor::ButtonHighlight};
    if (shades_.empty() || shades_[colBand] == 0) return std::nullopt;
    return Ground{backColor_, shades_[colBand]};
}

void FrameRegion::readRuns(std::size_t col, std::vector<Run>& runs) const {
    runs.clear();
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const auto ground = ownGround(row, col);
        if (!ground) continue;
        if (!runs.empty() && runs.back().lastRow + 1 == row && runs.back().ground == *ground)
            runs.back().lastRow = row;
        else
            runs.push_back({row, row, *ground, 0});
    }
}

/// One fill for the region; then what differs, in as few fills as a column-wise search finds.
void FrameRegion::writeFills() {
    writer_.add(FrameItem::Kind::Fill, area_, backColor_);
    std::vector<Run> before;
    std::vector<Run> runs;
    for (std::size_t col = 0; col < cols_.size(); ++col) {
        readRuns(col, runs);
        for (Run& run : runs) {
            const auto left = std::find_if(before.begin(), before.end(), [&](const Run& r) {
                return r.firstRow == run.firstRow && r.lastRow == run.lastRow && r.ground == run.ground;
            });
            if (left != before.end()) {
                run.item = left->item;
                FrameItem& fill = writer_.at(run.item);
                fill.rect.width = cols_[col].end() - fill.rect.left;
                fill.row = fill.col = -1;
                continue;
            }
            const bool oneCell = run.firstRow == run.lastRow;
            run.item = writer_.count();
            writer_
                .add(FrameItem::Kind::Fill, rectOf(run.firstRow, run.lastRow, col, col), run.ground.color,
                     oneCell ? rows_[run.firstRow].index : -1, oneCell ? cols_[col].index : -1)
                .shade = run.ground.shade;
        }
        std::swap(before, runs);
    }
}

void FrameRegion::writeLine(const Rect& line) {
    if (line.overlaps(scene_.area)) writer_.add(FrameItem::Kind::Line, line, lineColor_);
}

void FrameRegion::writeLines() {
    for (const Band& row : rows_) {
        const std::int32_t top = std::max(row.start, row.end() - LineWidth);
        writeLine({area_.left, top, area_.width, row.end() - top});
    }
    for (const Band& col : cols_) {
        const std::int32_t left = std::max(col.start, col.end() - LineWidth);
        writeLine({left, area_.top, col.end() - left, area_.height});
    }
}

/// Each fixed cell stands out from the picture.
void FrameRegion::writeRelief() {
    for (std::size_t row = 0; row < rows_.size(); ++row)
        for (std::size_t col = 0; col < cols_.size(); ++col)
            if (!merged_->covers(row, col)) writeRaised(rectOf(row, row, col, col), row, col);
}

void FrameRegion::writeRaised(const Rect& cell, std::size_t row, std::size_t col) {
    if (!cell.overlaps(scene_.area)) return;
    writer_.add(FrameItem::Kind::Raised, cell, ownGround(row, col).value_or(Ground{backColor_}).color,
                rows_[row].index, cols_[col].index);
}

/// Covers the lines inside of a block, then draws its own.
void FrameRegion::writeMergedBlocks() {
    for (const MergedBlock& block : merged_->blocks()) {
        const Rect rect = rectOf(block.firstRow, block.lastRow, block.firstCol, block.lastCol);
        const auto ground = ownGround(block.firstRow, block.firstCol).value_or(Ground{backColor_});
        writer_.add(FrameItem::Kind::Fill, rect, ground.color, rows_[block.firstRow].index,
                    cols_[block.firstCol].index);
        writeLine({rect.left, rect.bottom() - LineWidth, rect.width, LineWidth});
        writeLine({rect.right() - LineWidth, rect.top, LineWidth, rect.height});
        if (scene_.raised) writeRaised(rect, block.firstRow, block.firstCol);
        const bool filtered = writesFunnel(rows_[block.lastRow], block.firstCol, block.lastCol);
        writeText(rows_[block.firstRow], cols_[block.firstCol],
                  filtered ? writeFunnel(block.firstCol, rect) : rect);
        writeMark(rows_[block.firstRow], cols_[block.firstCol], rect);
    }
}

/// Before any text: what covers lines must come first.
void FrameRegion::findStretches() {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const std::vector<Stretch> found = stretches(scene_.grid, rows_[row].index, cols_);
        for (const Stretch& stretch : found) coverLinesUnder(row, stretch);
        stretches_.insert(stretches_.end(), found.begin(), found.end());
    }
}

void FrameRegion::coverLinesUnder(std::size_t row, const Stretch& stretch) {
    for (std::size_t col = stretch.firstCol; col < stretch.lastCol; ++col) {
        const Ground ground = ownGround(row, col).value_or(Ground{backColor_});
        const Rect seam{cols_[col].end() - LineWidth, rows_[row].start, LineWidth, rows_[row].size};
        writer_.add(FrameItem::Kind::Fill, seam, ground.color).shade = ground.shade;
        writeLine({seam.left, rows_[row].end() - LineWidth, LineWidth, LineWidth});
    }
}

Rect FrameRegion::roomOf(std::size_t row, std::size_t col) const {
    const Rect own = rectOf(row, row, col, col);
    if (stretches_.empty()) return own;
    const Stretch& stretch = stretches_[row * cols_.size() + col];
    Rect room = rectOf(row, row, stretch.firstCol, stretch.lastCol);
    const std::int32_t left = own.left - room.left;
    const std::int32_t right = room.right() - own.right();
    if (left > 0 && right > 0) {  // a centred text stays in the middle of its cell
        const std::int32_t beside = std::min(left, right);
        room = {own.left - beside, own.top, own.width + 2 * beside, own.height};
    }
    return room;
}

void FrameRegion::writeContents() {
    std::vector<bool> checkBoxes;
    for (const Band& col : cols_) checkBoxes.push_back(scene_.grid.ColDataType(col.index) == flexDTBoolean);
    for (std::size_t row = 0; row < rows_.size(); ++row)
        for (std::size_t col = 0; col < cols_.size(); ++col)
            if (!merged_ || !merged_->covers(row, col)) {
                const Rect room = roomOf(row, col);
                writeContent(rows_[row], cols_[col], checkBoxes[col],
                             writesFunnel(rows_[row], col, col) ? writeFunnel(col, room) : room);
                writeMark(rows_[row], cols_[col], rectOf(row, row, col, col));
            }
}

void FrameRegion::writeContent(const Band& row, const Band& col, bool checkBoxes, const Rect& cell) {
    const bool current = row.index == scene_.row && col.index == scene_.col;
    if (current && scene_.editorOpen) return;
    if (!checkBoxes || row.fixed) {
        writeText(row, col, cell);
        return;
    }
    FrameItem& mark =
        writer_.add(FrameItem::Kind::CheckMark, cell, textColor(row.index, col.index), row.index, col.index);
    mark.checked = support::leadingNumber(scene_.grid.Text(row.index, col.index)) != 0;
}

/// The last header row bears it.
bool FrameRegion::writesFunnel(const Band& row, std::size_t firstCol, std::size_t lastCol) const {
    if (!row.fixed || row.index != scene_.grid.FixedRows() - 1) return false;
    for (std::size_t col = firstCol; col <= lastCol; ++col)
        if (scene_.grid.ColFiltered(cols_[col].index)) return true;
    return false;
}

/// At the right end of the header. Answers what it leaves of the header for the caption; a narrow one keeps it all.
Rect FrameRegion::writeFunnel(std::size_t col, const Rect& header) {
    const std::int32_t side = std::min({FunnelSide, header.width - LineWidth, header.height - LineWidth});
    if (side <= 0) return header;
    const std::int32_t right = std::min(FunnelMargin, header.width - LineWidth - side) + LineWidth;
    const Rect rect{header.right() - right - side, header.top + (header.height - side) / 2, side, side};
    const std::int32_t row = scene_.grid.FixedRows() - 1;
    if (rect.overlaps(scene_.area))
        writer_.add(FrameItem::Kind::Funnel, rect, textColor(row, cols_[col].index), row, cols_[col].index);
    const std::int32_t taken = right + side;
    return {header.left, header.top, std::max(header.width - taken, 0), header.height};
}

void FrameRegion::writeText(const Band& row, const Band& col, const Rect& cell) {
    const CellGrid& grid = scene_.grid;
    std::string text = row.fixed ? grid.Text(row.index, col.index) : grid.DisplayText(row.index, col.index);
    const Rect rect{cell.left + TextMargin, cell.top, cell.width - 2 * TextMargin, cell.height};
    if (text.empty() || rect.empty() || !rect.overlaps(scene_.area)) return;
    FrameItem& item =
        writer_.add(FrameItem::Kind::Text, rect, textColor(row.index, col.index), row.index, col.index);
    item.alignment = grid.EffectiveAlignment(row.index, col.index);
    item.text = std::move(text);
}

/// Inside of the lines that end the cell, and of the outline of the current one. An open editor hides it.
void FrameRegion::writeMark(const Band& row, const Band& col, const Rect& cell) {
    const CellMark* const mark = scene_.grid.Mark(row.index, col.index);
    if (!mark) return;
    const bool current = !scene_.wholeRow && row.index == scene_.row && col.index == scene_.col;
    if (scene_.editorOpen && current) return;
    const std::int32_t above = current ? OutlineWidth : 0;
    const std::int32_t beside = current ? OutlineWidth : LineWidth;
    const std::int32_t side = std::min({MarkSide, cell.width - beside, cell.height - LineWidth - above});
    const Rect rect{cell.right() - beside - side, cell.top + above, side, side};
    if (side <= 0 || !rect.overlaps(scene_.area)) return;
    writer_.add(FrameItem::Kind::Mark, rect, colorOf(mark->kind), row.index, col.index).mark = mark->kind;
}

std::uint32_t FrameRegion::textColor(std::int32_t row, std::int32_t col) const {
    if (scene_.highlighted(row)) return FrameColor::HighlightText;
    return scene_.grid.CellForeColor(row, col).value_or(foreColor_);
}
}  // namespace kxVsGrid::cellgrid
