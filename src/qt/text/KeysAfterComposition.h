// Keys come after what the input method has said before them.
#pragma once

#include <QObject>

namespace kxVsGrid::qt {

/// An input method that is asked about each key, and waited for (IBUS_ENABLE_SYNC_MODE), has answered before
/// the key comes. But what it has committed meanwhile still waits in the queue of the program, and on a slow
/// machine the next keys are taken off the display at once, before the queue: Enter would close a cell before
/// its last word is in it. So the queue goes first.
class KeysAfterComposition : public QObject {
  public:
    /// For the whole program, once: the keyboard's owner is looked for when the queue has been worked off.
    static void install();

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    using QObject::QObject;
};
}  // namespace kxVsGrid::qt
