// Context menus as data: arrays of items addressed by their index. A machine pops one up and answers what was
// chosen.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kxVsGrid {

struct MenuItem {
    std::int32_t index = 0;
    std::string caption;  ///< "-" is a separator; '&' marks the letter that chooses the item
    bool visible = true;
    bool enabled = true;
};

/// The items under one item of a menu, an array of their own.
struct Submenu {
    std::int32_t parent = 0;  ///< index of the item that they stand under
    std::string array;        ///< name of the array
    std::vector<MenuItem> items;
};

struct Menu {
    std::string name;
    std::string caption;  ///< of the menu itself; never shown
    std::string array;    ///< name of the array of its items
    std::vector<MenuItem> items;
    std::vector<Submenu> submenus;
    bool ofCells =
        true;  ///< it is about cells: a machine puts below its items what a host has for menus of cells

    /// The item of an array; std::out_of_range when there is none.
    MenuItem& item(const std::string& array, std::int32_t index);
    const Submenu* under(std::int32_t index) const;
};

/// The array and the index of a chosen item.
using MenuChoice = std::optional<std::pair<std::string, std::int32_t>>;
}  // namespace kxVsGrid
