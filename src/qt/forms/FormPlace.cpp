#include "qt/forms/FormPlace.h"

#include <algorithm>

namespace kxVsGrid::qt {
namespace {

QRect movedOnto(const QRect& screen, QRect place) {
    place.moveLeft(std::clamp(place.left(), screen.left(), screen.right() - place.width() + 1));
    place.moveTop(std::clamp(place.top(), screen.top(), screen.bottom() - place.height() + 1));
    return place;
}
}  // namespace

QSize sizeOn(const QRect& screen, const QSize& size) {
    return size.boundedTo(screen.size());
}

QRect placeNear(const QRect& cell, const QSize& size, const QRect& screen) {
    QRect place({cell.left(), cell.top() + cell.height()}, sizeOn(screen, size));
    const int above = cell.top() - place.height();
    if (place.bottom() > screen.bottom() && above >= screen.top()) place.moveTop(above);
    return movedOnto(screen, place);
}

QRect placeInMiddle(const QRect& window, const QSize& size, const QRect& screen) {
    const QSize shown = sizeOn(screen, size);
    const QSize around = window.size() - shown;
    return movedOnto(screen, {window.topLeft() + QPoint(around.width() / 2, around.height() / 2), shown});
}
}  // namespace kxVsGrid::qt
