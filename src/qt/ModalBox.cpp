#include "qt/ModalBox.h"

#include <QKeyEvent>

namespace kxVsGrid::qt {

/// A busy X display does not always mark repetitions. There they are pairs of a release and a press in the
/// same millisecond.
bool NewKeysOnly::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::KeyRelease) released_ = static_cast<QKeyEvent*>(event)->timestamp();
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(object, event);
    const auto& key = static_cast<QKeyEvent&>(*event);
    return key.isAutoRepeat() || (released_ != 0 && key.timestamp() == released_);
}
}  // namespace kxVsGrid::qt
