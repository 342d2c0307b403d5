// How wide texts are in the widget's font.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <optional>

#include "kxVsGrid/Geometry.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt {

class QtMetrics : public TextMetrics {
  public:
    void use(const QWidget& widget);
    std::int32_t textWidth(std::string_view text) const override;
    std::int32_t padding() const override;
    /// Height that a row needs for its text, Chinese included.
    std::int32_t rowHeight() const;

  private:
    std::optional<QFontMetricsF> metrics_;
    std::optional<Scale> scale_;
    std::int32_t rowHeight_ = 0;
};
}  // namespace kxVsGrid::qt
