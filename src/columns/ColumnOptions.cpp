#include "kxVsGrid/ColumnOptions.h"

#include <cmath>
#include <locale>
#include <regex>

#include "kxVsGrid/Members.h"
#include "support/Text.h"

namespace kxVsGrid {
namespace {

/// The code points of a text in the units that patterns are matched by.
std::wstring wide(std::string_view text) {
    std::wstring units;
    while (!text.empty()) {
        const std::string_view character = support::left(text, 1);
        const char32_t point = support::firstCodePoint(character);
        if (sizeof(wchar_t) == 2 && point > 0xFFFF) {
            units += static_cast<wchar_t>(0xD7C0 + (point >> 10));
            units += static_cast<wchar_t>(0xDC00 + (point & 0x3FF));
        } else {
            units += static_cast<wchar_t>(point);
        }
        text.remove_prefix(character.size());
    }
    return units;
}

void requireNumber(const char* member, std::optional<double> number) {
    if (number && !std::isfinite(*number))
        throw GridError("ColumnOptions." + std::string(member) + ": it is no number");
}
}  // namespace

/// What letters and digits are does not depend on the locale of the program.
struct ColumnOptions::Pattern {
    explicit Pattern(std::string_view expression) {
        regex.imbue(std::locale::classic());
        regex.assign(wide(expression), std::regex_constants::ECMAScript | std::regex_constants::optimize);
    }
    std::wregex regex;
};

void ColumnOptions::mostDecimals(std::optional<int> digits) {
    if (digits && *digits < 0)
        throw GridError("ColumnOptions.mostDecimals: " + std::to_string(*digits) + " is negative");
    mostDecimals_ = digits;
}

void ColumnOptions::smallest(std::optional<double> number) {
    requireNumber("smallest", number);
    smallest_ = number;
}

void ColumnOptions::largest(std::optional<double> number) {
    requireNumber("largest", number);
    largest_ = number;
}

void ColumnOptions::pattern(std::string_view expression) {
    std::string kept(expression);
    std::shared_ptr<const Pattern> compiled;
    try {
        if (!kept.empty()) compiled = std::make_shared<const Pattern>(kept);
    } catch (const std::regex_error& error) {
        throw GridError("ColumnOptions.pattern: \"" + kept + "\" is no regular expression: " + error.what());
    }
    pattern_ = std::move(kept);
    compiled_ = std::move(compiled);
}

/// It is held while it is asked, since it may put another one: what it holds by value shall not be copied then.
void ColumnOptions::suggest(SuggestionSource source) {
    if (!source) {
        suggest_ = nullptr;
        return;
    }
    suggest_ = [shared = std::make_shared<const SuggestionSource>(std::move(source))](
                   const SuggestionRequest& request) { (*shared)(request); };
}

/// The matcher calls itself for each character: the stack bounds how long a text can be.
bool ColumnOptions::matches(std::string_view text) const {
    if (!compiled_) return true;
    const std::wstring units = wide(text);
    return units.size() <= LongestMatched && std::regex_match(units, compiled_->regex);
}
}  // namespace kxVsGrid
