// A text box without a window: what a clerk's keys do to a text and its caret.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::headless {

struct TextLine {
    struct Edit {
        std::string text;
        std::size_t caret;
    };

    std::string text;
    std::size_t selStart = 0;   ///< in characters
    std::size_t selLength = 0;  ///< in characters
    std::int16_t limit = 0;     ///< most characters that can be typed, 0 for no limit
    bool multiLine = false;
    bool plainSigns = false;   ///< full-width signs go in as their ASCII selves
    std::vector<Edit> past;    ///< texts that undoing leads back to, the oldest first
    std::vector<Edit> future;  ///< and those that were undone

    /// The characters take the selection's place, as far as the limit lets them.
    void insert(std::string_view entered);
    /// What a clipboard holds: in one line its line ends become blanks, and those at its end, which tables
    /// put there, are left out. An empty text changes nothing.
    void paste(std::string_view content);
    std::string selected() const;
    void selectAll() {
        selStart = 0;
        selLength = length();
    }
    /// Backspace, Delete, Left, Right, Home, End; Enter where several lines are allowed. Other keys do
    /// nothing.
    void key(Key key);

    /// The text of before the last change, and of after it again. False when there is none.
    bool undo();
    bool redo();
    /// The text is code's: nothing leads back behind it.
    void set(std::string_view content);

  private:
    void remember();
    void erase();
    bool go(std::vector<Edit>& from, std::vector<Edit>& to);
    void removeSelection();
    std::size_t length() const;
};
}  // namespace kxVsGrid::headless
