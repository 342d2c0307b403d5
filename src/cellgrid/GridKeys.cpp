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

/// Where a page up or down leads: past as many rows as fit into the view, one at least.
std::int32_t CellGrid::Impl::pageTarget(bool down) const {
    const cellgrid::Lane& lane = layout.rows;
    const std::int32_t page = std::max(0, layout.clientHeight() - layout.bottomStrip - lane.fixedExtent());
    const std::int64_t here = lane.axis.position(currentRow);
    const std::int32_t step = neighbour(lane, currentRow, down);
    const std::int32_t far = down ? lane.axis.indexAt(here + page) : lane.axis.firstFrom(here - page);
    const std::int32_t end = outermost(lane, currentRow, down);
    return down ? std::min(std::max(far, step), end) : std::max(std::min(far, step), end);
}

/// Moves for the user: the view follows.
bool CellGrid::Impl::moveByUser(std::int32_t newRow, std::int32_t newCol) {
    const bool moves = newRow != currentRow || newCol != currentCol;
    const std::int32_t oldTop = layout.rows.first;
    const std::int32_t oldLeft = layout.cols.first;
    // where whole rows are selected, another row is no reason to go sideways
    const bool sideways = !selectsRows || newCol != currentCol;
    if (move(newRow, newCol)) bringIntoView(sideways);
    return moves || layout.rows.first != oldTop || layout.cols.first != oldLeft;
}

/// Carries a navigation key out. Answers whether it was one that led anywhere.
bool CellGrid::Impl::navigate(Key key, bool ctrl) {
    if (currentRow < 0 || currentCol < 0) return false;
    const cellgrid::Lane& down = layout.rows;
    const cellgrid::Lane& across = layout.cols;
    const bool forward = key == Key::Right || key == Key::Down || key == Key::PageDown || key == Key::End;
    switch (key) {
        case Key::Left:
        case Key::Right:
            if (!selectsRows) return moveByUser(currentRow, neighbour(across, currentCol, forward));
            {
                const std::int32_t left = across.first;
                scrollTo(down.first, neighbour(across, left, forward));
                return across.first != left;
            }
        case Key::Up:
        case Key::Down:
            return moveByUser(neighbour(down, currentRow, forward), currentCol);
        case Key::PageUp:
        case Key::PageDown:
            return moveByUser(pageTarget(forward), currentCol);
        case Key::Home:
        case Key::End:
            return moveByUser(ctrl ? outermost(down, currentRow, forward) : currentRow,
                              outermost(across, currentCol, forward));
        default:
            return false;
    }
}

bool CellGrid::keyDown(std::int16_t code, std::int16_t shift) {
    const auto impl = held();
    KeyDown(code, shift);
    if (code == 0 || !impl->there) return true;
    if ((shift & AltKey) != 0) return false;
    return impl->navigate(static_cast<Key>(code), (shift & CtrlKey) != 0);
}

std::int16_t CellGrid::keyPress(std::int16_t ascii, std::string_view character) {
    const auto kept = held();
    CharacterTyped(ascii, character);
    if (kept->there) KeyPress(ascii);
    return ascii;
}
}  // namespace kxVsGrid
