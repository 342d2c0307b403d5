// The editor's text box as the core keeps it: text, tag and selection. The machine's own control mirrors it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "support/Text.h"

namespace kxVsGrid::editing {

class TextBox {
  public:
    const std::string& text() const { return text_; }
    const std::string& tag() const { return tag_; }
    std::size_t selStart() const { return selStart_; }    ///< in characters
    std::size_t selLength() const { return selLength_; }  ///< in characters
    std::size_t length() const { return support::characters(text_); }

    /// Another text puts the caret before its first character. True when it is another one.
    bool setText(std::string_view text) {
        if (text_ == text) return false;
        text_ = text;
        selStart_ = selLength_ = 0;
        return true;
    }
    void setTag(std::string_view tag) { tag_ = tag; }
    /// Positions beyond the text are taken back to its end.
    void select(std::size_t start, std::size_t count) {
        const std::size_t end = length();
        selStart_ = std::min(start, end);
        selLength_ = std::min(count, end - selStart_);
    }
    void selectAll() { select(0, length()); }
    void caretToEnd() { select(length(), 0); }

    bool allSelected() const { return selStart_ == 0 && selLength_ == length(); }
    bool caretAtEnd() const { return selLength_ == 0 && selStart_ == length(); }

  private:
    std::string text_;
    std::string tag_;
    std::size_t selStart_ = 0;
    std::size_t selLength_ = 0;
};
}  // namespace kxVsGrid::editing
