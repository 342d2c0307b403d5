// A line at the editor that says why its text was refused. It stays for as long as the control wants it
// there, and takes neither keys nor the keyboard nor presses.
#pragma once

#include <QLabel>

namespace kxVsGrid::qt {

class EditorTip : public QLabel {
  public:
    explicit EditorTip(QWidget& parent);

    /// Below the box, or above it where the window ends; an empty text hides it.
    void showFor(const QWidget& box, const QString& text);
};
}  // namespace kxVsGrid::qt
