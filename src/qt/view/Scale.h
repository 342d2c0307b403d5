// Twips and pixels of one widget. Places are rounded to logical pixels edge by edge, so that neighbours share
// their edge and a text box lies exactly over its cell at every scale of the screen.
#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "kxVsGrid/Geometry.h"

namespace kxVsGrid::qt {

/// How long the side of a check box is in a cell with room for it, logical pixels.
inline constexpr double CheckBoxPixels = 13;

class Scale {
  public:
    static constexpr double TwipsPerInch = 1440.0;

    explicit Scale(const QWidget& widget)
        : pixelsPerTwip_(widget.logicalDpiX() / TwipsPerInch), ratio_(widget.devicePixelRatioF()) {}

    /// Logical pixel at a place in twips.
    int pixel(std::int64_t twips) const {
        return static_cast<int>(std::floor(static_cast<double>(twips) * pixelsPerTwip_ + 0.5));
    }
    QRect pixels(const Rect& rect) const {
        const int left = pixel(rect.left);
        const int top = pixel(rect.top);
        return {left, top, pixel(std::int64_t{rect.left} + rect.width) - left,
                pixel(std::int64_t{rect.top} + rect.height) - top};
    }
    /// A length; never rounded away.
    int length(std::int32_t twips) const { return std::max(1, pixel(twips)); }

    /// What is longer than twips can say is as long as they can.
    std::int32_t twips(double pixels) const {
        constexpr double Longest = std::numeric_limits<std::int32_t>::max() / 2.0;
        return static_cast<std::int32_t>(std::lround(std::clamp(pixels / pixelsPerTwip_, -Longest, Longest)));
    }
    /// The smallest rectangle in twips that holds all of the pixels.
    Rect twips(const QRect& pixels) const {
        const auto left = static_cast<std::int32_t>(std::floor((pixels.left() - 0.5) / pixelsPerTwip_));
        const auto top = static_cast<std::int32_t>(std::floor((pixels.top() - 0.5) / pixelsPerTwip_));
        const auto right = static_cast<std::int32_t>(std::ceil((pixels.right() + 1.5) / pixelsPerTwip_));
        const auto bottom = static_cast<std::int32_t>(std::ceil((pixels.bottom() + 1.5) / pixelsPerTwip_));
        return {left, top, right - left, bottom - top};
    }

    /// Device pixels per logical one.
    double ratio() const { return ratio_; }
    /// Device pixel at a place in twips.
    int devicePixel(std::int64_t twips) const {
        return static_cast<int>(std::floor(pixel(twips) * ratio_ + 0.5));
    }
    QRect devicePixels(const Rect& rect) const {
        const int left = devicePixel(rect.left);
        const int top = devicePixel(rect.top);
        return {left, top, devicePixel(std::int64_t{rect.left} + rect.width) - left,
                devicePixel(std::int64_t{rect.top} + rect.height) - top};
    }
    /// A length in device pixels; at least one.
    int deviceLength(double logicalPixels) const {
        return std::max(1, static_cast<int>(std::lround(logicalPixels * ratio_)));
    }

    friend bool operator==(const Scale&, const Scale&) = default;

  private:
    double pixelsPerTwip_;
    double ratio_;
};

/// Middle of the pixel that the mouse points at: on the side of a cell's edge that the pixel is painted on.
inline std::int32_t middle(const Scale& scale, double pixel) {
    return scale.twips(std::floor(pixel) + 0.5);
}
}  // namespace kxVsGrid::qt
