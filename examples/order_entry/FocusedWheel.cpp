#include "FocusedWheel.h"

#include <QEvent>

void FocusedWheel::keep(QWidget& field) {
    field.setFocusPolicy(Qt::StrongFocus);
    field.installEventFilter(new FocusedWheel(&field));
}

bool FocusedWheel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus()) return false;
    event->ignore();
    return true;
}
