// What a window paints of a grid: an ordered list of fills, lines, texts, check marks and veils for the
// visible part.
//
//     kxVsGrid::Frame frame = kxVsGrid::makeFrame(grid, state);
//     for (const auto& item : frame.items) painter.draw(item);   // first to last
//
// A toolkit replays it, a test reads it, a printer can replay it. Its cost depends on what is visible, not on
// how many rows there are.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {

/// A colour beside those of the system: the light grey 0xE0E0E0, and what stands for it where the palette is
/// dark. It is in the place of CellGrid::FittedColor.
constexpr std::uint32_t FittedGrey = 0x8000001E;
/// Grounds of cells that were found (CellGrid::CellTint): yellow, and a stronger one for that of the clerk, in tones
/// that fit the palette's texts.
constexpr std::uint32_t FoundGround = 0x80000101;
constexpr std::uint32_t FoundHereGround = 0x80000102;

struct FrameItem {
    enum class Kind : std::uint8_t {
        Fill,       ///< the rectangle in the colour
        Line,       ///< a hairline along the longer side of the rectangle (one device pixel wide)
        Text,       ///< `text` in the colour, aligned and clipped to the rectangle
        CheckMark,  ///< a check box in the middle of the rectangle; `checked`
        Focus,      ///< the outline of the current cell
        Raised,  ///< a light hairline along the left and upper edges of the rectangle, a dark one along the
                 ///< lines that it ends with: tones of the colour, which is that of the ground
        Tint,    ///< a veil of the colour over the rectangle, a quarter of it: what is below shows through
        Mark,    ///< a triangle in the upper right half of the rectangle, for a mark of the kind `mark`
        Funnel,  ///< that fills the rectangle: the header of a column that filters (CellGrid::ColFiltered)
    };
    Kind kind = Kind::Fill;
    bool checked = false;
    CellMark::Kind mark = CellMark::Kind::Problem;
    std::uint8_t shade = 0;  ///< hundredths of black that are mixed into a fill, of white where it is dark
    mEmflexAlign alignment = flexAlignLeftCenter;  ///< resolved, never general
    std::uint32_t color = 0;                       ///< system colours (high bit set) stay as they are
    Rect rect;                                     ///< twips, in the view
    std::int32_t row = -1;                         ///< the cell it belongs to, -1 for none
    std::int32_t col = -1;
    std::string text;
};

/// What a frame depends on beside the grid.
struct FrameState {
    bool focused = false;     ///< the grid or its editor has the focus
    bool editorOpen = false;  ///< the editor lies over the current cell
    bool flat = false;        ///< no cell is raised, whatever the Appearance
    Rect clip{0, 0, -1, -1};  ///< only what overlaps it is made; an empty one stands for the whole view
};

struct Frame {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::vector<FrameItem> items;
};

Frame makeFrame(const CellGrid& grid, const FrameState& state = {});
/// The same into an existing frame, whose memory is used again.
void makeFrame(Frame& frame, const CellGrid& grid, const FrameState& state = {});
}  // namespace kxVsGrid
