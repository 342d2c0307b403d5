// What goes to and comes from the clipboard.
#pragma once

#include <string>

namespace kxVsGrid {

/// The forms in which a block of cells is put there; empty ones are not there.
struct ClipboardContent {
    /// UTF-8; cells stand between tabs and line ends, with quotes where they need them. Beside a block of one cell
    /// it is the text of that cell, as it is.
    std::string text;
    std::string block;     ///< the control's own form, which another program keeps without looking into it
    bool headers = false;  ///< the first row are captions
};

/// The text as an HTML table, for programs that take no other: made when one of them asks.
std::string htmlOf(const ClipboardContent& content);
}  // namespace kxVsGrid
