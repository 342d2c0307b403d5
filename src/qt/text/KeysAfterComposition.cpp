#include "qt/text/KeysAfterComposition.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

namespace kxVsGrid::qt {

void KeysAfterComposition::install() {
    static QPointer<QObject> installed;  // goes with the application
    if (installed) return;
    installed = new KeysAfterComposition(QCoreApplication::instance());
    QCoreApplication::instance()->installEventFilter(installed);
}

bool KeysAfterComposition::eventFilter(QObject* object, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!key || !object->isWindowType()) return false;
    const QPointer<QObject> window = object;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    return window == nullptr;  // nobody is left to press the key
}
}  // namespace kxVsGrid::qt
