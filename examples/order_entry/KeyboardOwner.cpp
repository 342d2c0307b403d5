#include "KeyboardOwner.h"

#include <QApplication>
#include <QWidget>

QWidget* keyboardOwner(QWidget& window) {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* focused = QApplication::focusWidget()) return focused;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return &window;
}
