// A line at the editor that says why its text was refused. It stays for as long as the control wants it
// there.
#pragma once

#include "qt/TipLabel.h"

namespace kxVsGrid::qt {

class EditorTip : public TipLabel {
  public:
    explicit EditorTip(QWidget& parent);

    /// Below the box, or above it where the window ends; an empty text hides it.
    void showFor(const QWidget& box, const QString& text);
};
}  // namespace kxVsGrid::qt
