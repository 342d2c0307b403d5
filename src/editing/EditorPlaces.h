// Where the text box and the help button of an open editor stand: the button never takes room that the text
// needs.
#pragma once

#include <cstdint>
#include <string_view>

#include "kxVsGrid/Geometry.h"

namespace kxVsGrid::editing {

struct EditorPlaces {
    Rect text;
    Rect button;
    bool outside = false;  ///< the button stands beside the cell
};

/// What a text box needs to show the whole text with its caret, twips: the widest of its lines and the room
/// beside it.
std::int32_t roomForText(const TextMetrics& metrics, std::string_view text);

/// Places both over and beside `cell`. The button stands inside at the right edge where the text keeps the
/// room that it needs and some more to type into; otherwise to the right of the cell, at the edge of the view
/// to its left. A cell as wide as the view has it inside, whatever the text needs. All in twips of the view,
/// which shows `client`.
EditorPlaces placesWithButton(const Rect& cell, const Rect& client, std::int32_t needed);
}  // namespace kxVsGrid::editing
