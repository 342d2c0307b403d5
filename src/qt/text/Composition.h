// What an input method composes in a text box.
//
// While it is under way nothing is told of the box. A committed text counts as one edit; a dropped one as
// none: text and selection are again what they were before its first key.
#pragma once

#include <QInputMethodEvent>

#include "qt/text/BoxEvents.h"

namespace kxVsGrid::qt {

class Composition {
  public:
    /// Who mirrors the box.
    class Listener {
      public:
        virtual ~Listener() = default;
        virtual void composes(bool underway) = 0;
        /// The box holds a committed text. False when it is not shown any more by what came of that.
        virtual bool committed() = 0;
    };

    explicit Composition(Listener& listener) : listener_(listener) {}

    bool underway() const { return underway_; }
    /// What the box shows now is not the clerk's.
    bool busy() const { return underway_ || applying_; }
    void apply(TextBoxPort& box, QInputMethodEvent& event);
    /// Commits what is being composed, exactly once.
    void end(TextBoxPort& box);
    /// Forgets it; the box is about to be hidden or to get another text.
    void forget();

  private:
    void begin(const TextBoxPort& box);
    void commit(const TextBoxPort& box);
    void drop(TextBoxPort& box);

    Listener& listener_;
    bool underway_ = false;
    bool applying_ = false;
    QString preedit_;
    BoxState before_;
};
}  // namespace kxVsGrid::qt
