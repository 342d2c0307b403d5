// Which rows the filters of the columns hide, and when a row is looked at anew (kxVsGrid/Filters.h).
//
// All rows are looked at when a filter is put. From then on it hears of the content, and notes the rows that come and
// those whose text changes in a column that filters; they are looked at when the current row has become another one.
// Nothing is heard while no filter is on.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "changes/Listening.h"
#include "editing/EditSession.h"
#include "host/ControlContext.h"
#include "kxVsGrid/Filters.h"
#include "kxVsGrid/RowId.h"

namespace kxVsGrid::clerk {

class CommandOwner;

class Filters : private ChangeListener {
  public:
    Filters(const host::ControlContext& context, editing::EditSession& editor, CommandOwner& owner)
        : c_(context), editor_(editor), owner_(owner) {}
    Filters(const Filters&) = delete;
    Filters& operator=(const Filters&) = delete;

    bool on() const { return !rules_.empty(); }
    bool on(std::int32_t col) const { return ruleOf(col) != nullptr; }
    std::vector<std::string> textsOf(std::int32_t col) const;
    /// A text that is seen in the column passes its filter, if it has one.
    bool lets(std::int32_t col, std::string_view text) const;
    std::int32_t hiddenRows() const;

    /// GridError for a column that is not there.
    void requireCol(const char* member, std::int32_t col) const;
    /// These commit an open editor first; False when its text is refused.
    bool show(std::int32_t col, const std::vector<std::string>& texts);
    bool end(std::int32_t col);
    bool end();
    /// Ends all of them whatever an editor holds: other rows have come.
    void drop();

    // --- What the control tells.
    /// The current cell has moved: a row that it has come to is shown.
    void entered();
    /// The row is shown until another one has become the current row.
    void expose(std::int32_t row);
    /// A move, or a step, is done; rows have gone. Does what has become due, once no step is under way.
    void settle();
    /// There may be fewer columns, and other fixed rows.
    void sizeChanged();

    kxVsGrid::Filters face{*this};

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    struct Rule {
        std::int32_t col;
        std::string format;  ///< of the column as the texts were named
        mEmDataType type;
        std::unordered_set<std::string, Hash, std::equal_to<>> texts;
    };
    using Rules = std::vector<std::shared_ptr<const Rule>>;
    using Rows = std::unordered_set<RowId>;

    // ChangeListener
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override;
    bool hearsFilled() const noexcept override { return true; }
    void filled(std::int32_t row, std::int32_t col, std::uint32_t texts,
                std::uint32_t tags) noexcept override;
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void cleared(std::int32_t first, std::int32_t last) noexcept override;

    const Rule* ruleOf(std::int32_t col) const;
    Rules without(std::int32_t col) const;
    bool commitsFirst();
    void put(Rules rules);
    std::vector<bool> hiddenBy(const Rules& rules) const;
    void sign();
    bool passes(std::int32_t row) const;
    void note(std::int32_t row, bool staysInStep) noexcept;
    RowId currentId();
    void endOutdated();
    void lookAgain();
    void lookAtAll();
    void lookAt(const Rows& rows, const Rows& brought);
    void leaveUnseenRow();
    void tell();

    host::ControlContext c_;
    editing::EditSession& editor_;
    CommandOwner& owner_;
    Rules rules_;   ///< by column
    Rows touched_;  ///< to be looked at when another row has become the current one
    Rows fresh_;    ///< the same, of the step that is under way: the moves of the step itself do not count
    RowId current_ = RowId::None;  ///< the current row, when the others were looked at last
    RowId lastNoted_ = RowId::None;
    std::int32_t lastNotedRow_ = -1;
    std::int32_t fixedRows_ = 0;  ///< as they were when all rows were looked at
    std::uint64_t serial_ = 0;    ///< of what was put last
    bool lost_ = false;           ///< rows could not be noted: all are to be looked at
    bool removed_ = false;        ///< rows have gone, perhaps the current one
    bool untold_ = false;         ///< rows were shown that nobody was told of
    changes::Listening listening_{c_.grid, *this};
};
}  // namespace kxVsGrid::clerk
