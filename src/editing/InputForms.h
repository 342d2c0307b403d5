// The forms in which a clerk may enter numbers and dates beside the plain ones.
//
// Texts set by code are never read so: what stands here is for what the machine reports, and for the gate.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "columns/ColumnArray.h"
#include "editing/DateForms.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::editing {

/// The form in which the column holds dates, whether or not it is checked.
std::optional<DateForm> dateFormOf(const cVsControl& column);

/// The column is for numbers or dates: full-width signs are taken as their ASCII selves there
/// (support/PlainSigns.h). Other texts keep every character.
bool takesPlainSigns(const cVsControl& column);

/// What a number may have because the column's format shows it.
struct NumberForms {
    bool groups = false;   ///< separators between groups of three digits
    bool percent = false;  ///< a percent sign at its end
};
NumberForms numberForms(const CellGrid& grid, std::int32_t col);

/// What the evaluator is given for a text, blanks around it left out: a number that is written as the format
/// shows numbers becomes a plain one ("-1,234.50" is -1234.50, "12%" is 0.12), any other text stays.
std::string plainNumber(std::string_view text, NumberForms forms);

/// The first separator that does not stand between groups of three digits, as a byte of the text; nothing when
/// all are in place, and for a text that is no single number.
std::optional<std::size_t> misplacedSeparator(std::string_view text);
/// The text is one number, perhaps with separators and percent signs, in place or not.
bool isNumberInParts(std::string_view text);
}  // namespace kxVsGrid::editing
