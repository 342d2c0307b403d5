// A property bag that lives in memory: for tests, for copies of settings, and as the heart of bags that are
// kept in a file.
//
//     kxVsGrid::MemoryBag bag;
//     grid.WriteProperties(bag);
//     bag.find("SetVsControl2")->toText();           // the name of column 2
//
// It keeps every value that is written, also one that equals its default, with its exact type and in the
// order of the first writing.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kxVsGrid/PropertyBag.h"

namespace kxVsGrid {

class MemoryBag : public PropertyBag {
  public:
    struct Entry {
        std::string name;
        Variant value;
        /// The default that the value was written with; nothing when it was written without one.
        std::optional<Variant> fallback;
    };

    Variant Read(std::string_view name, const Variant& fallback) override;
    void Write(std::string_view name, const Variant& value, const Variant& fallback) override;
    void Write(std::string_view name, const Variant& value) override;

    /// The value under `name`, or nullptr. Valid until the bag is changed.
    const Variant* find(std::string_view name) const;
    const std::vector<Entry>& entries() const { return entries_; }
    std::size_t size() const { return entries_.size(); }
    /// False when there is no such value.
    bool erase(std::string_view name);
    void clear();

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
    };
    Entry& entry(std::string_view name);

    std::vector<Entry> entries_;
    std::unordered_map<std::string, std::size_t, Hash, std::equal_to<>> places_;
};
}  // namespace kxVsGrid
