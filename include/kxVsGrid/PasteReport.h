// What has become of a block of cells that a clerk has written at once: pasted, cut, cleared or filled.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/Command.h"
#include "kxVsGrid/RowId.h"

namespace kxVsGrid {

struct PasteReport {
    /// Cells that were not written, and why.
    struct Refusal {
        RowId row = RowId::None;  ///< of one cell of the grid's; None for what would lie beyond it
        std::int32_t col = -1;
        std::int64_t cells = 1;
        std::string text;    ///< that was not written; empty for several cells
        std::string reason;  ///< as a clerk reads it
    };
    /// So many refusals are listed at most; the numbers count all of them.
    static constexpr std::size_t MostListed = 1000;

    Command command = Command::Paste;
    std::int64_t written = 0;     ///< cells with another text or tag than before
    std::int64_t same = 0;        ///< cells that had what was to be written
    std::int64_t passedOver = 0;  ///< cells that cannot be edited: read-only or locked
    std::int64_t refused = 0;
    std::int64_t rowsAdded = 0;
    std::int64_t filteredRows = 0;  ///< that were passed over, since a filter hides them
    bool cancelled = false;         ///< by the clerk: all was taken back
    bool cutShort = false;  ///< a handler has failed or has taken the cells away: the rest was not written
    std::vector<Refusal> refusals;

    /// In a sentence: "写入 118 格，跳过只读 2 格，未通过 1 格。"; of cells that were cut or cleared "已清除 13 格，…".
    /// Empty when all went well.
    std::string summary() const;
};

/// "有 12 行被筛选隐藏，未处理。"; empty for none.
std::string passedOverText(std::int64_t rows);
}  // namespace kxVsGrid
