// How a class describes its own members: a constant table that pages, stores and documents walk.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string_view>

#include "kxVsGrid/Variant.h"

namespace kxVsGrid {

/// Misuse of the interface; the text names the member and the value that it was given.
class GridError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// One entry of a class's table of members, in the order of its interface.
struct Member {
    enum class Access { GetPut, Get, Put, Method };

    std::string_view name;
    Access access;
    Variant::Type type;  ///< what Get returns and Put converts to; Empty for objects and methods
    int number;          ///< position in the interface, counted from 1
    int arguments = 0;   ///< how many indexes or arguments it takes; Get and Put serve those with none
};
}  // namespace kxVsGrid
