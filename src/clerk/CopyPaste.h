// Blocks of cells to the clipboard and from it.
//
// Hidden rows and columns are passed over both ways. A block is pasted from the top left cell of the selection
// on, in its own size; a single value fills the whole selection.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "clerk/BlockEdit.h"
#include "clerk/ClerkContext.h"
#include "kxVsGrid/Clipboard.h"

namespace kxVsGrid::clerk {

class CopyPaste {
  public:
    explicit CopyPaste(const ClerkContext& context) : c_(context) {}

    /// False when there is no cell to copy. The clerk is told of rows that a filter hides.
    bool copy(bool headers) const;
    /// The same, of which clearing tells.
    bool copyToCut() const;
    /// False when there is nothing to paste, or no cell for it that can be edited. A single value that one cell
    /// refuses is left to the clerk in the open editor, and a tip says why; one that the editor would cut stays out.
    bool paste();

  private:
    bool copySelected(bool headers, std::int64_t& filtered) const;
    class Source;
    const std::string& gridKey() const;
    bool isCurrentCell(const CellRange& range) const;
    bool pasteInto(CellRange range, Source& source);
    void leaveToClerk(const BlockEdit& edit);
    std::int32_t lastRowToFill(const CellRange& range) const;
    void pasteBlock(BlockEdit& edit, Source& source, const CellRange& at,
                    const std::vector<std::int32_t>& cols) const;
    void fill(BlockEdit& edit, Source& source, const CellRange& range,
              const std::vector<std::int32_t>& cols) const;

    ClerkContext c_;
    mutable std::string gridKey_;  ///< names this grid in the control's own form; made when first needed
};
}  // namespace kxVsGrid::clerk
