// The arrows of undo and redo, drawn for desktops whose theme of icons has none: in the colour of the texts
// beside them, light or dark, sharp at every scale.
#pragma once

#include <QIcon>

enum class Turn { Back, Forth };

QIcon curvedArrow(Turn turn);
