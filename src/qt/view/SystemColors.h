// Colour values as hosts give them, in the colours of the present palette.
#pragma once

#include <QPalette>
#include <QRgb>
#include <array>
#include <cstdint>

namespace kxVsGrid::qt {

class SystemColors {
  public:
    SystemColors() = default;
    explicit SystemColors(const QPalette& palette);

    /// Values with the high bit set name a system colour and follow the palette; others are 0x00BBGGRR.
    QRgb rgb(std::uint32_t color) const;
    /// The colour of a text on a ground. Where one of the two is the palette's and the other the host's, they
    /// may not fit together (a light ground in a dark palette): the text becomes black or white then.
    QRgb textOn(std::uint32_t text, std::uint32_t ground) const;

    static bool isSystem(std::uint32_t color) { return (color & 0x80000000U) != 0; }

  private:
    static constexpr std::size_t Count = 32;
    std::array<QRgb, Count> system_{};
    QRgb found_ = 0;
    QRgb foundHere_ = 0;
};

/// Contrast of two colours, 1 (none) to 21 (black on white).
double contrast(QRgb a, QRgb b);
/// `share` of b in a, 0 to 1.
QRgb blend(QRgb a, QRgb b, double share);
/// A ground with a share of black in it, of white where it is dark.
QRgb shaded(QRgb ground, double share);
/// The tones of a raised ground: of its edges in the light, and of those in the shade.
QRgb lit(QRgb ground);
QRgb dimmed(QRgb ground);
}  // namespace kxVsGrid::qt
