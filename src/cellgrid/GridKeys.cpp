// The keys that move about the grid. Hidden rows and columns are stepped over, the fixed area is not entered.
#include <algorithm>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

namespace {
/// The nearest shown element before or after `index` that does not lie in the fixed part; `index` itself when
/// there is none.
std::int32_t neighbour(const cellgrid::Lane& lane, std::int32_t index, bool forward) {
    const std::int32_t found =
        forward ? lane.axis.shownAfter(std::max(index, lane.fixed - 1)) : lane.axis.shownBefore(index);
    return found < lane.fixed ? index : found;
}

/// The first or last shown element that does not lie in the fixed part; `index` when there is none.
std::int32_t outermost(const cellgrid::Lane& lane, std::int32_t index, bool last) {
    const std::int32_t found =
        last ? lane.axis.shownBefore(lane.axis.count()) : lane.axis.shownAfter(lane.fixed - 1);
    return found < lane.fixed ? index : found;
}

}  // namespace

/// Where a page up or down leads from a row: past as many rows as fit into the view, one at least.
std::int32_t CellGrid::Impl::pageTarget(std::int32_t row, bool down) const {
    const cellgrid::Lane& lane = layout.rows;
    const std::int32_t page = std::max(0, layout.clientHeight() - layout.bottomStrip - lane.fixedExtent());
    const std::int64_t here = lane.axis.position(row);
    const std::int32_t step = neighbour(lane, row, down);
    const std::int32_t far = down ? lane.axis.indexAt(here + page) : lane.axis.firstFrom(here - page);
    const std::int32_t end = outermost(lane, row, down);
    return down ? std::min(std::max(far, step), end) : std::max(std::min(far, step), end);
}

std::optional<CellGrid::Impl::Place> CellGrid::Impl::target(Key key, bool ctrl, Place from) const {
    const cellgrid::Lane& down = layout.rows;
    const cellgrid::Lane& across = layout.cols;
    const bool forward = key == Key::Right || key == Key::Down || key == Key::PageDown || key == Key::End;
    switch (key) {
        case Key::Left:
        case Key::Right:
            return Place{from.row, neighbour(across, from.col, forward)};
        case Key::Up:
        case Key::Down:
            return Place{neighbour(down, from.row, forward), from.col};
        case Key::PageUp:
        case Key::PageDown:
            return Place{pageTarget(from.row, forward), from.col};
        case Key::Home:
        case Key::End:
            return Place{ctrl ? outermost(down, from.row, forward) : from.row,
                         outermost(across, from.col, forward)};
        default:
            return std::nullopt;
    }
}

/// Moves for the user: the view follows, and what was selected ends where the move leads nowhere, too.
bool CellGrid::Impl::moveByUser(std::int32_t newRow, std::int32_t newCol) {
    const bool moves = newRow != currentRow || newCol != currentCol;
    const cellgrid::Viewport::Place before = layout.place();
    // where whole rows are selected, another row is no reason to go sideways
    const bool sideways = !selectsRows || newCol != currentCol;
    const bool unselects = !moves && select({});
    if (move(newRow, newCol)) bringIntoView(currentRow, currentCol, true, sideways);
    return moves || unselects || layout.place() != before;
}

/// Carries a navigation key out. Answers whether it was one that led anywhere.
bool CellGrid::Impl::navigate(Key key, std::int16_t shift) {
    if (currentRow < 0 || currentCol < 0) return false;
    if (selectsRows && (key == Key::Left || key == Key::Right)) {
        const cellgrid::Viewport::Place before = layout.place();
        const bool toItsBeginning = key == Key::Left && before.across.offset > 0;
        const std::int32_t left = before.across.index;
        scrollTo({before.down, {toItsBeginning ? left : neighbour(layout.cols, left, key == Key::Right), 0}});
        return layout.place() != before;
    }
    const bool extending = extends(shift);
    const Place from = extending ? Place{rowEnds().corner, colEnds().corner} : Place{currentRow, currentCol};
    const std::optional<Place> place = target(key, (shift & CtrlKey) != 0, from);
    if (!place) return false;
    return extending ? extendByUser(*place) : moveByUser(place->row, place->col);
}

bool CellGrid::keyDown(std::int16_t code, std::int16_t shift) {
    const auto impl = held();
    KeyDown(code, shift);
    if (code == 0 || !impl->there) return true;
    if ((shift & AltKey) != 0) return false;
    return impl->navigate(static_cast<Key>(code), shift);
}

std::int16_t CellGrid::keyPress(std::int16_t ascii, std::string_view character) {
    const auto kept = held();
    CharacterTyped(ascii, character);
    if (kept->there) KeyPress(ascii);
    return ascii;
}
}  // namespace kxVsGrid
