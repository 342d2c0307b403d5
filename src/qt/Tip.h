// A line of text that stands beside a place in a window for a while.
#pragma once

#include "qt/TipLabel.h"

namespace kxVsGrid::qt {

/// It goes with the next key or press, with its window, or after a while, and deletes itself then. It is part of the window: windows
/// that come up, close and become active do not touch it, unlike a tool tip of Qt's.
class Tip : public TipLabel {
  public:
    /// Under `anchor` (on the screen), above it where there is no room. `owner` wears the palette and is in
    /// the window.
    Tip(QWidget& owner, const QRect& anchor, const QString& text);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
};
}  // namespace kxVsGrid::qt
