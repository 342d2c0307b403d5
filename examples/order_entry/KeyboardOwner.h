// Who gets the keys of a script: what has the keyboard, as far as a desktop without a window manager says so.
#pragma once

class QWidget;

QWidget* keyboardOwner(QWidget& window);
