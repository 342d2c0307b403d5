#include "CurvedArrow.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {
class Engine : public QIconEngine {
  public:
    explicit Engine(Turn turn) : turn_(turn) {}

    // The palette may have become another one since the icon was made.
    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color = QGuiApplication::palette().color(group, QPalette::ButtonText);
        constexpr qreal Side = 16;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(place.topLeft());
        painter->scale(place.width() / Side, place.height() / Side);
        if (turn_ == Turn::Forth) {
            painter->translate(Side, 0);
            painter->scale(-1, 1);
        }
        painter->setPen(QPen(color, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        QPainterPath path(QPointF(5, 13));  // from below, round, and to the head on the left
        path.lineTo(9.5, 13);
        path.arcTo(QRectF(5.5, 5, 8, 8), -90, 180);
        path.lineTo(2.5, 5);
        path.moveTo(5.5, 2);
        path.lineTo(2.5, 5);
        path.lineTo(5.5, 8);
        painter->drawPath(path);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }

    QIconEngine* clone() const override { return new Engine(*this); }

  private:
    Turn turn_;
};
}  // namespace

QIcon curvedArrow(Turn turn) {
    return QIcon(new Engine(turn));
}
