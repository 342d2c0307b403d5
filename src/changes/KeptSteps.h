// Steps that can be undone, or redone: the newest goes first, the oldest are dropped when they take too much room.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "changes/Record.h"
#include "support/Room.h"

namespace kxVsGrid::changes {

class KeptSteps {
  public:
    struct Step {
        Record record;
        std::uint64_t serial = 0;
    };

    bool empty() const { return first_ == steps_.size(); }
    Step& back() { return steps_.back(); }
    const Step& back() const { return steps_.back(); }
    /// What the steps take of memory. Only the newest one grows.
    std::size_t bytes() const { return empty() ? 0 : older_ + back().record.bytes(); }

    /// The next push() cannot fail.
    void makeRoom() { support::makeRoom(steps_); }
    void push(Step step) {
        const std::size_t bytes = this->bytes();
        steps_.push_back(std::move(step));
        older_ = bytes;
    }
    Step pop() {
        Step newest = std::move(steps_.back());
        steps_.pop_back();
        if (empty())
            clear();
        else
            older_ -= back().record.bytes();
        return newest;
    }
    void dropOldest() noexcept {
        if (steps_.size() - first_ == 1) return clear();
        older_ -= steps_[first_].record.bytes();
        steps_[first_++] = {};
        // not one by one: all that stay have to move
        if (first_ * 2 < steps_.size()) return;
        steps_.erase(steps_.begin(), steps_.begin() + static_cast<std::ptrdiff_t>(first_));
        first_ = 0;
    }
    void clear() noexcept {
        steps_.clear();
        first_ = older_ = 0;
    }

  private:
    std::vector<Step> steps_;
    std::size_t first_ = 0;  ///< those before it were dropped
    std::size_t older_ = 0;  ///< the bytes of all but the newest
};
}  // namespace kxVsGrid::changes
