// The way to the host: raises the control's events for as long as the control is there.
//
// A listener may destroy the control. The collaborators that are at work live on until they are done, and
// what they would tell then reaches nobody.
#pragma once

#include <utility>

#include "kxVsGrid/GridEvents.h"

namespace kxVsGrid::host {

class Host {
  public:
    explicit Host(GridEvents& events) : events_(&events) {}

    bool there() const { return events_ != nullptr; }
    void controlGone() { events_ = nullptr; }

    template <class... Args, class... Given>
    void raise(Event<Args...> GridEvents::*event, Given&&... given) const {
        if (events_) (events_->*event)(std::forward<Given>(given)...);
    }
    /// Whether somebody listens.
    template <class... Args>
    bool hears(Event<Args...> GridEvents::*event) const {
        return events_ && (events_->*event).heard();
    }

  private:
    GridEvents* events_;
};
}  // namespace kxVsGrid::host
