// Reads a draft: which of its lines are good, and what stands in them.
#pragma once

#include <cstddef>
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
    /// Why it cannot be put into the grid; empty when it can.
    std::string refusalFor(const CellGrid& grid, bool document) const;
    /// Only where nothing refuses it.
    void putInto(CellGrid& grid, bool document) const;

  private:
    /// What began with one header.
    struct OneDraft {
        DraftInfo info;
        DraftRows rows{0, 0};
        std::int32_t cols = 0;
        bool overDocument = true;  ///< its changes lead from the document's rows to its own
        DraftPlace place;
        std::unique_ptr<DraftTable> table;
        std::size_t badAt = 0;     ///< where the first line stands that could not be used
        std::size_t badLines = 0;  ///< how many there are from there on
        bool torn = false;         ///< the last of them has no end

        std::string damage() const;
    };
    void take(std::string_view line, std::size_t at, bool ended);
    enum class Use { Good, Again, Bad };
    Use use(const DraftLine& line);
    bool begin(FieldReader& fields, const DraftLine& line);
    bool useOne(std::string_view kind, FieldReader& fields);
    bool rowsSince(FieldReader& fields);
    bool slice(FieldReader& fields);
    bool step(FieldReader& fields);
    bool put(FieldReader& fields);
    bool whole(const FieldReader& fields);
    void finish();

    bool makesTable_;
    OneDraft draft_;                  ///< its place is that of no line before there is one
    std::optional<OneDraft> before_;  ///< the one that counts until draft_ is whole
    DraftInfo info_;
    bool closed_ = false;  ///< behind a header that cannot be read
    std::int32_t otherFormat_ = 0;
};
}  // namespace kxVsGrid::changes
