// Rules of a column for what a clerk may enter, beside those of its definition. Each begins as none; none is
// stored with the settings of a grid.
//
//     kxVsGrid::ColumnOptions& quantity = grid.Options(3);
//     quantity.mostDecimals(2);
//     quantity.smallest(0);
//     grid.Options(1).pattern("[A-Z]{2}\\d{4}");
//     grid.Options(1).mayRepeat(false);
//     grid.Options(4).accepts([](std::int32_t, std::string_view text) {
//         return text.starts_with("仓") ? std::string() : std::string("仓库要以“仓”开头。");
//     });
//
// They judge what the cell would hold: in a number column the value of the expression, in a text column the
// trimmed text; before the field check, and so before a code or a date is rewritten. A text that is still the
// one that the cell had on entry is not judged, nor is one that code writes. A broken rule refuses the text as
// the field check does, with the reason as the box's text. An empty text breaks no rule but accepts().
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "kxVsGrid/Suggestions.h"

namespace kxVsGrid {

class ColumnOptions {
  public:
    /// How many digits may follow the decimal point. GridError for a negative number. This rule and the next
    /// two judge numbers, in whatever column: a text that is none breaks none of them.
    std::optional<int> mostDecimals() const { return mostDecimals_; }
    void mostDecimals(std::optional<int> digits);
    /// The smallest and the largest number, both allowed themselves. GridError for what is no number.
    std::optional<double> smallest() const { return smallest_; }
    void smallest(std::optional<double> number);
    std::optional<double> largest() const { return largest_; }
    void largest(std::optional<double> number);

    /// A regular expression (ECMAScript) that the whole text has to match; empty for none. A character is a
    /// code point: `.` is 货, and [一-龥] a range of them; \w and \d are those of ASCII. GridError, with the
    /// reason, for what is no regular expression. A text of more than LongestMatched characters matches none.
    static constexpr std::size_t LongestMatched = 1000;
    const std::string& pattern() const { return pattern_; }
    void pattern(std::string_view expression);
    /// The text has that form; True without a pattern.
    bool matches(std::string_view text) const;

    /// Whether another data row may have the same text in this column; empty ones always may. True at first.
    /// False has each text that is entered compared with those of the column's filled cells.
    bool mayRepeat() const { return mayRepeat_; }
    void mayRepeat(bool may) { mayRepeat_ = may; }

    /// The host's own rule, asked last: why the text may not stand in the column's cell in that row, in words
    /// for the clerk; empty where it may. It may do anything else, as a listener may. An empty function for
    /// none.
    using Acceptance = std::function<std::string(std::int32_t row, std::string_view text)>;
    const Acceptance& accepts() const { return accepts_; }
    void accepts(Acceptance rule) { accepts_ = std::move(rule); }

    /// The clerk may sort the rows by the column (Command::SortUp, SortDown). False at first.
    bool sortable() const { return sortable_; }
    void sortable(bool may) { sortable_ = may; }
    /// The clerk may have only the rows shown whose text in the column he chooses (Command::Filter). False at
    /// first.
    bool filterable() const { return filterable_; }
    void filterable(bool may) { filterable_ = may; }

    /// What is suggested while the clerk types into a cell of the column (Suggestions.h); an empty function for
    /// nothing. It is asked for each text that the clerk makes, as long as the text is not blank and the list
    /// was not closed by Esc; another source is asked from the next text on. Down and PageDown go into the list
    /// and move there, Up and PageUp move back, and out of it from the first one. Enter and Tab take the one
    /// that was moved to; Enter also the only one that was answered for the present text, unless it is that text,
    /// or the clerk has been in the list and left it. What is taken is committed and checked as if it were
    /// typed, and Enter goes on from there in the same press.
    ///
    /// A text that is one of those shown is committed as it was typed, whichever key commits it, with that
    /// one's tag. A text that is the one of before the edit keeps its tag: always when it was typed, and when
    /// it was taken in a column with a check, which is not asked for it.
    ///
    /// In an editor of several lines Down goes into the list from the end of the text alone, and Enter takes
    /// only what the clerk has moved to: before that they are the text's.
    const SuggestionSource& suggest() const { return suggest_; }
    void suggest(SuggestionSource source);

    /// Enter passes over a cell of the column that is filled: its text is not empty, a 0 that is kept among
    /// that. It goes on from there, also where a rule (`sCellInput`) names the cell, to the next editable cell
    /// that it does not pass; where all are passed, to the first one of the next row. Tab and the arrows stop
    /// there, and so does the rule "r", which stays in its column. False at first.
    bool skipFilled() const { return skipFilled_; }
    void skipFilled(bool skips) { skipFilled_ = skips; }

    /// What becomes of a zero in a number column, and of 1900-01-01 in a date column. AsGrid: what code writes
    /// (`SetCell`) goes by `bIsShowZero`, and what the clerk enters is kept. Blank: the cell becomes empty;
    /// Keep: it holds the zero; in both cases whoever writes it, and whatever `bIsShowZero` says. A text that
    /// is no date goes with the zeros where code writes it; one that a clerk enters is kept. AsGrid at first.
    enum class Zero { AsGrid, Blank, Keep };
    Zero zero() const { return zero_; }
    void zero(Zero becomes) { zero_ = becomes; }

    /// In a number column the number that a clerk enters is stored with every one of its up to 18 digits, of
    /// which nine may be decimals, and without superfluous zeros (support/Decimal.h reads it back): 007 is 7,
    /// 1.50 is 1.5, and where the format shows groups and percent 1,234.5 is 1234.5 and 12% is 0.12. Further
    /// decimals are rounded; a number that has more than 18 digits then breaks this as a rule. An expression is
    /// worked out as it always is, to 15 digits, of which nine decimals are kept. False at first: every number
    /// has up to 15 digits.
    bool exact() const { return exact_; }
    void exact(bool keepsDigits) { exact_ = keepsDigits; }

  private:
    struct Pattern;
    std::optional<int> mostDecimals_;
    std::optional<double> smallest_;
    std::optional<double> largest_;
    std::string pattern_;
    std::shared_ptr<const Pattern> compiled_;
    bool mayRepeat_ = true;
    Acceptance accepts_;
    bool sortable_ = false;
    bool filterable_ = false;
    SuggestionSource suggest_;
    bool skipFilled_ = false;
    Zero zero_ = Zero::AsGrid;
    bool exact_ = false;
};
}  // namespace kxVsGrid
