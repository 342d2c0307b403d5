#include "qt/text/EditorTip.h"

#include <QToolTip>

namespace kxVsGrid::qt {
namespace {

/// Between the box and the tip, so that the box keeps its edge.
constexpr int Gap = 2;
}  // namespace

EditorTip::EditorTip(QWidget& widget) : TipLabel(&widget), widget_(widget) {
    hide();
}

void EditorTip::showFor(const QWidget& box, const QString& text) {
    if (text.isEmpty()) return hide();
    setPalette(QToolTip::palette());
    showBeside(QRect(box.mapToGlobal(QPoint()), box.size()), Gap, text, {&widget_, widget_.window()});
}
}  // namespace kxVsGrid::qt
