// Who the rows are: ids that follow them wherever they go.
//
// Only rows that somebody asked about have one. They are the nodes of a balanced tree in the order of the
// rows (a treap: heap-ordered by a hash of the id). A node stores by how many rows it stands after its
// parent, so that rows that come or go shift all later ones by changing the nodes along one path, and a node
// finds its row by climbing to the root.
//
// An id is the number of its node, counted up and never given again. Nodes lie in pages by their numbers; a
// page is given back when all that it was for are gone. The number of a node that is gone therefore stays its
// own: a row that comes back, whose removal is taken back, obtains the page of its old number and is linked
// where it now stands, by the same steps as a row that is asked about for the first time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "kxVsGrid/RowId.h"

namespace kxVsGrid::cellgrid {

class RowIds {
  public:
    /// The row's id, a new one when it has none. When it fails, nothing has changed.
    RowId idOf(std::int32_t row);
    /// Memory for an id whose row has gone and shall come back; false for what is no such id.
    bool prepareReturn(RowId id);
    /// The row, which has no id, is the one of this id again. Cannot fail after prepareReturn.
    void returned(RowId id, std::int32_t row) {
        last_ = None;
        forgetFlat();
        link(static_cast<Number>(id), row);
    }
    /// RowId::None for a row that nobody asked about.
    RowId known(std::int32_t row) const { return RowId{find(row)}; }
    /// Those of the rows from `first` on, one for each place: idOf for all of them, in less time.
    void idsOf(std::int32_t first, std::span<RowId> ids);
    /// -1 for a row that has gone, and for what is no id.
    std::int32_t rowOf(RowId id) const;
    /// The same for many at once, in less time; `rows` has a place for each of `ids`.
    void rowsOf(std::span<const RowId> ids, std::span<std::int32_t> rows) const;

    /// Rows have come before `row`, or [row, row + n) have gone. Neither can fail.
    void inserted(std::int32_t row, std::int32_t n);
    void removed(std::int32_t row, std::int32_t n);

  private:
    using Number = std::uint64_t;

  public:
    /// Rows from `first` on that shall change places: the nodes as they stand then, None where a row has none.
    /// Without any of them nothing is to be done.
    struct Reordering {
        std::int32_t first = 0;
        std::vector<Number> nodes;
    };
    /// `from[i]` is the old place of the row that stands at first + i then. Takes the memory that it needs.
    Reordering prepareReorder(std::int32_t first, std::span<const std::int32_t> from) const;
    void reorder(Reordering prepared) noexcept;

  private:
    static constexpr Number None = 0;
    static constexpr std::size_t PageNodes = 256;
    struct Node {
        Number left = None;
        Number right = None;
        Number parent = None;
        std::int32_t offset = 0;  ///< rows after the parent; of a root, its row
        bool there = false;
    };
    struct Page {
        std::array<Node, PageNodes> nodes;
        std::size_t used = 0;
    };
    struct Parts {
        Number before;
        Number from;
    };

    Node& node(Number number) { return pages_[number / PageNodes]->nodes[number % PageNodes]; }
    const Node& node(Number number) const { return pages_[number / PageNodes]->nodes[number % PageNodes]; }
    Number find(std::int32_t row) const;
    void obtainPage(Number number);
    void findLast();
    void append(Number number, std::int32_t row);
    void linkLast(Number number, std::int32_t row);
    /// The nodes of the rows from `first` on, as many as there are places.
    void flatten(std::int32_t first, std::span<Number> nodes) const;
    void forgetFlat() noexcept { flat_ = {}; }
    template <class Visit>
    void forEach(Number at, std::int32_t base, std::int32_t first, std::int32_t stop, Visit visit) const;
    void link(Number number, std::int32_t row);
    Parts split(Number root, std::int32_t row);
    Number merge(Number before, Number after);
    Number cutOff(Number Node::*side, Number parent);
    void hang(Number child, Number Node::*side, Number parent);
    void shift(Number root, std::int32_t rows);
    void drop(Number root);
    void free(Number number);

    std::vector<std::unique_ptr<Page>> pages_;
    Number root_ = None;
    Number last_ = None;  ///< the node of the last row that has one, where that is known
    std::int32_t lastRow_ = -1;
    Number next_ = 1;
    /// Nodes row by row as the last one found them who asked about many, until one comes or goes: a sort asks several
    /// times, and the nodes of sorted rows lie anywhere.
    Reordering flat_;
};
}  // namespace kxVsGrid::cellgrid
