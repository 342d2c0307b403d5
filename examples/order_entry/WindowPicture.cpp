#include "WindowPicture.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "KeyboardOwner.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int TitleMargin = 3;

QRect placeOf(const QWidget& other, const QWidget& window) {
    return {other.mapToGlobal(QPoint()) - window.mapToGlobal(QPoint()), other.size()};
}

int depth(const QWidget* widget) {
    int result = 0;
    while ((widget = widget->parentWidget())) ++result;
    return result;
}

bool hasTitle(const QWidget& other) {
    const bool framed = !other.windowFlags().testFlag(Qt::FramelessWindowHint);
    return framed && (other.windowType() == Qt::Dialog || other.windowType() == Qt::Window);
}

int titleHeight(const QWidget& other) {
    return hasTitle(other) ? other.fontMetrics().height() + 2 * TitleMargin : 0;
}

/// With the frame that a desktop would draw.
QRect framed(const QWidget& other, const QWidget& window) {
    return placeOf(other, window).adjusted(-1, -1 - titleHeight(other), 1, 1);
}

/// Boxes, lists and menus, each after the one that it belongs to.
QList<QWidget*> inFrontOf(const QWidget& window) {
    QList<QWidget*> result;
    for (QWidget* other : QApplication::topLevelWidgets())
        if (other != &window && other->isVisible()) result << other;
    std::sort(result.begin(), result.end(), [](const QWidget* a, const QWidget* b) {
        const auto rank = [](const QWidget* w) {
            return std::tuple(w->windowType() == Qt::Popup, depth(w), w->y(), w->x());
        };
        return rank(a) < rank(b);
    });
    return result;
}

void drawFramed(QPainter& painter, QWidget& other, const QWidget& window) {
    const QRect place = placeOf(other, window);
    const QRect frame = framed(other, window);
    painter.fillRect(frame, window.palette().color(QPalette::Highlight));
    const QRect title(frame.left(), frame.top(), frame.width(), place.top() - frame.top());
    if (hasTitle(other)) {
        painter.setFont(other.font());
        painter.setPen(window.palette().color(QPalette::HighlightedText));
        painter.drawText(title, Qt::AlignCenter, other.windowTitle());
    }
    painter.drawPixmap(place.topLeft(), other.grab());
}

std::optional<QRect> rectOf(const QStringList& numbers) {
    if (numbers.size() != 4) return std::nullopt;
    const QRect rect(numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt());
    return rect.isEmpty() ? std::nullopt : std::optional(rect);
}
}  // namespace

std::optional<QRect> WindowPicture::partOf(QWidget& window, const QString& part) {
    if (part.isEmpty()) return window.rect();
    const QStringList words = part.split(u' ', Qt::SkipEmptyParts);
    if (words.value(0) != u"around") return rectOf(words);
    const QWidget* owner = keyboardOwner(window);
    QRect around = owner->isWindow() ? QRect() : placeOf(*owner, window);
    for (const QWidget* other : inFrontOf(window)) around |= framed(*other, window);
    const int margin = words.value(1).toInt();
    return around.adjusted(-margin, -margin, margin, margin);
}

bool WindowPicture::save(QWidget& window, const QString& file, const QRect& part) {
    const double ratio = window.devicePixelRatioF();
    QImage image((QSizeF(part.size()) * ratio).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(window.palette().color(QPalette::Mid));
    QPainter painter(&image);
    painter.translate(-part.topLeft());
    painter.drawPixmap(QPoint(), window.grab());
    for (QWidget* other : inFrontOf(window)) drawFramed(painter, *other, window);
    painter.end();
    image.setDevicePixelRatio(1);  // a file for readers whose screens are not scaled
    return image.save(file, "PNG");
}
