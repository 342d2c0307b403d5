#include "qt/view/FramePainter.h"

#include <QColor>
#include <QFontMetricsF>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "qt/view/ShownText.h"

namespace kxVsGrid::qt {
namespace {

enum class Across { Left, Center, Right };
enum class Down { Top, Center, Bottom };

Across across(mEmflexAlign alignment) {
    return static_cast<Across>(std::clamp<int>(alignment / 3, 0, 2));
}
Down down(mEmflexAlign alignment) {
    return static_cast<Down>(alignment % 3);
}

double start(Across across, const QRect& rect, double width) {
    if (across == Across::Left) return rect.left();
    if (across == Across::Right) return std::floor(rect.left() + rect.width() - width);
    return std::floor(rect.left() + (rect.width() - width) / 2);
}

double top(Down down, const QRect& rect, double height) {
    if (down == Down::Top || height > rect.height()) return rect.top();
    if (down == Down::Bottom) return std::floor(rect.top() + rect.height() - height);
    return std::floor(rect.top() + (rect.height() - height + 1) / 2);  // as text boxes round
}

Qt::Alignment qtAlignment(mEmflexAlign alignment) {
    constexpr Qt::AlignmentFlag horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    constexpr Qt::AlignmentFlag vertical[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return horizontal[static_cast<int>(across(alignment))] | vertical[static_cast<int>(down(alignment))];
}

/// A colour that can be told from its ground, lighter or darker where the given one cannot.
QRgb standingOut(QRgb color, QRgb ground) {
    constexpr double Enough = 3;
    const QRgb away = contrast(ground, qRgb(255, 255, 255)) > contrast(ground, qRgb(0, 0, 0))
                          ? qRgb(255, 255, 255)
                          : qRgb(0, 0, 0);
    double share = 0;
    while (share < 1 && contrast(blend(color, away, share), ground) < Enough) share += 0.1;
    return blend(color, away, std::min(share, 1.0));
}

/// A font of so many device pixels as the given one has logical ones.
QFont onDevice(const QFont& font, double ratio) {
    QFont result(font);
    if (font.pointSizeF() > 0)
        result.setPointSizeF(font.pointSizeF() * ratio);
    else
        result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.pixelSize() * ratio))));
    return result;
}
}  // namespace

void useDevicePixels(QPainter& painter, double ratio) {
    painter.scale(1 / ratio, 1 / ratio);
    const QTransform device = painter.deviceTransform();
    if (device.type() > QTransform::TxTranslate) return;
    painter.translate(std::round(device.dx()) - device.dx(), std::round(device.dy()) - device.dy());
}

void FramePainter::look(const QFont& font, const SystemColors& colors, const Scale& scale,
                        const QPaintDevice* device) {
    colors_ = colors;
    scale_ = scale;
    texts_.use(onDevice(font, scale.ratio()), device);
}

void FramePainter::paint(QPainter& painter, const Frame& frame, const Rect& origin) {
    if (!scale_) return;
    origin_ = origin;
    painter.save();
    useDevicePixels(painter, scale_->ratio());
    for (const FrameItem& item : frame.items) {
        switch (item.kind) {
            case FrameItem::Kind::Fill:
                fill(painter, item);
                break;
            case FrameItem::Kind::Line:
                line(painter, item);
                break;
            case FrameItem::Kind::Text:
                text(painter, item);
                break;
            case FrameItem::Kind::CheckMark:
                checkMark(painter, item);
                break;
            case FrameItem::Kind::Focus:
                focus(painter, item);
                break;
            case FrameItem::Kind::Raised:
                raised(painter, item);
                break;
            case FrameItem::Kind::Mark:
                mark(painter, item);
                break;
            case FrameItem::Kind::Funnel:
                funnel(painter, item);
                break;
            case FrameItem::Kind::Tint:
                tint(painter, item);
                break;
        }
    }
    startRegion(painter);
    painter.restore();
}

