// A text box without a window: what a clerk's keys do to a text and its caret.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::headless {

struct TextLine {
    std::string text;
    std::size_t selStart = 0;   ///< in characters
    std::size_t selLength = 0;  ///< in characters
    std::int16_t limit = 0;     ///< most characters that can be typed, 0 for no limit
    bool multiLine = false;

    /// The characters take the selection's place, as far as the limit lets them.
    void insert(std::string_view characters);
    /// What a clipboard holds: in one line its line ends become blanks, and those at its end, which tables
    /// put there, are left out. An empty text changes nothing.
    void paste(std::string_view content);
    std::string selected() const;
    /// Backspace, Delete, Left, Right, Home, End; Enter where several lines are allowed. Other keys do
    /// nothing.
    void key(Key key);

  private:
    void removeSelection();
    std::size_t length() const;
};
}  // namespace kxVsGrid::headless
