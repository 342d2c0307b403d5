// Those who hear of the changes of a grid's content, in the order in which they came. They may leave, and
// others come, while they are being told.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "kxVsGrid/ChangeListener.h"

namespace kxVsGrid::cellgrid {

class ListenerList {
  public:
    void add(ChangeListener& listener) {
        listeners_.push_back(&listener);
        ++there_;
    }
    void remove(ChangeListener& listener) noexcept {
        const auto place = std::find(listeners_.begin(), listeners_.end(), &listener);
        if (place == listeners_.end()) return;
        --there_;
        if (telling_ == 0)
            listeners_.erase(place);
        else
            *place = nullptr;
    }
    bool any() const { return there_ > 0; }
    /// They are being told, and nobody may write.
    bool telling() const { return telling_ > 0; }

    /// Those who come meanwhile hear of the next change.
    template <class Tell>
    void tell(Tell tell) noexcept {
        ++telling_;
        const std::size_t count = listeners_.size();
        for (std::size_t i = 0; i < count; ++i)
            if (listeners_[i]) tell(*listeners_[i]);
        if (--telling_ == 0 && listeners_.size() != there_) std::erase(listeners_, nullptr);
    }

  private:
    std::vector<ChangeListener*> listeners_;  ///< nullptr for one that left while they were told
    std::size_t there_ = 0;
    int telling_ = 0;
};
}  // namespace kxVsGrid::cellgrid
