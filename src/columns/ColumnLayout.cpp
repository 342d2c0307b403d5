#include "kxVsGrid/ColumnLayout.h"

#include <algorithm>
#include <exception>
#include <new>
#include <optional>
#include <string>

#include "columns/ClerkColumns.h"

namespace kxVsGrid {
namespace {

const std::string WidthKey = "ColumnLayout.Width.";
const std::string HiddenKey = "ColumnLayout.Hidden.";
constexpr const char* FrozenKey = "ColumnLayout.Frozen";

/// Nothing where the bag has none, or cannot give it, or the value is none that `as` can take.
template <class Take>
auto kept(PropertyBag& bag, const std::string& key, Take take)
    -> std::optional<decltype(take(std::declval<const Variant&>()))> {
    try {
        const Variant value = bag.Read(key, Variant::null());
        if (value.isNull()) return {};
        return take(value);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
        return {};
    }
}

bool isWidth(std::int32_t twips) {
    return twips == 0 || (twips >= ColumnLayout::Narrowest && twips <= ColumnLayout::Widest);
}

/// What a bag holds of the columns that there are.
struct Kept {
    std::vector<std::pair<std::int32_t, std::int32_t>> widths;
    std::vector<std::int32_t> hidden;
    std::vector<std::int32_t> shown;
    bool knowsFrozen = false;
    std::optional<std::int32_t> frozen;
};

Kept read(PropertyBag& bag, const std::vector<std::string>& names) {
    Kept all;
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].empty()) continue;
        const auto col = static_cast<std::int32_t>(i);
        const auto width = kept(bag, WidthKey + names[i], [](const Variant& v) { return v.toInt32(); });
        if (width && isWidth(*width)) all.widths.emplace_back(col, *width);
        const auto hidden = kept(bag, HiddenKey + names[i], [](const Variant& v) { return v.toBoolean(); });
        if (hidden) (*hidden ? all.hidden : all.shown).push_back(col);
    }
    return all;
}

/// The column of that name; -1 for none.
std::int32_t columnOf(const std::string& name, const std::vector<std::string>& names) {
    const auto found = std::find(names.begin(), names.end(), name);
    return name.empty() || found == names.end() ? -1 : static_cast<std::int32_t>(found - names.begin());
}

void readFrozen(PropertyBag& bag, const std::vector<std::string>& names, std::int32_t fixed, Kept& all) {
    const auto value = kept(bag, FrozenKey, [](const Variant& v) { return v; });
    if (!value) return;
    if (value->isEmpty()) {
        all.knowsFrozen = true;
    } else if (value->type() == Variant::Type::Text) {
        const std::string name = value->toText();
        const std::int32_t col = columnOf(name, names);
        if (col < 0 && !name.empty()) return;
        all.knowsFrozen = true;
        all.frozen = std::max(0, col - fixed + 1);
    }
}

/// The last one among the frozen columns that has a name.
Variant frozenText(const std::vector<std::string>& names, std::int32_t fixed,
                   std::optional<std::int32_t> frozen) {
    if (!frozen) return {};
    if (*frozen == 0) return "";
    for (std::int32_t col = std::min(fixed + *frozen, static_cast<std::int32_t>(names.size())) - 1;
         col >= fixed; --col)
        if (!names[static_cast<std::size_t>(col)].empty()) return names[static_cast<std::size_t>(col)];
    return {};
}
}  // namespace

/// All is read before anything changes.
void ColumnLayout::Read(PropertyBag& bag) {
    columns::LayoutOwner& owner = columns_.owner();
    const auto alive = owner.keep();
    owner.commitOpenText();
    const std::vector<std::string> names = columns_.names();
    Kept all = read(bag, names);
    readFrozen(bag, names, columns_.fixed(), all);
    for (const auto& [col, twips] : all.widths) columns_.applyWidth(col, twips);
    columns_.applyHidden(all.hidden, all.shown);
    if (all.knowsFrozen) columns_.applyFrozen(all.frozen);
    owner.columnsPlaced();
}

void ColumnLayout::Write(PropertyBag& bag) const {
    const std::vector<std::string> names = columns_.names();
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].empty()) continue;
        const auto col = static_cast<std::int32_t>(i);
        const std::int32_t width = columns_.width(col);
        bag.Write(WidthKey + names[i], width == 0 ? 0 : std::clamp(width, Narrowest, Widest));
        bag.Write(HiddenKey + names[i], columns_.hides(col));
    }
    bag.Write(FrozenKey, frozenText(names, columns_.fixed(), columns_.frozen()));
}

void ColumnLayout::Reset() {
    columns_.reset();
}
}  // namespace kxVsGrid
