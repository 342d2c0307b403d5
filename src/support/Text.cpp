#include "support/Text.h"

#include <algorithm>
#include <iterator>

namespace kxVsGrid::support {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

struct Character {
    char32_t codePoint;
    std::size_t bytes;
};

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// The character that starts at `at`; a byte that starts no valid sequence is one character of its own.
Character characterAt(std::string_view text, std::size_t at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) return {lead, 1};
    const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() - at < bytes) return {kReplacement, 1};
    char32_t code = lead & (0xFFU >> (bytes + 1));
    for (std::size_t i = 1; i < bytes; ++i) {
        if (!isContinuation(text[at + i])) return {kReplacement, 1};
        code = code << 6U | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
    }
    const bool overlong = (bytes == 3 && code < 0x800) || (bytes == 4 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (overlong || surrogate || code > 0x10FFFF) return {kReplacement, 1};
    return {code, bytes};
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string_view trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::size_t characters(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); at += characterAt(text, at).bytes) ++count;
    return count;
}

std::size_t byteOfCharacter(std::string_view text, std::size_t index) {
    std::size_t at = 0;
    for (; index > 0 && at < text.size(); --index) at += characterAt(text, at).bytes;
    return at;
}

std::string_view left(std::string_view text, std::size_t count) {
    return text.substr(0, byteOfCharacter(text, count));
}

char32_t firstCodePoint(std::string_view text) {
    return text.empty() ? 0 : characterAt(text, 0).codePoint;
}

std::string utf8(char32_t codePoint) {
    const auto tail = [codePoint](unsigned shift) {
        return static_cast<char>(0x80U | (codePoint >> shift & 0x3FU));
    };
    if (codePoint < 0x80) return {static_cast<char>(codePoint)};
    if (codePoint < 0x800) return {static_cast<char>(0xC0U | codePoint >> 6U), tail(0)};
    if (codePoint > 0x10FFFF || (codePoint >= 0xD800 && codePoint <= 0xDFFF)) return utf8(kReplacement);
    if (codePoint < 0x10000) return {static_cast<char>(0xE0U | codePoint >> 12U), tail(6), tail(0)};
    return {static_cast<char>(0xF0U | codePoint >> 18U), tail(12), tail(6), tail(0)};
}

std::size_t validBytes(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const Character next = characterAt(text, at);
        if (next.codePoint == kReplacement && next.bytes == 1) break;
        at += next.bytes;
    }
    return at;
}

void appendValid(std::string& out, std::string_view text) {
    while (!text.empty()) {
        const std::size_t valid = validBytes(text);
        out += text.substr(0, valid);
        text.remove_prefix(valid);
        if (text.empty()) return;
        out += "\uFFFD";
        text.remove_prefix(1);
    }
}

std::string withoutLineBreaks(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(result),
                 [](char c) { return c != '\n' && c != '\r'; });
    return result;
}

std::string_view withoutTrailingLineBreaks(std::string_view text) {
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) text.remove_suffix(1);
    return text;
}

std::string inOneLine(std::string_view text) {
    text = withoutTrailingLineBreaks(text);
    std::string line;
    line.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        if (!pair) line += text[i] == '\n' || text[i] == '\r' ? ' ' : text[i];
    }
    return line;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

bool isWide(char32_t codePoint) {
    struct Range {
        char32_t first, last;
    };
    static constexpr Range kWide[] = {
        {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},   {0x4E00, 0xA4CF},
        {0xA960, 0xA97C},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6B},
        {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6},   {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF},
        {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD},
    };
    return std::any_of(std::begin(kWide), std::end(kWide), [codePoint](const Range& range) {
        return codePoint >= range.first && codePoint <= range.last;
    });
}
}  // namespace kxVsGrid::support
