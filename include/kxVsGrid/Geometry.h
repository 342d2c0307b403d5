// Places and sizes in twips: 1440 to the inch, 15 to a pixel at 96 dpi. x grows to the right, y downwards.
#pragma once

#include <cstdint>
#include <string_view>

namespace kxVsGrid {

struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    std::int32_t right() const { return left + width; }
    std::int32_t bottom() const { return top + height; }
    bool empty() const { return width <= 0 || height <= 0; }
    bool contains(std::int32_t x, std::int32_t y) const {
        return x >= left && x < right() && y >= top && y < bottom();
    }
    bool overlaps(const Rect& o) const {
        return left < o.right() && o.left < right() && top < o.bottom() && o.top < bottom();
    }
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// How wide texts are on the machine that shows them.
class TextMetrics {
  public:
    virtual ~TextMetrics() = default;
    /// Width of the text in twips, without padding.
    virtual std::int32_t textWidth(std::string_view text) const = 0;
    /// What a column needs beside its caption, left and right together.
    virtual std::int32_t padding() const = 0;
    /// Metrics of a machine without fonts: 100 twips per narrow character, 200 per wide one, 90 padding.
    static const TextMetrics& fixed();
};
}  // namespace kxVsGrid
