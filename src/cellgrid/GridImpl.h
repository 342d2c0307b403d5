// The parts behind CellGrid and what they do together. Cells, places and damage each have an owner of their
// own; here is what belongs to the grid as a whole: its size, the current cell, its settings, and the order
// in which a change touches the parts and raises events.
#pragma once

#include <cassert>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cellgrid/CellMarks.h"
#include "cellgrid/ListenerList.h"
#include "cellgrid/Misuse.h"
#include "cellgrid/RowIds.h"
#include "cellgrid/Selection.h"
#include "cellgrid/Viewport.h"
#include "cellgrid/frame/DamageLog.h"
#include "cellgrid/store/CellStore.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {

struct CellGrid::Impl {
    Impl(CellGrid& owner, const TextMetrics& textMetrics) : grid(owner), metrics(textMetrics) {
        owner.CellChanged.showIn(listening);
    }

    // --- Who hears of a write.
    /// The bits of `listening`, which is 0 while nobody does.
    enum Listening : std::uint32_t { EventHeard = 1, Watched = 2, Streamed = 4 };
    template <class Tell>
    void tellStream(Tell tell) {
        if ((listening & Streamed) != 0) listeners.tell(tell);
    }
    /// Those who hear of a change may not make another one.
    void mayWrite() const { assert(!listeners.telling()); }
    /// Writes, and tells the stream of it.
    cellgrid::CellStore::Effect storeText(std::int32_t row, std::int32_t col, std::string_view text,
                                          cellgrid::CellStore::TextRoom* room = nullptr);
    bool storeTag(std::int32_t row, std::int32_t col, std::string_view tag);
    void tellWritten(std::int32_t row, std::int32_t col, cellgrid::CellStore::Effect effect,
                     const cellgrid::CellStore::Replaced& before, std::string_view after);
    void numberRows();
    void showRowNumber(std::int32_t row);
    void setComputed(std::int32_t row, std::int32_t col, std::function<std::string()> compute);
    void tellShown(std::int32_t col) {
        tellStream([col](ChangeListener& one) { one.shown(col); });
    }

    /// Raises an event of the grid's; none when a listener has destroyed the grid.
    template <class... Args, class... Given>
    void tell(Event<Args...> CellGrid::*event, Given&&... given) const {
        if (there) (grid.*event)(std::forward<Given>(given)...);
    }

    // --- Size (GridSize.cpp).
    std::int32_t rows() const { return layout.rows.axis.count(); }
    std::int32_t cols() const { return layout.cols.axis.count(); }
    void setRows(std::int32_t count);
    void setCols(std::int32_t count);
    void setFixedRows(std::int32_t count);
    void setFixedCols(std::int32_t count);
    /// With an id the row is the one that had it, come back.
    void insertRow(std::int32_t position, RowId id = RowId::None);
    void removeRow(std::int32_t position);
    // --- Rows change places (GridReorder.cpp).
    void reorder(std::int32_t first, std::span<const std::int32_t> from);
    void moveRows(std::int32_t first, std::int32_t count, std::int32_t to);
    void requireOrder(std::int32_t first, std::span<const std::int32_t> from) const;
    void setFormatString(std::string_view format);
    void setWidth(std::int32_t col, std::int32_t twips);
    void setSample(std::int32_t col, std::string_view sample);
    void measureCols();
    std::int32_t widthFor(std::string_view sample) const {
        return metrics.textWidth(sample) + metrics.padding();
    }

