// One cell and its pair of values, as a record that hosts can pass around.
#pragma once

#include <cstdint>
#include <string>

namespace kxVsGrid {

struct VsNode {
    std::int16_t Row = 0;
    std::int16_t Col = 0;
    std::string DisplayText;  ///< what the cell shows
    std::string Tag;          ///< the hidden string behind it, typically the code of a shown name
};
}  // namespace kxVsGrid
