// Reads a draft: which of its lines are good, and what stands in them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "changes/DraftLine.h"
#include "changes/DraftTable.h"
#include "kxVsGrid/Draft.h"

namespace kxVsGrid::changes {

class DraftReader {
  public:
    /// `makesTable` False: only what the draft says of itself.
    DraftReader(std::string_view bytes, bool makesTable);

    const DraftInfo& info() const { return info_; }
    std::int32_t fixedRows() const { return draft_.fixedRows; }
    /// None when nothing can be recovered, or it was not asked for.
    const DraftTable* table() const { return draft_.table.get(); }

  private:
    /// What began with one header.
    struct OneDraft {
        DraftInfo info;
        std::int32_t rows = 0;
        std::int32_t fixedRows = 0;
        std::int32_t cols = 0;
        DraftFrontier given;  ///< what slices have told
        bool again = false;
        std::uint64_t lines = 0;
        std::unique_ptr<DraftTable> table;
    };
    void take(std::string_view line, std::size_t at, bool ended);
    /// Whether the line goes on from those before it, or stood there already.
    bool use(const DraftLine& line);
    bool begin(FieldReader& fields);
    bool useOne(std::string_view kind, FieldReader& fields);
    bool slice(FieldReader& fields);
    bool step(FieldReader& fields);
    void put(FieldReader& fields);
    void whole();
    void finish();

    bool makesTable_;
    bool began_ = false;
    OneDraft draft_;
    std::optional<OneDraft> before_;  ///< the one that counts until draft_ is whole
    DraftInfo info_;
    std::size_t badAt_ = 0;     ///< where the first line stands that could not be used
    std::size_t badLines_ = 0;  ///< how many there are from there on
    bool tornAtEnd_ = false;    ///< the last of them has no end
    std::int32_t otherFormat_ = 0;
};
}  // namespace kxVsGrid::changes