    // --- Cells (GridCells.cpp).
    void requireRow(const char* member, std::int32_t row) const {
        cellgrid::requireIndex(member, "row", row, rows());
    }
    void requireCol(const char* member, std::int32_t col) const {
        cellgrid::requireIndex(member, "column", col, cols());
    }
    void requireCell(const char* member, std::int32_t row, std::int32_t col) const {
        requireRow(member, row);
        requireCol(member, col);
    }
    void requireRows(const char* member, std::int32_t first, std::int32_t last) const {
        requireRow(member, first);
        requireRow(member, last);
    }
    bool holds(std::int32_t row, std::int32_t col) const {
        return static_cast<std::uint32_t>(row) < static_cast<std::uint32_t>(rows()) &&
               static_cast<std::uint32_t>(col) < static_cast<std::uint32_t>(cols());
    }
    void setText(std::int32_t row, std::int32_t col, std::string_view text);
    bool setCellWatched(std::int32_t row, std::int32_t col, std::string_view text,
                        const std::string_view& tag);
    bool fillCell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);
    bool setCellHeard(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);
    // Many cells of a column at once (GridFill.cpp).
    using Texts = std::span<const std::string_view>;
    void requireFill(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags) const;
    void fill(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags);
    /// Nobody hears of a write to the column; a watcher that does not await it goes on not to, as nobody acts
    /// meanwhile.
    bool fillsUnheard(std::int32_t col) const {
        return (listening & ~Watched) == 0 && (!watcher || !watcher->mayAwait(col) || !watcher->awaits(col));
    }
    void fillUnheard(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags);
    /// Before a text is written: the watcher hears of one that changes. False when the cell has gone then.
    bool forewarn(std::int32_t row, std::int32_t col, std::string_view text);
    /// A text was written: the picture and who listens hear of it.
    void told(std::int32_t row, std::int32_t col, cellgrid::CellStore::Effect effect);
    template <class Change>
    void changeStyle(std::int32_t row, std::int32_t col, Change change) {
        if (store.changeStyle(col, row, 1, change)) damageCell(row, col);
    }
    void contentWillChange(std::int32_t col) {
        mayWrite();
        listeners.tellFilled();
        if (watcher) watcher->contentWillChange(col);
    }

    // --- Marks (GridMarks.cpp).
    const CellMark* markOf(std::int32_t row, std::int32_t col) const {
        return marks.empty() ? nullptr : marks.find(ids.known(row), col);
    }
    void setMark(std::int32_t row, std::int32_t col, std::optional<CellMark> mark);
    void clearMarks(std::optional<CellMark::Kind> kind);

    // --- The current cell (GridMoves.cpp).
    bool move(std::int32_t newRow, std::int32_t newCol);
    /// The current cell and the moves under way follow rows that were inserted or removed, or that have
    /// changed places.
    void rowsInserted(std::int32_t position, std::int32_t n);
    void rowRemoved(std::int32_t position);
    void rowsReordered(std::int32_t first, std::span<const std::int32_t> from);

    // --- What is selected (GridSelection.cpp).
    cellgrid::Ends rowEnds() const;
    cellgrid::Ends colEnds() const;
    CellRange selected() const;
    bool anyData() const { return layout.rows.fixed < rows() && layout.cols.fixed < cols(); }
    /// Selects, and tells of it when that is something else.
    bool select(const cellgrid::Selection& fresh);
    /// Without telling: a move does.
    bool putSelection(cellgrid::Selection fresh);
    /// The same selection, or that of the current cell, with another corner.
    cellgrid::Selection selectionTo(std::int32_t row, std::int32_t col) const;
    bool isCursor(const cellgrid::Selection& some) const;
    /// It began at the current cell.
    bool selectedFromCursor() const;
    /// The grid has another size: what has gone is selected no more. The picture is damaged altogether.
    void tidySelection();
    void damageSelection(const CellRange& before, const CellRange& after);

    // --- The view (GridView.cpp).
    /// Where the view was and where it went.
    struct Scroll {
        cellgrid::Viewport::Place from;
        cellgrid::Viewport::Place to;
    };
    void scrollTo(const cellgrid::Viewport::Place& to) { announce(scroll(to)); }
    Scroll scroll(const cellgrid::Viewport::Place& to);
    /// Raises AfterScroll, or OffsetChanged, for a scroll that is done, if it led anywhere and no listener has
    /// gone on since.
    void announce(const Scroll& done);
    /// Sizes, counts or the view have changed: everything is drawn anew, and what was scrolled too far is
    /// not.
    Scroll settle();
    void geometryChanged();
    /// Rows or columns alone: the view goes in one direction only.
    void bringIntoView(std::int32_t row, std::int32_t col, bool alongRows, bool alongCols);
    void damageRange(const CellRange& range);
    void damageCell(std::int32_t row, std::int32_t col);
    /// Finds out which rows and columns are in view, unless that is known.
    void findView();
    /// Where the rows end whose cells in the column need no damage, from a row on.
    std::int32_t unseenEnd(std::int32_t row, std::int32_t col);
    void damageCursor();

    // --- What the user does (GridKeys.cpp, GridMouse.cpp).
    struct Place {
        std::int32_t row;
        std::int32_t col;
        friend bool operator==(const Place&, const Place&) = default;
    };
    bool navigate(Key key, std::int16_t shift);
    bool moveByUser(std::int32_t newRow, std::int32_t newCol);
    /// Where a key leads from a place; nowhere when it is none that moves.
    std::optional<Place> target(Key key, bool ctrl, Place from) const;
    std::int32_t pageTarget(std::int32_t row, bool down) const;
    /// The user extends what is selected, or moves.
    bool extends(std::int16_t shift) const;
    bool extendByUser(Place corner);
    void pressed(std::int16_t shift, std::int32_t x, std::int32_t y);
    /// What lies under a point, or is the next to be reached there; and whether that lies beside the cells.
    struct Pointed {
        Place place;
        bool besideRows;
        bool besideCols;
    };
    Pointed pointed(std::int32_t x, std::int32_t y) const;
    void pressedCell(std::int16_t shift, Place place);
    void pressedHeader(std::int16_t shift, Place place);
    void grabbed(std::int32_t atCol, std::int32_t x);
    void dragged(std::int32_t x);
    void draggedOver(std::int32_t x, std::int32_t y);
    void resizeByUser(std::int32_t col, std::int32_t twips);

    /// A move whose events are being raised. Its rows follow rows that its listeners insert or remove; a row
    /// that is removed becomes -1.
    struct Move {
        std::int32_t oldRow;
        std::int32_t oldCol;
        std::int32_t newRow;
        std::int32_t newCol;
        Move* outer;
    };
    struct Drag {
        std::int32_t col = -1;  ///< -1: no drag
        std::int32_t grip = 0;  ///< from the pointer to the column's right edge
        bool still = false;     ///< the column did not scroll when it was grabbed
    };

    CellGrid& grid;
    const TextMetrics& metrics;
    cellgrid::CellStore store;
    cellgrid::RowIds ids;
    cellgrid::CellMarks marks;
    cellgrid::Viewport layout;
    cellgrid::DamageLog damage;
    cellgrid::SparseRuns<bool> mergedRows;
    std::string formatString;
    std::vector<std::string> samples;  ///< texts that columns are as wide as; as many as were ever needed
    Watcher* watcher = nullptr;
    cellgrid::ListenerList listeners;
    std::uint32_t listening = 0;

    std::int32_t currentRow = -1;
    std::int32_t currentCol = -1;
    cellgrid::Selection selection;
    Move* moving = nullptr;         ///< the innermost move under way
    std::uint64_t movesAsked = 0;   ///< moves of the current cell that code or the user asked for
    std::uint64_t movesForced = 0;  ///< those that the loss of rows or columns forced

    bool pressInside = false;
    Drag drag;
    /// The button that is down takes cells of a kind, and has come to a place.
    struct Selecting {
        SelectionKind kind;
        Place at;
        bool fromStill = false;  ///< the press was on a column that does not scroll
        bool scrolls = false;
    };
    std::optional<Selecting> selecting;

    cellgrid::Viewport::Place placeBefore;  ///< where the view stood before it was scrolled last

    // Rows in view, found once for many writes; void while rowsKnown is false.
    bool rowsKnown = false;
    std::int32_t visibleRowsEnd = 0;
    std::int32_t visibleColsEnd = 0;

    std::uint32_t backColor = 0x8000'0005;       // window
    std::uint32_t backColorBkg = 0x8000'000C;    // application workspace
    std::uint32_t backColorFixed = 0x8000'000F;  // button face
    std::uint32_t foreColor = 0x8000'0008;       // window text
    std::uint32_t foreColorFixed = 0x8000'0012;  // button text
    std::int32_t appearance = 1;
    std::optional<std::uint32_t> fittedColor;
    std::function<std::uint8_t(std::int32_t)> colShade;
    std::function<Tint(std::int32_t, std::int32_t)> cellTint;
    bool textsRunOver = false;
    mEmflexMerge mergeCells = flexMergeNever;
    std::int32_t redraw = 1;
    bool showCursor = true;
    bool selectsRows = false;
    bool selectsRanges = false;

    bool stepOpen = false;  ///< told as opened (CellGrid::TellStepOpened)
    bool there = true;      ///< the grid, or somebody to hear of it; what goes on after an event asks

  private:
    void insertRows(std::int32_t position, std::int32_t n, RowId id = RowId::None);
    void removeRows(std::int32_t position, std::int32_t n);
    void insertCols(std::int32_t n);
    void setFixed(cellgrid::Lane& lane, std::int32_t count);
    /// Tells of another number of rows or columns, the view being settled already.
    void countChanged();
    void viewAfterLoss(bool lost, std::int32_t oldRow, std::int32_t oldCol);
    bool targetGone(const Move& move) const {
        return !there || move.newRow < 0 || move.newRow >= rows() || move.newCol >= cols();
    }
    void announce(const Move& move);
    void announceForcedMove(std::int32_t oldRow, std::int32_t oldCol);
    void setCaption(std::int32_t field, std::string_view text, std::string_view caption);
    std::uint64_t moves() const { return movesAsked + movesForced; }
};
}  // namespace kxVsGrid
