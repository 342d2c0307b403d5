#include "qt/view/SystemColors.h"

#include <QColor>
#include <algorithm>
#include <cmath>
#include <utility>

#include "kxVsGrid/Frame.h"

namespace kxVsGrid::qt {
namespace {

double linear(int channel) {
    const double c = channel / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminance(QRgb color) {
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

int mixed(int a, int b, double share) {
    return static_cast<int>(std::lround(a + (b - a) * share));
}
}  // namespace

double contrast(QRgb a, QRgb b) {
    const double first = luminance(a) + 0.05;
    const double second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

QRgb blend(QRgb a, QRgb b, double share) {
    return qRgb(mixed(qRed(a), qRed(b), share), mixed(qGreen(a), qGreen(b), share),
                mixed(qBlue(a), qBlue(b), share));
}

QRgb shaded(QRgb ground, double share) {
    constexpr double Middle = 0.18;  // as the eye sees it
    return blend(ground, luminance(ground) < Middle ? qRgb(255, 255, 255) : qRgb(0, 0, 0), share);
}

/// A little white is much on a dark ground, and little on a light one.
QRgb lit(QRgb ground) {
    return blend(ground, qRgb(255, 255, 255), 0.14 + 0.76 * luminance(ground));
}

/// The other way round with black.
QRgb dimmed(QRgb ground) {
    return blend(ground, qRgb(0, 0, 0), 0.45 - 0.33 * luminance(ground));
}

SystemColors::SystemColors(const QPalette& palette) {
    const auto role = [&](QPalette::ColorRole r) { return palette.color(r).rgb(); };
    const QRgb base = role(QPalette::Base);
    const QRgb text = role(QPalette::Text);
    const QRgb button = role(QPalette::Button);
    const QRgb buttonText = role(QPalette::ButtonText);
    const QRgb window = role(QPalette::Window);
    const QRgb windowText = role(QPalette::WindowText);
    system_.fill(base);
    // Edges are mixed, not looked up: palettes made from a few roles have edges that cannot be seen.
    const QRgb shadow = blend(button, buttonText, 0.35);
    const QRgb lightEdge = blend(base, text, 0.16);
    const QRgb workspace = blend(window, windowText, 0.10);
    const QRgb lightGrey = qRgb(0xE0, 0xE0, 0xE0);
    const bool dark = luminance(base) < luminance(text);
    const std::pair<std::size_t, QRgb> entries[] = {
        {0, button},                                                    // scroll bar
        {1, workspace},                                                 // desktop
        {2, role(QPalette::Highlight)},                                 // caption of the active window
        {3, window},                                                    // and of an inactive one
        {4, window},                                                    // menu
        {5, base},                                                      // window ground
        {6, shadow},                                                    // window frame
        {7, windowText},                                                // menu text
        {8, text},                                                      // window text
        {9, role(QPalette::HighlightedText)},                           // caption text
        {10, shadow},                                                   // border of the active window
        {11, shadow},                                                   // and of an inactive one
        {12, workspace},                                                // ground of an application
        {13, role(QPalette::Highlight)},                                // selected
        {14, role(QPalette::HighlightedText)},                          // selected text
        {15, button},                                                   // face of a button
        {16, shadow},                                                   // its shadow
        {17, palette.color(QPalette::Disabled, QPalette::Text).rgb()},  // text that is not available
        {18, buttonText},                                               // text of a button
        {19, windowText},                                               // caption text of an inactive window
        {20, blend(button, role(QPalette::Highlight), 0.22)},           // highlighted button
        {21, blend(button, buttonText, 0.6)},                           // dark edge
        {22, lightEdge},                                                // light edge
        {23, role(QPalette::ToolTipText)},
        {24, role(QPalette::ToolTipBase)},
        {FittedGrey & 0xFFU, dark ? blend(base, text, 0.12) : lightGrey},
    };
    for (const auto& [index, color] : entries) system_[index] = color;
    found_ = dark ? qRgb(0x48, 0x3C, 0x00) : qRgb(0xFF, 0xF1, 0xA8);
    foundHere_ = dark ? qRgb(0x78, 0x48, 0x00) : qRgb(0xFF, 0xC2, 0x4D);
}

QRgb SystemColors::rgb(std::uint32_t color) const {
    if (color == FoundGround) return found_;
    if (color == FoundHereGround) return foundHere_;
    if (isSystem(color)) return system_[std::min<std::size_t>(color & 0xFFU, Count - 1)];
    return qRgb(static_cast<int>(color & 0xFFU), static_cast<int>((color >> 8) & 0xFFU),
                static_cast<int>((color >> 16) & 0xFFU));
}

QRgb SystemColors::textOn(std::uint32_t text, std::uint32_t ground) const {
    constexpr double Legible = 2.5;
    const QRgb wanted = rgb(text);
    if (isSystem(text) == isSystem(ground)) return wanted;
    const QRgb under = rgb(ground);
    if (contrast(wanted, under) >= Legible) return wanted;
    const QRgb black = qRgb(0, 0, 0);
    const QRgb white = qRgb(255, 255, 255);
    return contrast(black, under) >= contrast(white, under) ? black : white;
}
}  // namespace kxVsGrid::qt