QRect FramePainter::place(const Rect& rect) const {
    const int left = scale_->devicePixel(std::int64_t{origin_.left} + rect.left);
    const int top = scale_->devicePixel(std::int64_t{origin_.top} + rect.top);
    const int right = scale_->devicePixel(std::int64_t{origin_.left} + rect.left + rect.width);
    const int bottom = scale_->devicePixel(std::int64_t{origin_.top} + rect.top + rect.height);
    return {left, top, right - left, bottom - top};
}

/// Whatever covers comes after the texts of what it may cover: those are painted first.
void FramePainter::startRegion(QPainter& painter) {
    if (!textsBegun_) return;
    batches_.paint(painter, texts_);
    grounds_.clear();
    hostGround_ = false;
    textsBegun_ = false;
}

void FramePainter::fill(QPainter& painter, const FrameItem& item) {
    startRegion(painter);
    const QRect rect = place(item.rect);
    const QRgb color = colors_.rgb(item.color);
    painter.fillRect(rect, QColor(item.shade == 0 ? color : shaded(color, item.shade / 100.0)));
    grounds_.push_back({rect, item.color});
    if (!SystemColors::isSystem(item.color)) hostGround_ = true;
}

void FramePainter::line(QPainter& painter, const FrameItem& item) {
    startRegion(painter);
    QRect rect = place(item.rect);
    if (rect.width() >= rect.height())
        rect.setTop(rect.bottom());
    else
        rect.setLeft(rect.right());
    painter.fillRect(rect, QColor(colors_.rgb(item.color)));
}

std::uint32_t FramePainter::groundOf(const QRect& rect) const {
    const QPoint middle = rect.center();
    const auto found = std::find_if(grounds_.rbegin(), grounds_.rend(),
                                    [&](const Ground& ground) { return ground.rect.contains(middle); });
    return found == grounds_.rend() ? 0x80000005U : found->color;
}

QRgb FramePainter::textColor(const FrameItem& item, const QRect& rect) const {
    if (!hostGround_ && SystemColors::isSystem(item.color)) return colors_.rgb(item.color);
    return colors_.textOn(item.color, groundOf(rect));
}

void FramePainter::text(QPainter& painter, const FrameItem& item) {
    textsBegun_ = true;
    const QRect rect = place(item.rect);
    const QRgb color = textColor(item, rect);
    if (!texts_.place(item.text, glyphs_, static_cast<float>(rect.width()))) {
        shapedText(painter, item, rect, color);
        return;
    }
    if (static_cast<double>(GlyphTexts::width(glyphs_)) > rect.width()) elide(rect.width());
    const double width = static_cast<double>(GlyphTexts::width(glyphs_));
    const double x = start(across(item.alignment), rect, width);
    const double baseline =
        std::floor(top(down(item.alignment), rect, texts_.height()) + texts_.ascent() + 0.5);
    batches_.add(glyphs_, x, baseline, color);
}

/// Takes characters away until the rest and the sign for it fit.
void FramePainter::elide(double room) {
    const auto& more = texts_.ellipsis();
    const double rest = room - static_cast<double>(GlyphTexts::width(more));
    while (!glyphs_.empty() && static_cast<double>(GlyphTexts::width(glyphs_)) > rest) glyphs_.pop_back();
    const float x = GlyphTexts::width(glyphs_);
    for (GlyphTexts::Glyph glyph : more) {
        if (static_cast<double>(x + glyph.x + glyph.advance) > room) break;
        glyph.x += x;
        glyphs_.push_back(glyph);
    }
}

void FramePainter::shapedText(QPainter& painter, const FrameItem& item, const QRect& rect, QRgb color) {
    const QFontMetricsF metrics(texts_.font(), painter.device());
    const QString string = shownText(item.text, metrics, rect.size());
    painter.save();
    painter.setFont(texts_.font());
    painter.setPen(QColor(color));
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.drawText(rect, static_cast<int>(qtAlignment(item.alignment)) | Qt::TextExpandTabs, string);
    painter.restore();
}

