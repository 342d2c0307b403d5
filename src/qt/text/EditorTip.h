// A text at the editor that says why what was typed was refused. It stays for as long as the control wants it
// there.
#pragma once

#include "qt/TipLabel.h"

namespace kxVsGrid::qt {

class EditorTip : public TipLabel {
  public:
    /// In this widget, or in its window where the widget has no room for it: it goes with whichever goes first.
    explicit EditorTip(QWidget& widget);

    /// Below the box, or above it where the window ends; an empty text hides it.
    void showFor(const QWidget& box, const QString& text);

  private:
    QWidget& widget_;
};
}  // namespace kxVsGrid::qt
