#include "kxVsGrid/Menu.h"

#include <stdexcept>

namespace kxVsGrid {

MenuItem& Menu::item(const std::string& wanted, std::int32_t index) {
    std::vector<MenuItem>* found = wanted == array ? &items : nullptr;
    for (Submenu& submenu : submenus)
        if (submenu.array == wanted) found = &submenu.items;
    if (found) {
        for (MenuItem& each : *found)
            if (each.index == index) return each;
    }
    throw std::out_of_range("the menu " + name + " has no item " + wanted + "(" + std::to_string(index) +
                            ")");
}

const Submenu* Menu::under(std::int32_t index) const {
    for (const Submenu& submenu : submenus)
        if (submenu.parent == index) return &submenu;
    return nullptr;
}
}  // namespace kxVsGrid
