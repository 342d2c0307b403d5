#include "cellgrid/format/NumberPattern.h"

#include <algorithm>

#include "cellgrid/format/PatternText.h"

namespace kxVsGrid::cellgrid {
namespace {

enum SectionNumber : std::size_t { Positive = 0, Negative = 1, Zero = 2 };

bool asksForExponent(std::string_view pattern) {
    char before = 0;
    char last = 0;
    bool found = false;
    readPattern(pattern, [&](char c, bool literal, std::size_t) {
        if (literal) c = ' ';
        const bool afterDigit = before == '0' || before == '#' || before == '.';
        if (afterDigit && (last == 'E' || last == 'e') && (c == '+' || c == '-')) found = true;
        before = last;
        last = c;
    });
    return found;
}

/// The sections, still with their quotation marks and backslashes.
std::vector<std::string_view> splitSections(std::string_view pattern) {
    std::vector<std::string_view> sections;
    std::size_t start = 0;
    readPattern(pattern, [&](char c, bool literal, std::size_t at) {
        if (c != ';' || literal) return;
        sections.push_back(pattern.substr(start, at - start));
        start = at + 1;
    });
    sections.push_back(pattern.substr(start));
    return sections;
}
}  // namespace

void NumberPattern::Section::addLiteral(char c) {
    if (steps.empty() || steps.back().kind != Step::Kind::Literal) steps.emplace_back();
    steps.back().literal += c;
}

void NumberPattern::Section::addPlace(Step::Kind kind) {
    if (steps.empty() || steps.back().kind != kind) {
        steps.emplace_back();
        steps.back().kind = kind;
    }
    ++steps.back().last;  // for now the count of places
    ++(kind == Step::Kind::Whole ? wholePlaces : fractionPlaces);
}

void NumberPattern::Section::numberPlaces() {
    std::int64_t whole = wholePlaces;
    std::int64_t fraction = 0;
    for (Step& step : steps) {
        const std::int64_t count = step.last;
        if (step.kind == Step::Kind::Whole) {
            step.first = whole - 1;
            step.last = whole -= count;
        } else if (step.kind == Step::Kind::Fraction) {
            step.first = fraction;
            fraction += count;
            step.last = fraction - 1;
        }
    }
}

NumberPattern::Section NumberPattern::readSection(std::string_view pattern) {
    Section section;
    bool pointSeen = false;
    std::int64_t leadingMarks = 0;  // '#' before the first '0' of the whole part
    readPattern(pattern, [&](char c, bool literal, std::size_t) {
        const bool place = !literal && (c == '0' || c == '#');
        if (place && !pointSeen) {
            section.addPlace(Step::Kind::Whole);
            if (c == '#' && leadingMarks == section.wholePlaces - 1) ++leadingMarks;
        } else if (place) {
            section.addPlace(Step::Kind::Fraction);
            if (c == '0') section.fractionNeeded = section.fractionPlaces;
        } else if (!literal && c == '.' && !pointSeen) {
            pointSeen = true;
            section.steps.emplace_back().kind = Step::Kind::Point;
        } else if (!literal && c == ',') {
            if (!pointSeen) section.grouped = true;
        } else {
            if (!literal && c == '%') section.shift += 2;
            section.addLiteral(c);
        }
    });
    section.wholeNeeded = section.wholePlaces - leadingMarks;
    section.numberPlaces();
    return section;
}

bool NumberPattern::hasDigit(std::string_view pattern) {
    bool found = false;
    readPattern(pattern, [&](char c, bool literal, std::size_t) {
        if (!literal && (c == '0' || c == '#')) found = true;
    });
    return found;
}

std::optional<NumberPattern> NumberPattern::read(std::string_view pattern) {
    if (!hasDigit(pattern) || asksForExponent(pattern)) return std::nullopt;
    NumberPattern read;
    const auto sections = splitSections(pattern);
    for (std::size_t i = 0; i < std::min<std::size_t>(sections.size(), 3); ++i) {
        read.sections_[i] = readSection(sections[i]);
        // "" is a section that shows nothing, nothing at all is a missing section
        if (read.sections_[i].empty() && !sections[i].empty()) read.sections_[i].steps.emplace_back();
    }
    return read;
}

const NumberPattern::Section& NumberPattern::sectionFor(std::size_t number) const {
    return sections_[number].empty() ? sections_[Positive] : sections_[number];
}

bool NumberPattern::apply(std::string_view text, std::string& shown) const {
    if (!number_.read(text)) return false;
    bool minus = false;
    const Section* section = &sectionFor(Positive);
    if (!number_.zero()) {
        if (number_.negative()) {
            minus = sections_[Negative].empty();
            section = &sectionFor(Negative);
        }
        number_.shift(section->shift);
        if (section->hasPlaces()) number_.round(section->fractionPlaces);
    }
    if (number_.zero()) {
        minus = false;
        section = &sectionFor(Zero);
    }
    shown.clear();
    if (minus) shown += '-';
    section->write(number_, shown);
    return true;
}

void NumberPattern::Section::write(const LongDecimal& number, std::string& shown) const {
    const std::int64_t decimals = std::max(fractionNeeded, number.decimals());
    for (const Step& step : steps) {
        switch (step.kind) {
            case Step::Kind::Literal:
                shown += step.literal;
                break;
            case Step::Kind::Whole: {
                // the leftmost places take all digits that have no place of their own
                const std::int64_t digits = std::max(wholeNeeded, number.wholeDigits());
                const bool leftmost = step.first == wholePlaces - 1;
                writeWhole(number, leftmost ? digits - 1 : std::min(step.first, digits - 1), step.last,
                           shown);
                break;
            }
            case Step::Kind::Point:
                if (wholePlaces == 0) writeWhole(number, number.wholeDigits() - 1, 0, shown);
                if (decimals > 0) shown += '.';
                break;
            case Step::Kind::Fraction:
                for (std::int64_t i = step.first; i <= step.last && i < decimals; ++i)
                    shown += number.digit(-1 - i);
                break;
        }
    }
}

void NumberPattern::Section::writeWhole(const LongDecimal& number, std::int64_t from, std::int64_t to,
                                        std::string& shown) const {
    for (std::int64_t place = from; place >= to; --place) {
        shown += number.digit(place);
        if (grouped && place > 0 && place % 3 == 0) shown += ',';
    }
}
}  // namespace kxVsGrid::cellgrid
