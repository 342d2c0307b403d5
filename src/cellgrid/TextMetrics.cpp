#include <algorithm>
#include <cstdint>
#include <limits>

#include "kxVsGrid/Geometry.h"
#include "support/Text.h"

namespace kxVsGrid {

namespace {
class FixedMetrics final : public TextMetrics {
  public:
    std::int32_t textWidth(std::string_view text) const override {
        std::int64_t width = 0;
        while (!text.empty()) {
            width += support::isWide(support::firstCodePoint(text)) ? 200 : 100;
            text.remove_prefix(support::left(text, 1).size());
        }
        return static_cast<std::int32_t>(
            std::min<std::int64_t>(width, std::numeric_limits<std::int32_t>::max() - padding()));
    }
    std::int32_t padding() const override { return 90; }
};
}  // namespace

const TextMetrics& TextMetrics::fixed() {
    static const FixedMetrics metrics;
    return metrics;
}
}  // namespace kxVsGrid
