#include "support/TextPattern.h"

#include <algorithm>

namespace kxVsGrid::support {
namespace {

bool isLetter(char c) {
    return inLowerCase(c) >= 'a' && inLowerCase(c) <= 'z';
}
}  // namespace

TextPattern::TextPattern(std::string_view text, bool whole, bool matchCase)
    : text_(text),
      whole_(whole),
      folds_(!matchCase && std::any_of(text.begin(), text.end(), [](char c) { return isLetter(c); })) {
    if (text_.empty()) return;
    if (folds_)
        std::transform(text_.begin(), text_.end(), text_.begin(), [](char c) { return inLowerCase(c); });
    last_ = text_.back();
    lasts_ = pattern::Each * static_cast<unsigned char>(last_);
    if (folds_ && isLetter(last_)) lastCase_ = pattern::Each * 0x20;
}

bool TextPattern::matchesAt(const char* text) const {
    if (!folds_) return std::memcmp(text, text_.data(), text_.size()) == 0;
    for (std::size_t i = 0; i < text_.size(); ++i)
        if (inLowerCase(text[i]) != text_[i]) return false;
    return true;
}

std::size_t TextPattern::find(std::string_view text, std::size_t from) const {
    if (text_.empty() || text.size() < text_.size() || from > text.size() - text_.size())
        return std::string_view::npos;
    const std::size_t end = findEnd(text.data(), from + text_.size() - 1, text.size());
    return end == std::string_view::npos ? end : end + 1 - text_.size();
}

std::size_t TextPattern::occurrences(std::string_view text) const {
    if (whole_) return in(text) ? 1 : 0;
    std::size_t count = 0;
    for (std::size_t at = find(text, 0); at != std::string_view::npos; at = find(text, at + text_.size()))
        ++count;
    return count;
}

std::string TextPattern::replaced(std::string_view text, std::string_view with) const {
    if (whole_) return std::string(in(text) ? with : text);
    std::string result;
    std::size_t done = 0;
    for (std::size_t at = find(text, 0); at != std::string_view::npos; at = find(text, done)) {
        result.append(text.substr(done, at - done)).append(with);
        done = at + text_.size();
    }
    return result.append(text.substr(done));
}
}  // namespace kxVsGrid::support
