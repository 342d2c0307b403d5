// Whether a clerk's value may stand in a cell, and as what. Whatever a clerk enters passes here, however it
// was entered; what code writes does not.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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
    /// What the cell stores of a text that has passed: in a number column the value of the expression, in a
    /// text column the trimmed text, in every other the text as it is. Nothing for an expression that cannot
    /// be evaluated.
    std::optional<std::string> stored(std::int32_t col, std::string_view text) const;
    /// What a Boolean cell becomes when it is turned over.
    std::string turnedOver(std::int32_t row, std::int32_t col) const;

  private:
    EditingContext c_;
};
}  // namespace kxVsGrid::editing
