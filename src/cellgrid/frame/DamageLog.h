// What of a picture is no longer right since it was last painted.
#pragma once

#include <cstddef>
#include <functional>
#include <new>
#include <utility>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::cellgrid {

class DamageLog {
  public:
    /// Whether nothing smaller needs to be told any more: cheap enough for every write of a million.
    bool all() const { return all_; }
    void addAll() {
        if (all_) return;
        all_ = true;
        rects_.clear();
        tell();
    }
    void add(const Rect& rect) {
        if (all_ || rect.empty() || (!rects_.empty() && rects_.back() == rect)) return;
        if (held_ || rects_.size() == MaxRects) return addAll();
        try {
            rects_.push_back(rect);
        } catch (const std::bad_alloc&) {
            return addAll();  // what was written is seen, whatever it costs
        }
        tell();
    }
    /// While held, damage is noted as the whole picture and nobody is told.
    void hold(bool held) {
        if (held_ == held) return;
        held_ = held;
        if (held_) {
            all_ = all_ || !rects_.empty();
            rects_.clear();
        } else {
            told_ = false;  // who came for the damage meanwhile got none
            tell();
        }
    }
    CellGrid::Damage take() {
        if (held_) return {};
        told_ = false;
        return {std::exchange(all_, false), std::exchange(rects_, {})};
    }
    void listen(std::function<void()> listener) { listener_ = std::move(listener); }

  private:
    static constexpr std::size_t MaxRects = 64;

    void tell() {
        if (held_ || told_ || (!all_ && rects_.empty())) return;
        told_ = true;
        if (listener_) listener_();
    }

    bool all_ = true;  // nothing was painted yet
    bool held_ = false;
    bool told_ = true;
    std::vector<Rect> rects_;
    std::function<void()> listener_;
};
}  // namespace kxVsGrid::cellgrid
