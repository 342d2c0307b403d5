#include <stdexcept>

#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::headless {
namespace {

const MenuItem& byCaption(const std::vector<MenuItem>& items, std::string_view caption) {
    for (const MenuItem& item : items)
        if (item.caption == caption) return item;
    throw std::logic_error("choose: the menu has no item " + std::string(caption));
}
}  // namespace

void PoppedMenu::take(const std::string& array, const MenuItem& item) {
    if (!item.visible || !item.enabled || item.caption == "-")
        throw std::logic_error("choose: " + item.caption + " is hidden or disabled");
    choice_ = {array, item.index};
}

void PoppedMenu::choose(std::string_view caption) {
    take(menu_.array, byCaption(menu_.items, caption));
}

void PoppedMenu::choose(std::string_view caption, std::string_view under) {
    const MenuItem& parent = byCaption(menu_.items, caption);
    const Submenu* const submenu = menu_.under(parent.index);
    if (!submenu || !parent.visible || !parent.enabled)
        throw std::logic_error("choose: nothing stands under " + std::string(caption));
    take(submenu->array, byCaption(submenu->items, under));
}

void PoppedMenu::choose(std::int32_t index) {
    for (const MenuItem& item : menu_.items)
        if (item.index == index) return take(menu_.array, item);
    throw std::logic_error("choose: the menu has no item " + std::to_string(index));
}
}  // namespace kxVsGrid::headless
