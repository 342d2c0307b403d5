// A line of text of the control's own in the look of a tool tip.
#pragma once

#include <QLabel>

namespace kxVsGrid::qt {

/// Plain text; presses go through it, and it takes neither the keyboard nor a key.
class TipLabel : public QLabel {
  public:
    explicit TipLabel(QWidget* parent) : QLabel(parent) {
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
        setAutoFillBackground(true);
        setForegroundRole(QPalette::ToolTipText);
        setBackgroundRole(QPalette::ToolTipBase);
    }
};
}  // namespace kxVsGrid::qt
