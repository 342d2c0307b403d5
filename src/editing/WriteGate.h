// Whether a clerk's value may stand in a cell, and as what. Whatever a clerk enters passes here, however it
// was entered; what code writes does not.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "editing/EditingContext.h"
#include "editing/FieldCheck.h"

namespace kxVsGrid::editing {

class WriteGate {
  public:
    explicit WriteGate(const EditingContext& context) : c_(context) {}

    /// The clerk may change the cell.
    bool opens(std::int32_t row, std::int32_t col) const;
    /// The field check of the column, for a text that differs from the one that the cell had on entry. It may
    /// ask the host, who may change anything meanwhile.
    FieldVerdict check(std::int32_t col, std::string_view text, std::string_view entryText) const;
    /// Why the rules of the column (ColumnOptions) forbid a cell to hold the text, which is as the cell would
    /// store it; nothing when they do not. The host may be asked, who may change anything meanwhile.
    std::optional<std::string> brokenRule(std::int32_t row, std::int32_t col, std::string_view stored) const;
    /// The same for a text as it was typed, where that differs from the one that the cell had on entry.
    /// Nothing for an expression that cannot be evaluated, which is refused without them.
    std::optional<std::string> brokenRuleOfTyped(std::int32_t row, std::int32_t col, std::string_view text,
                                                 std::string_view entryText) const;
    /// The same by the rule on repetition alone, for what the field check makes of a text.
    std::optional<std::string> brokenByRewriting(std::int32_t row, std::int32_t col,
                                                 std::string_view rewritten) const;
    /// What the cell stores of a text that has passed: in a number column the value of the expression (in an
    /// exact one every digit of a plain number), in a text column the trimmed text, in every other the text as
    /// it is; the empty text for a zero that the column blanks. Nothing for an expression that cannot be
    /// evaluated.
    std::optional<std::string> stored(std::int32_t col, std::string_view text) const;
    /// What a Boolean cell becomes when it is turned over.
    std::string turnedOver(std::int32_t row, std::int32_t col) const;

    /// What becomes of a value that comes with others, where no editor is open.
    struct Admission {
        std::string text;
        std::optional<std::string> tag;  ///< nothing: the cell keeps the one that it has
        std::string refusal;             ///< why the value must not stand there; empty when it may
        bool tooLong = false;            ///< it was refused because an editor would cut it
    };
    /// What the host has answered for codes, so that it is asked once for each.
    using KnownCodes = std::unordered_map<std::string, FieldVerdict>;
    /// As if the text were typed into the cell, which opens, and committed. Line ends become blanks where an
    /// editor would have one line, and full-width signs their ASCII selves where it would show those. A Boolean
    /// cell takes -1, 0, 1, True, False, 是, 否 and the empty text. A number column takes no date, though typed
    /// 2026-12-5 is a difference: nobody sees what becomes of it. A cell that is emptied loses its tag, unless
    /// the check of a code gives the empty one another. It may ask the host, who may change anything meanwhile.
    Admission admit(std::int32_t row, std::int32_t col, std::string_view text, KnownCodes& known) const;

  private:
    std::optional<std::string> storedNumber(std::int32_t col, std::string_view text) const;
    std::string inFull(std::int32_t col, std::string_view text) const;
    bool isThere(std::int32_t row, std::int32_t col) const;
    Admission admitBoolean(std::string_view text) const;
    FieldVerdict checkOnce(std::int32_t col, const std::string& text, KnownCodes& known) const;
    Admission refuseExpression(std::int32_t col, std::string_view text) const;

    EditingContext c_;
};
}  // namespace kxVsGrid::editing
