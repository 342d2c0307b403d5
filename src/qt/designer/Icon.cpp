#include "qt/designer/Icon.h"

#include <QPainter>
#include <QPixmap>

namespace kxVsGrid::qt::designer {
namespace {

constexpr int Units = 16;  // the picture is drawn on 16 x 16 units

/// Headings and row numbers on grey, one cell under the cursor, a total below the double line.
void paintGrid(QPainter& painter) {
    const QColor line(110, 118, 130);
    const QColor fixed(216, 222, 230);
    const QColor total(255, 244, 204);
    const QColor current(38, 121, 191);
    painter.fillRect(1, 2, 14, 12, Qt::white);
    painter.fillRect(1, 2, 14, 3, fixed);
    painter.fillRect(1, 2, 3, 12, fixed);
    painter.fillRect(1, 11, 14, 3, total);
    painter.fillRect(4, 5, 6, 3, current);
    for (const int y : {2, 5, 8, 11, 13}) painter.fillRect(1, y, 14, 1, line);
    for (const int x : {1, 4, 10, 14}) painter.fillRect(x, 2, 1, 12, line);
}
}  // namespace

QIcon gridIcon() {
    QIcon icon;
    for (const int pixels : {16, 32, 48, 64}) {
        QPixmap picture(pixels, pixels);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.scale(1.0 * pixels / Units, 1.0 * pixels / Units);
        paintGrid(painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}
}  // namespace kxVsGrid::qt::designer
