#include "editing/EditorPlaces.h"

#include <algorithm>

namespace kxVsGrid::editing {
namespace {

/// What a text box keeps free on each side of its text, and what its caret takes.
constexpr std::int32_t SideMargin = 45;
constexpr std::int32_t CaretWidth = 30;
/// In a tall row the button is no square any more.
constexpr std::int32_t WidestButton = 450;
/// A cell that leaves less than so many buttons for its text is too narrow for both.
constexpr std::int32_t FewestButtons = 2;

EditorPlaces inside(const Rect& cell, const Rect& client, std::int32_t button) {
    const std::int32_t right = std::min(cell.right(), client.right());
    button = std::clamp(button, 0, std::max(0, (right - cell.left) / 2));
    EditorPlaces places;
    places.button = {right - button, cell.top, button, cell.height};
    places.text = {cell.left, cell.top, right - button - cell.left, cell.height};
    return places;
}
}  // namespace

std::int32_t roomForText(const TextMetrics& metrics, std::string_view text) {
    std::int32_t widest = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        widest = std::max(widest, metrics.textWidth(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return widest + 2 * SideMargin + CaretWidth;
}

EditorPlaces placesWithButton(const Rect& cell, const Rect& client, std::int32_t needed) {
    const std::int32_t button = std::min(cell.height, WidestButton);
    const EditorPlaces within = inside(cell, client, button);
    if (within.text.width >= std::max(needed, FewestButtons * button)) return within;
    const bool roomRight = cell.right() + button <= client.right();
    const bool roomLeft = cell.left - button >= client.left;
    if (!roomRight && !roomLeft) return within;
    const std::int32_t left = roomRight ? cell.right() : cell.left - button;
    return {cell, {left, cell.top, button, cell.height}, true};
}
}  // namespace kxVsGrid::editing
