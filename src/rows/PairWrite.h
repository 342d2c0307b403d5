// A cell whose tag is written, and then its text: never is one left with half of a pair.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/CellGrid.h"
#include "rows/FollowedRow.h"

namespace kxVsGrid::rows {

class PairWrite {
  public:
    /// Before anything is written. The row may go elsewhere meanwhile.
    PairWrite(CellGrid& grid, RowFollower& follower, std::int32_t row, std::int32_t col);

    /// The text does not follow: where the new tag stands beside the text of before, the tag of before comes
    /// back, and nobody hears of it. What fails then is let be: something has failed already.
    void putBack(std::string_view newTag) const noexcept;
    /// Lets `write` write both, and puts the tag back when it throws.
    template <class Write>
    void during(std::string_view newTag, Write write) const {
        try {
            write();
        } catch (...) {
            putBack(newTag);
            throw;
        }
    }

  private:
    CellGrid& grid_;
    FollowedRow row_;
    std::int32_t col_;
    std::optional<std::string> text_;  ///< nothing where it could not be read
    std::string tag_;
};
}  // namespace kxVsGrid::rows
