#include "qt/view/GridSurface.h"

#include <QPaintEvent>
#include <QToolTip>

#include "qt/KeyMap.h"
#include "qt/text/Encoding.h"
#include "qt/view/Tips.h"

namespace kxVsGrid::qt {

GridSurface::GridSurface(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

bool GridSurface::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    showWholeText(static_cast<QHelpEvent&>(*event));
    return true;
}

void GridSurface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (painter_.follow(*this))
        QMetaObject::invokeMethod(
            this, [this] { lookChanged(); }, Qt::QueuedConnection);
    paintGrids(painter, event->region());
}

void GridSurface::repaintDamage(const CellGrid::Damage& damage, const Rect& origin) {
    if (damage.all)
        update();
    else if (const QRegion region = pixelsOf(damage, origin, Scale(*this)); !region.isEmpty())
        update(region);
}

Touch GridSurface::touchOf(const QMouseEvent& event, Qt::MouseButtons buttons) const {
    const Scale scale(*this);
    const QPointF at = event.position();
    return {buttonsOf(buttons), shiftOf(event.modifiers()), middle(scale, at.x()), middle(scale, at.y())};
}

GridHit GridSurface::hit(const CellGrid& grid, const Rect& origin, const QPointF& at) const {
    const Scale scale(*this);
    return grid.HitTest(middle(scale, at.x()) - origin.left, middle(scale, at.y()) - origin.top);
}

void GridSurface::showTip(const QHelpEvent& event, const std::string& text) {
    QToolTip::showText(event.globalPos(), plainTip(toQt(text)), this);
}

void GridSurface::showCursor(bool overEdge) {
    if (overEdge == splitCursor_) return;
    splitCursor_ = overEdge;
    if (overEdge)
        setCursor(Qt::SplitHCursor);
    else
        unsetCursor();
}
}  // namespace kxVsGrid::qt
