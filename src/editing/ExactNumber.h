// Numbers as an exact column stores them (ColumnOptions::exact): every digit that was typed, without a double on
// the way.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editing/InputForms.h"

namespace kxVsGrid::editing {

/// What is stored of a text that is one number, written plainly or as the column's format shows numbers, to nine
/// decimals; one of more than 18 digits as it is, for the rules to refuse. Nothing for any other text, an
/// expression above all.
std::optional<std::string> exactNumber(std::string_view text, NumberForms forms);

/// The value of an expression to nine decimals, as its standard text has it.
std::string exactValue(double value);

/// The column's cells may hold the text: it is no plain number, or one that has no more than 18 digits.
bool fitsExactly(std::string_view cell);
}  // namespace kxVsGrid::editing
