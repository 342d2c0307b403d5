#include "qt/text/EditorTip.h"

#include <QToolTip>
#include <algorithm>

namespace kxVsGrid::qt {
namespace {

/// Between the box and the tip, so that the box keeps its edge.
constexpr int Gap = 2;
constexpr int SideMargin = 4;
}  // namespace

EditorTip::EditorTip(QWidget& parent) : TipLabel(&parent) {
    setContentsMargins(SideMargin, 1, SideMargin, 1);
    hide();
}

void EditorTip::showFor(const QWidget& box, const QString& text) {
    if (text.isEmpty()) return hide();
    setPalette(QToolTip::palette());
    setText(text);
    const QWidget& room = *parentWidget();
    const QSize size = sizeHint().boundedTo(room.size());
    const QRect at = box.geometry();
    const int left = std::clamp(at.left(), 0, room.width() - size.width());
    int top = at.bottom() + 1 + Gap;
    if (top + size.height() > room.height()) top = std::max(0, at.top() - Gap - size.height());
    setGeometry(QRect(QPoint(left, top), size));
    show();
    raise();
}
}  // namespace kxVsGrid::qt
