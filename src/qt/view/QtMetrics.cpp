#include "qt/view/QtMetrics.h"

#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

/// Room on both sides of a text together.
constexpr std::int32_t Padding = 90;

/// Height of a line that mixes the font with the one that shows Chinese in its stead.
double lineHeight(const QWidget& widget) {
    QTextLayout layout(QStringLiteral("Äg国"), widget.font(), &widget);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.height();
}
}  // namespace

void QtMetrics::use(const QWidget& widget) {
    metrics_.emplace(QFont(widget.font(), &widget));
    scale_.emplace(widget);
    // the grid line, and what rounding and accents may take above and below
    constexpr int Room = 4;
    rowHeight_ = scale_->twips(std::ceil(std::max(metrics_->height(), lineHeight(widget))) + Room);
}

std::int32_t QtMetrics::textWidth(std::string_view text) const {
    if (!metrics_) return TextMetrics::fixed().textWidth(text);
    return scale_->twips(std::ceil(metrics_->horizontalAdvance(toQt(text))));
}

std::int32_t QtMetrics::padding() const {
    return Padding;
}

std::int32_t QtMetrics::rowHeight() const {
    return rowHeight_;
}
}  // namespace kxVsGrid::qt
