// The store that a container keeps for a control's settings: named values.
#pragma once

#include <string_view>

#include "kxVsGrid/Variant.h"

namespace kxVsGrid {

class PropertyBag {
  public:
    virtual ~PropertyBag() = default;
    /// The value stored under `name`, or `fallback` when there is none.
    virtual Variant Read(std::string_view name, const Variant& fallback) = 0;
    /// Stores `value`; a bag may leave it out when it equals `fallback`, since reading then gives it back.
    virtual void Write(std::string_view name, const Variant& value, const Variant& fallback) = 0;
    /// Stores a value that has no default and is therefore always kept.
    virtual void Write(std::string_view name, const Variant& value) = 0;
};
}  // namespace kxVsGrid
