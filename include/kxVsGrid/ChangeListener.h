// What becomes of the content of a grid, told in order: who keeps a copy of it, or wants to take a change
// back, hears of each one here.
//
//     struct Counter : kxVsGrid::ChangeListener {
//         int writes = 0;
//         void written(std::int32_t, std::int32_t, kxVsGrid::CellPart, std::string_view,
//                      std::string_view) noexcept override {
//             ++writes;
//         }
//     };
//     Counter counter;
//     grid.AddListener(counter);
//     grid.Text(1, 2, "A001");
//     grid.RemoveListener(counter);  // before either of them goes
//
// A grid tells its listeners before the events of the same write. They may read the grid and ask for row ids,
// and may not write (debug builds abort). They cannot fail: one that lacks the memory to keep up says so in
// its own way.
// What is told is what is stored. A text that is computed, and a row number that shows where no text was
// written, count as the empty text.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kxVsGrid {

enum class CellPart { Text, Tag };

/// What a step comes from.
enum class Cause {
    Typed,  ///< into a cell, a toggled one too; also a move and the default texts that it fills
    Help,   ///< chosen in a help
    Fill,   ///< of a column
    Paste,  ///< and clearing
    Rows,   ///< added, copied, deleted
    Sort,
    Replace,
    Undo,  ///< and redo
    Code,  ///< the host's own
};

/// All rows and columns are positions at that moment. A listener that is being told may take itself or others
/// away, and be destroyed then.
class ChangeListener {
  public:
    virtual ~ChangeListener() = default;
    /// A cell's text or tag has become another one. Both texts are good until this returns.
    virtual void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                         std::string_view after) noexcept;
    /// Asked once, as it is added: whether it hears of `filled` instead of each write that fills a cell.
    virtual bool hearsFilled() const noexcept;
    /// Cells of the row, in the 32 columns from `col` on, held neither a text nor a tag and have got what the
    /// bits say, the lowest one for `col`. Told of many writes at once, where a grid is filled: before
    /// anything else is written or told, and when CellGrid::TellFilled() asks for it.
    virtual void filled(std::int32_t row, std::int32_t col, std::uint32_t texts, std::uint32_t tags) noexcept;
    /// Rows have come before the one at `at`: empty ones.
    virtual void added(std::int32_t at, std::int32_t count) noexcept;
    /// Rows are about to go; their contents can still be read.
    virtual void removing(std::int32_t at, std::int32_t count) noexcept;
    /// Rows [first, first + from.size()) have changed places; `from` says which row, by its old place, stands
    /// at each of them now.
    virtual void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept;
    /// Texts and tags of rows `first` to `last` are about to become empty; they can still be read.
    virtual void cleared(std::int32_t first, std::int32_t last) noexcept;
    /// There are more columns, or the last ones have gone with their contents.
    virtual void columnsChanged() noexcept;
    /// What a column displays has changed, not what is stored: its format, row numbers, a computed text. -1:
    /// perhaps all of them.
    virtual void shown(std::int32_t col) noexcept;
    /// A step of changes that belong together begins, and is done. Steps inside of it are not told.
    virtual void stepOpened(std::string_view name, Cause cause) noexcept;
    virtual void stepClosed(std::string_view name, Cause cause) noexcept;
};
}  // namespace kxVsGrid
