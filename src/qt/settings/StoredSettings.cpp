#include "qt/settings/StoredSettings.h"

#include <algorithm>
#include <span>
#include <utility>

#include "kxVsGrid/StoredKeys.h"

namespace kxVsGrid::qt {
namespace {

const StoredKey* gridKey(std::string_view name) {
    const std::span<const StoredKey> keys = gridKeys();
    const auto found = std::ranges::find(keys, name, &StoredKey::read);
    return found != keys.end() ? &*found : nullptr;
}

void putIntoColumn(kxGrid& control, const ColumnKeyParts& parts, const Variant& value) {
    if (parts.col >= control.Cols()) return;
    const std::span<const StoredKey> keys = columnKeys();
    const auto key = std::ranges::find(keys, parts.suffix, &StoredKey::written);
    control.VsCtrl(static_cast<std::int16_t>(parts.col))->Put(key->member, value);
}

/// What does not convert fails in the read, which says so.
Variant typed(const Variant& value, Variant::Type type) {
    try {
        return value.as(type);
    } catch (const ConversionError&) {
        return {};
    }
}
}  // namespace

bool StoredSettings::names(std::string_view name) {
    return gridKey(name) != nullptr || columnKeyParts(name).has_value();
}

void StoredSettings::put(kxGrid& control, std::string_view name, const Variant& value) {
    if (collecting_) {
        if (value.isEmpty())
            collected_.erase(name);
        else
            collected_.Write(name, value);
        return;
    }
    if (value.isEmpty()) return;
    if (const StoredKey* key = gridKey(name))
        control.Put(key->member, value);
    else if (const auto parts = columnKeyParts(name))
        putIntoColumn(control, *parts, value);
}

Variant StoredSettings::get(kxGrid& control, std::string_view name) const {
    const StoredKey& key = *gridKey(name);
    if (!collecting_) return control.Get(key.member);
    if (const Variant* value = collected_.find(name)) return typed(*value, key.type);
    const bool placed = collected_.size() == 0;
    if (placed) return key.member == "Editable" ? Variant(true) : control.Get(key.member);
    if (key.member == "Rows") return control.FixedRows() + 5;
    return typed(key.fallback, key.type);
}

void StoredSettings::read(kxGrid& control) {
    collecting_ = false;
    if (collected_.size() == 0) return control.InitProperties();
    MemoryBag bag = std::exchange(collected_, {});
    control.ReadProperties(bag);
}
}  // namespace kxVsGrid::qt
