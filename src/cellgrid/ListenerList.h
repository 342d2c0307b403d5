// Those who hear of the changes of a grid's content, in the order in which they came. They may leave, and
// others come, while they are being told.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "kxVsGrid/ChangeListener.h"

namespace kxVsGrid::cellgrid {

class ListenerList {
  public:
    void add(ChangeListener& listener) {
        tellFilled();
        const bool hearsFilled = listener.hearsFilled();
        listeners_.push_back({&listener, hearsFilled});
        ++there_;
        hearFilled_ += hearsFilled;
    }
    void remove(ChangeListener& listener) noexcept {
        tellFilled();
        const auto place = std::find_if(listeners_.begin(), listeners_.end(),
                                        [&](const Listener& one) { return one.who == &listener; });
        if (place == listeners_.end()) return;
        --there_;
        hearFilled_ -= place->hearsFilled;
        if (telling_ == 0)
            listeners_.erase(place);
        else
            place->who = nullptr;
    }
    bool any() const { return there_ > 0; }
    /// All hear of filled cells, which may wait.
    bool allHearFilled() const { return there_ == hearFilled_; }
    /// They are being told, and nobody may write.
    bool telling() const { return telling_ > 0; }

    /// Those who come meanwhile hear of the next change.
    template <class Tell>
    void tell(Tell tell) noexcept {
        tellFilled();
        tellNow(tell);
    }

    /// A cell that held nothing has got a text, and perhaps a tag; told when the next row or another change
    /// comes. For when all hear of filled cells.
    void fill(std::int32_t row, std::int32_t col, bool tagged) noexcept {
        const std::int32_t first = col - col % FilledCols;
        if (row != filledRow_ || first != filledCol_) {
            tellFilled();
            filledRow_ = row;
            filledCol_ = first;
        }
        const std::uint32_t bit = std::uint32_t{1} << (col - first);
        texts_ |= bit;
        tags_ |= tagged ? bit : 0;
    }
    void tellFilled() noexcept {
        if (filledRow_ < 0) return;
        const std::int32_t row = std::exchange(filledRow_, -1);
        const std::uint32_t texts = std::exchange(texts_, 0);
        const std::uint32_t tags = std::exchange(tags_, 0);
        tellNow([&](ChangeListener& one) { one.filled(row, filledCol_, texts, tags); });
    }

  private:
    static constexpr std::int32_t FilledCols = 32;
    struct Listener {
        ChangeListener* who;  ///< nullptr for one that left while they were told
        bool hearsFilled;
    };
    template <class Tell>
    void tellNow(Tell tell) noexcept {
        ++telling_;
        const std::size_t count = listeners_.size();
        for (std::size_t i = 0; i < count; ++i)
            if (ChangeListener* const one = listeners_[i].who) tell(*one);
        if (--telling_ == 0 && listeners_.size() != there_)
            std::erase_if(listeners_, [](const Listener& gone) { return !gone.who; });
    }

    std::vector<Listener> listeners_;
    std::size_t there_ = 0;
    std::size_t hearFilled_ = 0;  ///< of them
    int telling_ = 0;
    std::int32_t filledRow_ = -1;  ///< the row and columns of filled cells that are not told yet
    std::int32_t filledCol_ = 0;
    std::uint32_t texts_ = 0;
    std::uint32_t tags_ = 0;
};
}  // namespace kxVsGrid::cellgrid
