// What has been keyed and not saved yet, kept outside the program, so that a crash or a power cut loses none of it.
//
//     std::string kept;  // in a program: a file
//     kxVsGrid::Draft draft(grid.Grid(), [&kept](std::string_view bytes) {
//         kept += bytes;
//         return true;
//     });
//     draft.begin("order 4711", "version 3");
//     draft.put("remark", "call before noon");
//     {
//         const auto step = grid.Step("录入");
//         grid.SetCell(1, 1, "A001");
//     }
//     const kxVsGrid::DraftInfo info = kxVsGrid::lookAtDraft(kept);  // info.key is "order 4711"
//
// A draft is a journal: lines of text, each with its number and a checksum. A line that is torn or altered is
// known as such, and what stands before it counts. begin() names the document; what the grid holds follows in
// slices (writeSlice(), in idle time); each step of changes is a line, given away whole as the step closes. What
// is written outside of steps is given away with the next step, or by flush().
//
// Texts and tags of the data rows are kept, and which rows there are. Heights, colours and other looks are not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {

namespace changes {
class DraftWriter;
}

class Draft {
  public:
    /// Keeps the bytes behind those that it was given before. False when they could not be kept, or not all of
    /// them: they are given again, as long as it is little as the next step closes, else by flush(),
    /// writeSlice() or put(). What it throws counts as False. It is called while a step closes: it may neither
    /// write to the grid nor end the draft.
    using Sink = std::function<bool(std::string_view bytes)>;

    /// The grid must outlive it.
    Draft(CellGrid& grid, Sink sink);
    ~Draft();
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    /// A new document, or the same one when it has been saved: what the grid holds now is `version` of the
    /// document `key`. The bytes from here on are a draft of their own; a sink that begins a new file for them
    /// drops nothing that is still needed. What was put before is forgotten.
    void begin(std::string_view key, std::string_view version);
    /// What the host has beside the grid, by name; the last one holds. Given away at once.
    void put(std::string_view name, std::string_view bytes);
    /// Gives some more of what the grid holds away; a slice takes about as long as a key press may. False when
    /// all of it has been given, while the sink keeps nothing, and while a step is open.
    bool writeSlice();
    /// Gives away what was written outside of steps, and what the sink could not keep. Where lines could not be
    /// noted for want of memory, or columns have changed, this may be the whole grid.
    void flush();
    /// Nothing is recorded any more until begin().
    void end();

    /// The draft stands for itself: all of the grid has been given away. Until then it holds only together with
    /// the document.
    bool whole() const;
    /// The sink has kept all that it was given.
    bool kept() const;
    /// The draft anew and in one piece, as short as it can be: a sink whose file has grown too long puts this in
    /// place of it. False while a step is open, when nothing was begun, and when `into` has not kept it.
    bool rewrite(const Sink& into);
    /// How many bytes that took, or the first snapshot did.
    std::size_t contentBytes() const;

  private:
    std::unique_ptr<changes::DraftWriter> writer_;
};

/// What is known of a draft.
struct DraftInfo {
    std::string key;
    std::string version;
    std::map<std::string, std::string> puts;
    std::int32_t rows = 0;              ///< of the grid when the draft began, with the fixed ones
    std::vector<std::string> captions;  ///< of its columns, in the lowest fixed row
    std::size_t steps = 0;              ///< that stand in it whole
    std::string lastStep;               ///< the name of the last one
    bool whole = false;                 ///< it can be recovered without the document
    /// What of the bytes could not be used and why, with the place; empty when all of it is good. A last line
    /// that was torn while it was written is not counted as damage.
    std::string damage;
    /// Why nothing can be recovered; empty when it can.
    std::string refusal;
    /// Nothing can be recovered, and nothing is lost by that: no bytes, or a part of the first line of a draft. A
    /// program that ended as it began one leaves it behind.
    bool nothing = false;
};

/// Reads what a draft says of itself. Takes a time that grows with its length, and changes nothing.
DraftInfo lookAtDraft(std::string_view bytes);

/// Puts a grid into the state after the last whole step of a draft. `document`: the grid holds the document in
/// the version that the draft began with; only then a draft that is not whole() can be recovered, and rows that
/// are still there keep their ids (a row that was removed and brought back counts as another one). Otherwise all
/// data rows are replaced. The fixed rows, the number of columns and their captions have to be those of the
/// draft: else, as with bytes that are no draft, the answer says why in `refusal`, and nothing has changed.
/// Cells that differ are written without CellChanged: what follows from them was kept with them. `before` is
/// called when nothing refuses it, before anything changes.
DraftInfo recoverDraft(CellGrid& grid, std::string_view bytes, bool document,
                       const std::function<void()>& before = {});
}  // namespace kxVsGrid
