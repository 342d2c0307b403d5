#include <stdexcept>
#include <string>

#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::headless {
namespace {

/// What is read where nobody underlines the letter: "(&D)" goes at the end, "&D" is a D, "&&" an ampersand.
std::string withoutMnemonic(std::string_view caption) {
    constexpr std::size_t LengthInBrackets = 4;
    if (caption.size() > LengthInBrackets && caption.back() == ')' &&
        caption.substr(caption.size() - LengthInBrackets, 2) == "(&")
        caption.remove_suffix(LengthInBrackets);
    std::string plain;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;
        plain += caption[i];
    }
    return plain;
}

/// An item whose caption stands there exactly so comes before one that only reads so.
const MenuItem& byCaption(const std::vector<MenuItem>& items, std::string_view caption) {
    for (const MenuItem& item : items)
        if (item.caption == caption) return item;
    for (const MenuItem& item : items)
        if (withoutMnemonic(item.caption) == caption) return item;
    throw std::logic_error("choose: the menu has no item " + std::string(caption));
}
}  // namespace

void PoppedMenu::take(const std::string& array, const MenuItem& item) {
    if (!item.visible || !item.enabled || item.caption == "-")
        throw std::logic_error("choose: " + item.caption + " is hidden or disabled");
    choice_ = {array, item.index};
}

void PoppedMenu::choose(std::string_view item) {
    take(menu_.array, byCaption(menu_.items, item));
}

void PoppedMenu::choose(std::string_view parent, std::string_view item) {
    const MenuItem& above = byCaption(menu_.items, parent);
    const Submenu* const submenu = menu_.under(above.index);
    if (!submenu || !above.visible || !above.enabled)
        throw std::logic_error("choose: nothing stands under " + std::string(parent));
    take(submenu->array, byCaption(submenu->items, item));
}

void PoppedMenu::choose(std::int32_t index) {
    for (const MenuItem& item : menu_.items)
        if (item.index == index) return take(menu_.array, item);
    throw std::logic_error("choose: the menu has no item " + std::to_string(index));
}
}  // namespace kxVsGrid::headless
