#include "cellgrid/format/DatePattern.h"

#include <array>
#include <cstddef>

#include "cellgrid/format/PatternText.h"
#include "support/Dates.h"

namespace kxVsGrid::cellgrid {
namespace {

using Part = std::int32_t DateTime::*;

Part partOf(char letter) {
    switch (letter) {
        case 'y':
        case 'Y':
            return &DateTime::year;
        case 'm':
        case 'M':
            return &DateTime::month;
        case 'd':
        case 'D':
            return &DateTime::day;
        case 'h':
        case 'H':
            return &DateTime::hour;
        case 's':
        case 'S':
            return &DateTime::second;
        default:
            return nullptr;
    }
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

void writeNumber(std::int32_t value, std::size_t digits, std::string& shown) {
    std::array<char, 10> buffer{};
    std::size_t at = buffer.size();
    for (; value > 0 || at > buffer.size() - digits; value /= 10)
        buffer[--at] = static_cast<char>('0' + value % 10);
    shown.append(buffer.data() + at, buffer.size() - at);
}
}  // namespace

std::optional<DatePattern> DatePattern::read(std::string_view pattern) {
    DatePattern read;
    bool hasPart = false;
    bool hasWord = false;
    char before = 0;  // the letter that the step under way consists of
    readPattern(pattern, [&](char c, bool literal, std::size_t) {
        const Part part = literal ? nullptr : partOf(c);
        hasWord = hasWord || (!literal && !part && isLetter(c));
        if (part && part == partOf(before)) {
            ++read.steps_.back().letters;
            return;
        }
        before = part ? c : '\0';
        if (part) {
            hasPart = true;
            read.steps_.push_back({part, 1, {}});
        } else {
            if (read.steps_.empty() || read.steps_.back().part) read.steps_.emplace_back();
            read.steps_.back().literal += c;
        }
    });
    if (!hasPart || hasWord) return std::nullopt;
    read.tellMinutesFromMonths();
    return read;
}

void DatePattern::tellMinutesFromMonths() {
    Step* before = nullptr;
    for (Step& step : steps_) {
        if (!step.part) continue;
        if (step.part == &DateTime::month && before && before->part == &DateTime::hour)
            step.part = &DateTime::minute;
        if (step.part == &DateTime::second && before && before->part == &DateTime::month)
            before->part = &DateTime::minute;
        before = &step;
    }
}

bool DatePattern::apply(std::string_view text, std::string& shown) const {
    const auto date = support::parseDate(text);
    if (!date) return false;
    shown.clear();
    for (const Step& step : steps_) write(step, *date, shown);
    return true;
}

void DatePattern::write(const Step& step, const DateTime& date, std::string& shown) {
    if (!step.part) {
        shown += step.literal;
        return;
    }
    const std::int32_t value = date.*step.part;
    if (step.part != &DateTime::year)
        writeNumber(value, step.letters > 1 ? 2 : 1, shown);
    else if (step.letters > 2)
        writeNumber(value, 4, shown);
    else
        writeNumber(value % 100, 2, shown);
}
}  // namespace kxVsGrid::cellgrid
