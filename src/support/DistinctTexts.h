// Texts, each of them once: for work that is the same for equal texts.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace kxVsGrid::support {

class DistinctTexts {
  public:
    /// The number of the text, from 0 in the order of their first coming. It is copied when it is a new one.
    std::uint32_t add(std::string_view text) {
        if (places_.size() * 2 >= table_.size()) grow();
        std::uint32_t& slot = table_[slotOf(text, std::hash<std::string_view>{}(text))];
        if (slot == None) {
            slot = static_cast<std::uint32_t>(places_.size());
            bytes_.append(text);
            places_.push_back({bytes_.size() - text.size(), text.size()});
        }
        return slot;
    }
    /// Good until the next text comes.
    std::vector<std::string_view> texts() const {
        std::vector<std::string_view> all;
        all.reserve(places_.size());
        for (const Place& place : places_) all.push_back(textAt(place));
        return all;
    }

  private:
    struct Place {
        std::size_t at;
        std::size_t size;
    };
    static constexpr std::uint32_t None = std::numeric_limits<std::uint32_t>::max();

    std::string_view textAt(const Place& place) const {
        return std::string_view(bytes_).substr(place.at, place.size);
    }
    std::size_t slotOf(std::string_view text, std::size_t hash) const {
        std::size_t at = hash & (table_.size() - 1);
        while (table_[at] != None && textAt(places_[table_[at]]) != text) at = (at + 1) & (table_.size() - 1);
        return at;
    }
    void grow() {
        constexpr std::size_t Least = 64;
        table_.assign(std::bit_ceil(std::max(Least, places_.size() * 4)), None);
        for (std::uint32_t number = 0; number < places_.size(); ++number) {
            const std::string_view text = textAt(places_[number]);
            table_[slotOf(text, std::hash<std::string_view>{}(text))] = number;
        }
    }

    std::string bytes_;
    std::vector<Place> places_;
    std::vector<std::uint32_t> table_;  ///< open addressing; a power of two
};
}  // namespace kxVsGrid::support