void FramePainter::checkMark(QPainter& painter, const FrameItem& item) {
    textsBegun_ = true;
    const QRect rect = place(item.rect);
    const int side = std::min({scale_->deviceLength(CheckBoxPixels), rect.width() - 2, rect.height() - 2});
    if (side < 3) return;
    const QRect box(rect.left() + (rect.width() - side) / 2, rect.top() + (rect.height() - side) / 2, side,
                    side);
    const QRgb ground = colors_.rgb(groundOf(rect));
    const QRgb color = textColor(item, rect);
    const int pen = scale_->deviceLength(1);
    painter.fillRect(box, QColor(blend(ground, color, 0.55)));
    painter.fillRect(box.adjusted(pen, pen, -pen, -pen), QColor(ground));
    if (!item.checked) return;
    QPainterPath tick;
    tick.moveTo(box.left() + side * 0.23, box.top() + side * 0.52);
    tick.lineTo(box.left() + side * 0.43, box.top() + side * 0.72);
    tick.lineTo(box.left() + side * 0.78, box.top() + side * 0.28);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.strokePath(tick, QPen(QColor(color), side * 0.15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// The texts, which wait, come over it.
void FramePainter::mark(QPainter& painter, const FrameItem& item) {
    textsBegun_ = true;
    const QRect rect = place(item.rect);
    QPainterPath triangle;
    triangle.moveTo(rect.left(), rect.top());
    triangle.lineTo(rect.left() + rect.width(), rect.top());
    triangle.lineTo(rect.left() + rect.width(), rect.top() + rect.height());
    triangle.closeSubpath();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillPath(triangle, QColor(standingOut(colors_.rgb(item.color), colors_.rgb(groundOf(rect)))));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// A bowl over a stem.
void FramePainter::funnel(QPainter& painter, const FrameItem& item) {
    textsBegun_ = true;
    const QRectF rect(place(item.rect));
    const auto at = [&rect](double x, double y) {
        return QPointF(rect.left() + x * rect.width(), rect.top() + y * rect.height());
    };
    QPainterPath funnel;
    funnel.addPolygon(
        QPolygonF{at(0, 0.05), at(1, 0.05), at(0.6, 0.5), at(0.6, 0.85), at(0.4, 1), at(0.4, 0.5)});
    funnel.closeSubpath();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillPath(funnel,
                     QColor(standingOut(colors_.rgb(item.color), colors_.rgb(groundOf(place(item.rect))))));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// Inside of the lines, and of one pixel's width as they are. Nothing of it touches a text that waits.
void FramePainter::raised(QPainter& painter, const FrameItem& item) {
    const QRect rect = place(item.rect).adjusted(0, 0, -1, -1);
    if (rect.width() < 3 || rect.height() < 3) return;
    const QRgb ground = colors_.rgb(item.color);
    const QColor light(lit(ground));
    const QColor dark(dimmed(ground));
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), light);
    painter.fillRect(QRect(rect.left(), rect.top() + 1, 1, rect.height() - 1), light);
    painter.fillRect(QRect(rect.left() + 1, rect.bottom(), rect.width() - 1, 1), dark);
    painter.fillRect(QRect(rect.right(), rect.top() + 1, 1, rect.height() - 2), dark);
}

void FramePainter::tint(QPainter& painter, const FrameItem& item) {
    startRegion(painter);
    QColor veil(colors_.rgb(item.color));
    veil.setAlpha(64);
    painter.fillRect(place(item.rect), veil);
}

void FramePainter::focus(QPainter& painter, const FrameItem& item) {
    startRegion(painter);
    const QRect rect = place(item.rect);
    const int pen = std::min({scale_->deviceLength(2), rect.width() / 2, rect.height() / 2});
    if (pen < 1) return;
    const QColor color(colors_.rgb(item.color));
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), pen), color);
    painter.fillRect(QRect(rect.left(), rect.bottom() - pen + 1, rect.width(), pen), color);
    painter.fillRect(QRect(rect.left(), rect.top() + pen, pen, rect.height() - 2 * pen), color);
    painter.fillRect(QRect(rect.right() - pen + 1, rect.top() + pen, pen, rect.height() - 2 * pen), color);
}
}  // namespace kxVsGrid::qt
