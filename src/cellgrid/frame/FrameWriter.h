// Fills a frame from its start, using again the items that it has from the picture before.
#pragma once

#include <cstddef>
#include <cstdint>

#include "kxVsGrid/Frame.h"

namespace kxVsGrid::cellgrid {

class FrameWriter {
  public:
    explicit FrameWriter(Frame& frame) : frame_(frame) {}
    FrameWriter(const FrameWriter&) = delete;
    FrameWriter& operator=(const FrameWriter&) = delete;
    ~FrameWriter() {
        frame_.items.erase(frame_.items.begin() + static_cast<std::ptrdiff_t>(used_), frame_.items.end());
    }

    /// The next item, its text empty. The reference lasts until the next call.
    FrameItem& add(FrameItem::Kind kind, const Rect& rect, std::uint32_t color, std::int32_t row = -1,
                   std::int32_t col = -1) {
        if (used_ == frame_.items.size()) frame_.items.emplace_back();
        FrameItem& item = frame_.items[used_++];
        item.kind = kind;
        item.checked = false;
        item.mark = CellMark::Kind::Problem;
        item.shade = 0;
        item.alignment = flexAlignLeftCenter;
        item.color = color;
        item.rect = rect;
        item.row = row;
        item.col = col;
        item.text.clear();
        return item;
    }

    std::size_t count() const { return used_; }
    FrameItem& at(std::size_t number) { return frame_.items[number]; }

  private:
    Frame& frame_;
    std::size_t used_ = 0;
};
}  // namespace kxVsGrid::cellgrid
