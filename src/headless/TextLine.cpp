#include "headless/TextLine.h"

#include <algorithm>
#include <utility>

#include "support/PlainSigns.h"
#include "support/Text.h"

namespace kxVsGrid::headless {

using support::byteOfCharacter;

namespace {

/// Line ends of whatever kind as line feeds.
std::string withLineFeeds(std::string_view content) {
    std::string lines;
    for (std::size_t i = 0; i < content.size(); ++i) {
        const bool endsLine = content[i] == '\r';
        if (endsLine && i + 1 < content.size() && content[i + 1] == '\n') continue;
        lines += endsLine ? '\n' : content[i];
    }
    return lines;
}
}  // namespace

std::size_t TextLine::length() const {
    return support::characters(text);
}

void TextLine::set(std::string_view content) {
    if (text == content) return;
    text = content;
    past.clear();
    future.clear();
}

void TextLine::remember() {
    past.push_back({text, selStart});
    future.clear();
}

bool TextLine::go(std::vector<Edit>& from, std::vector<Edit>& to) {
    if (from.empty()) return false;
    to.push_back({text, selStart});
    text = std::move(from.back().text);
    selStart = from.back().caret;
    selLength = 0;
    from.pop_back();
    return true;
}

bool TextLine::undo() {
    return go(past, future);
}

bool TextLine::redo() {
    return go(future, past);
}

void TextLine::removeSelection() {
    const std::size_t from = byteOfCharacter(text, selStart);
    const std::size_t to = byteOfCharacter(text, selStart + selLength);
    text.erase(from, to - from);
    selLength = 0;
}

void TextLine::insert(std::string_view entered) {
    const std::string taken = plainSigns ? support::inPlainSigns(entered) : std::string(entered);
    std::string_view characters = taken;
    const std::size_t kept = length() - selLength;
    if (limit > 0) {
        const auto most = static_cast<std::size_t>(limit);
        characters = support::left(characters, most > kept ? most - kept : 0);
        if (characters.empty()) return;
    }
    remember();
    removeSelection();
    text.insert(byteOfCharacter(text, selStart), characters);
    selStart += support::characters(characters);
}

void TextLine::paste(std::string_view content) {
    const std::string pasted = multiLine ? withLineFeeds(content) : support::inOneLine(content);
    if (!pasted.empty()) insert(pasted);
}

void TextLine::erase() {
    if (selLength == 0) return;
    remember();
    removeSelection();
}

std::string TextLine::selected() const {
    const std::size_t from = byteOfCharacter(text, selStart);
    return text.substr(from, byteOfCharacter(text, selStart + selLength) - from);
}

void TextLine::key(Key key) {
    const bool selected = selLength > 0;
    switch (key) {
        case Key::Back:
            if (!selected && selStart > 0) {
                --selStart;
                selLength = 1;
            }
            erase();
            break;
        case Key::Delete:
            if (!selected && selStart < length()) selLength = 1;
            erase();
            break;
        case Key::Left:
            if (!selected && selStart > 0) --selStart;
            selLength = 0;
            break;
        case Key::Right:
            selStart = selected ? selStart + selLength : std::min(selStart + 1, length());
            selLength = 0;
            break;
        case Key::Home:
            selStart = selLength = 0;
            break;
        case Key::End:
            selStart = length();
            selLength = 0;
            break;
        case Key::Enter:
            if (multiLine) insert("\n");
            break;
        default:
            break;
    }
}
}  // namespace kxVsGrid::headless
