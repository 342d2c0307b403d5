#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid {

Variant MemoryBag::Read(std::string_view name, const Variant& fallback) {
    const Variant* value = find(name);
    return value != nullptr ? *value : fallback;
}

void MemoryBag::Write(std::string_view name, const Variant& value, const Variant& fallback) {
    Entry& kept = entry(name);
    kept.value = value;
    kept.fallback = fallback;
}

void MemoryBag::Write(std::string_view name, const Variant& value) {
    Entry& kept = entry(name);
    kept.value = value;
    kept.fallback.reset();
}

MemoryBag::Entry& MemoryBag::entry(std::string_view name) {
    const auto [place, added] = places_.try_emplace(std::string(name), entries_.size());
    if (added) entries_.push_back({std::string(name), {}, {}});
    return entries_[place->second];
}

const Variant* MemoryBag::find(std::string_view name) const {
    const auto place = places_.find(name);
    return place != places_.end() ? &entries_[place->second].value : nullptr;
}

bool MemoryBag::erase(std::string_view name) {
    const auto place = places_.find(name);
    if (place == places_.end()) return false;
    const std::size_t index = place->second;
    places_.erase(place);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(index));
    for (auto& [key, position] : places_)
        if (position > index) --position;
    return true;
}

void MemoryBag::clear() {
    entries_.clear();
    places_.clear();
}
}  // namespace kxVsGrid
