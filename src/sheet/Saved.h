// What the lines were when they were loaded or saved last, and what has become of them.
#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class Lines;

class Saved {
  public:
    explicit Saved(const SheetContext& context) : c_(context) {}

    /// None for a row that was not saved.
    KeptRecord of(RowId row) const;
    /// These lines, and no others, are what is saved; so is what the grid holds.
    void begin(const Lines& lines, const std::vector<RowId>& rows, std::vector<KeptRecord> records);
    std::vector<AnyChange> changes(const Lines& lines) const;
    void accept(const Lines& lines, const std::vector<AnyChange>& saved);
    /// A line is saved as another record than it was. GridError for one that was not saved.
    void replace(RowId row, KeptRecord record);
    bool differs(const Lines& lines) const;
    /// The changes that were asked for last are those of lines that have been replaced.
    bool stale() const { return handedOut_ == Handed::OfOthers; }
    /// Lines stand in another order than when they were loaded or saved.
    bool moved(const Lines& lines) const;

  private:
    std::vector<RowId> touched() const;
    std::optional<AnyChange> changeOf(const Lines& lines, RowId row) const;
    /// None for a row that was not saved, or was saved as one that is no line.
    KeptRecord lineOf(RowId row) const;
    std::optional<AnyChange> changed(RowId row, const KeptRecord& now) const;
    bool alike(const void* before, const void* now) const;
    void requireIdentity(const std::vector<AnyChange>& saved) const;
    std::vector<AnyChange> numberedChanges(const Lines& lines) const;
    void keepOrder();

    const SheetContext& c_;
    std::unordered_map<RowId, KeptRecord> records_;
    std::unordered_set<RowId> noLines_;  ///< of records_: were loaded as something else than lines
    std::vector<RowId> order_;           ///< the rows of records_ as they stood
    std::vector<RowId> still_;           ///< were changed between changes() and accept()
    enum class Handed { Never, OfThese, OfOthers };
    mutable Handed handedOut_ = Handed::Never;
    mutable RowId witness_ = RowId::None;  ///< differed when it was last looked at
};
}  // namespace kxVsGrid::sheet
