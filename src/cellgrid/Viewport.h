// Where the rows and columns of a grid lie in its view, and how far it is scrolled. Pure geometry: nothing is
// raised or painted here.
#pragma once

#include <cstdint>

#include "cellgrid/Axis.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Geometry.h"

namespace kxVsGrid::cellgrid {

/// Where the scrolled part begins: with an element, of which so many twips are scrolled away.
struct Start {
    std::int32_t index = 0;
    std::int32_t offset = 0;  ///< less than the element's extent
    friend bool operator==(const Start&, const Start&) = default;
};

/// One direction of the view: the rows from top to bottom, or the columns from left to right. `client` is the
/// length of the view in this direction, scroll bar excluded.
class Lane {
  public:
    explicit Lane(std::int32_t defaultSize) : axis(defaultSize) {}

    Axis axis;
    std::int32_t fixed = 0;   ///< headers, which never scroll
    std::int32_t frozen = 0;  ///< so many after them shall not scroll either; there may be fewer
    std::int32_t still = 0;  ///< so many do not scroll now: fixed ones, and the frozen ones there is room for
    std::int32_t first = 0;  ///< the first scrolled one shown
    std::int32_t offset = 0;  ///< so much of it is scrolled away

    Start start() const { return {first, offset}; }
    void start(Start begin) {
        first = begin.index;
        offset = begin.offset;
    }

    std::int32_t fixedExtent() const;
    /// Where the scrolled part begins in the view.
    std::int32_t stillExtent() const;
    /// Where an element begins in the view, also when it lies outside of it.
    std::int32_t place(std::int32_t index) const;
    bool isVisible(std::int32_t index, std::int32_t client) const;
    /// The element at a point of the view, -1 when there is none.
    std::int32_t at(std::int32_t point) const;
    /// One past the last element that overlaps [0, client).
    std::int32_t visibleEnd(std::int32_t client) const;
    /// The largest useful `first`: the last element then ends before `end`, or begins the scrolled part.
    std::int32_t maxFirst(std::int32_t end) const;
    /// What shows an element wholly between the still part and `end` with the least movement: the present
    /// start, or one that cuts no element.
    Start startToShow(std::int32_t index, std::int32_t end) const;
    /// The nearest start to one that is asked for. One that cuts no element is at most maxFirst.
    Start limited(Start asked, std::int32_t end) const;
    /// The start so many twips further on. At the end the last element ends at `end`, whatever is cut at the
    /// start; a view that is further already stays.
    Start movedBy(std::int32_t twips, std::int32_t end) const;

  private:
    std::int64_t shift() const;
    Start startAt(std::int64_t position) const;
    std::int64_t lastPosition(std::int32_t end) const;
};

class Viewport {
  public:
    /// What frozen columns leave of the view, so that every other column can be scrolled to and seen.
    static constexpr std::int32_t LeastScrolled = 1000;

    struct Place {
        Start down;
        Start across;
        friend bool operator==(const Place&, const Place&) = default;
    };
    Place place() const { return {rows.start(), cols.start()}; }

    Lane rows{CellGrid::DefaultRowHeight};
    Lane cols{CellGrid::DefaultColWidth};
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bottomStrip = 0;
    bool scrollBars = true;

    bool horizontalBar() const;
    bool verticalBar() const;
    std::int32_t clientWidth() const;
    std::int32_t clientHeight() const;
    /// Counts, sizes or the view have changed: finds how much stands still from now on. A view at its start
    /// stays there, so that nothing is left hidden behind what stands still.
    void settle();
    std::int32_t maxTopRow() const { return rows.maxFirst(rowsEnd()); }
    std::int32_t maxLeftCol() const { return cols.maxFirst(colsEnd()); }
    /// Where the last row, and the last column, shall end when the view is at its end.
    std::int32_t rowsEnd() const { return clientHeight() - bottomStrip; }
    /// Without scroll bars the clerk cannot scroll, and code may go as far as the last column: a total row
    /// has to follow a grid whose view is narrower by its vertical bar.
    std::int32_t colsEnd() const { return scrollBars ? clientWidth() : 0; }
    /// Goes to a place, or as near to it as the view may stand.
    void go(const Place& to);
    Rect cellRect(std::int32_t row, std::int32_t col) const;
    GridHit hit(std::int32_t x, std::int32_t y) const;

  private:
    bool rowsNeedBar(std::int32_t room) const;
    bool colsNeedBar(std::int32_t room) const;
    std::int32_t stillCols() const;
    std::int32_t columnEdge(std::int32_t x) const;
};
}  // namespace kxVsGrid::cellgrid
