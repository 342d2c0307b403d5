// One line of a settings text: a name, a type and a value.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "kxVsGrid/Variant.h"

namespace kxVsGrid::support {

struct BagLine {
    std::string name;
    Variant value;
};

/// Why a line is none.
class BadBagLine : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// BadBagLine for an array.
std::string bagLineText(std::string_view name, const Variant& value);
/// BadBagLine says what is wrong.
BagLine readBagLine(std::string_view line);
}  // namespace kxVsGrid::support
