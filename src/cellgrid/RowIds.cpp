#include "cellgrid/RowIds.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "support/FetchAhead.h"
#include "support/Room.h"

namespace kxVsGrid::cellgrid {

namespace {
/// What orders the tree as a heap: evenly spread, and always the same for a number.
std::uint64_t rank(std::uint64_t number) {
    number = (number ^ (number >> 30)) * 0xBF58'476D'1CE4'E5B9U;
    number = (number ^ (number >> 27)) * 0x94D0'49BB'1331'11EBU;
    return number ^ (number >> 31);
}
}  // namespace

/// Rows are mostly asked about one after the other, as a grid is filled.
RowId RowIds::idOf(std::int32_t row) {
    findLast();
    if (row <= lastRow_) {
        if (row == lastRow_) return RowId{last_};
        if (const Number number = find(row)) return RowId{number};
    }
    obtainPage(next_);
    forgetFlat();
    if (row > lastRow_)
        append(next_, row);
    else
        link(next_, row);
    return RowId{next_++};
}

void RowIds::idsOf(std::int32_t first, std::span<RowId> ids) {
    std::vector<Number> nodes(ids.size());
    flatten(first, nodes);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i] == None) nodes[i] = static_cast<Number>(idOf(first + static_cast<std::int32_t>(i)));
        ids[i] = RowId{nodes[i]};
    }
    flat_ = {first, std::move(nodes)};
}

void RowIds::flatten(std::int32_t first, std::span<Number> nodes) const {
    const auto stop = first + static_cast<std::int32_t>(nodes.size());
    if (first >= flat_.first && stop <= flat_.first + static_cast<std::int32_t>(flat_.nodes.size())) {
        std::copy_n(flat_.nodes.begin() + (first - flat_.first), nodes.size(), nodes.begin());
        return;
    }
    std::fill(nodes.begin(), nodes.end(), None);
    forEach(root_, 0, first, stop,
            [&](Number number, std::int32_t row) { nodes[static_cast<std::size_t>(row - first)] = number; });
}

/// Of many a walk over the whole tree makes a table; few climb by themselves.
void RowIds::rowsOf(std::span<const RowId> ids, std::span<std::int32_t> rows) const {
    constexpr std::size_t Few = 16;  // of which one climb costs as much as so many steps of the walk
    if (ids.size() < next_ / Few) {
        for (std::size_t i = 0; i < ids.size(); ++i) rows[i] = rowOf(ids[i]);
        return;
    }
    std::vector<std::int32_t> table(next_, -1);
    forEach(root_, 0, 0, std::numeric_limits<std::int32_t>::max(),
            [&](Number number, std::int32_t row) { table[number] = row; });
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const auto number = static_cast<Number>(ids[i]);
        rows[i] = number < next_ ? table[number] : -1;
    }
}

std::int32_t RowIds::rowOf(RowId id) const {
    const auto number = static_cast<Number>(id);
    if (number == None || number >= next_ || !pages_[number / PageNodes] || !node(number).there) return -1;
    std::int32_t row = 0;
    for (Number at = number; at != None; at = node(at).parent) row += node(at).offset;
    return row;
}

bool RowIds::prepareReturn(RowId id) {
    const auto number = static_cast<Number>(id);
    if (number == None || number >= next_ || rowOf(id) >= 0) return false;
    obtainPage(number);
    return true;
}

void RowIds::inserted(std::int32_t row, std::int32_t n) {
    if (root_ == None) return;
    last_ = None;
    forgetFlat();
    const auto [before, from] = split(root_, row);
    shift(from, n);
    root_ = merge(before, from);
}

void RowIds::removed(std::int32_t row, std::int32_t n) {
    if (root_ == None) return;
    last_ = None;
    forgetFlat();
    const auto [before, from] = split(root_, row);
    const auto [gone, after] = split(from, row + n);
    shift(after, -n);
    root_ = merge(before, after);
    drop(gone);
}

RowIds::Number RowIds::find(std::int32_t row) const {
    Number at = root_;
    std::int32_t base = 0;
    while (at != None) {
        const Node& here = node(at);
        base += here.offset;
        if (base == row) return at;
        at = row < base ? here.left : here.right;
    }
    return None;
}

void RowIds::obtainPage(Number number) {
    const std::size_t page = number / PageNodes;
    if (page >= pages_.size()) {
        support::makeRoom(pages_, page + 1 - pages_.size());
        pages_.resize(page + 1);
    }
    if (!pages_[page]) pages_[page] = std::make_unique<Page>();
}

void RowIds::findLast() {
    if (last_ != None) return;
    lastRow_ = -1;
    for (Number at = root_; at != None; at = node(at).right) {
        lastRow_ = last_ == None ? node(at).offset : lastRow_ + node(at).offset;
        last_ = at;
    }
}

/// visit(node, row) for the rows of [first, stop) below a node; its own row is `base` plus its offset.
template <class Visit>
void RowIds::forEach(Number at, std::int32_t base, std::int32_t first, std::int32_t stop, Visit visit) const {
    if (at == None) return;
    const Node& here = node(at);
    base += here.offset;
    if (base > first) forEach(here.left, base, first, stop, visit);
    if (base >= first && base < stop) visit(at, base);
    if (base < stop - 1) forEach(here.right, base, first, stop, visit);
}

RowIds::Reordering RowIds::prepareReorder(std::int32_t first, std::span<const std::int32_t> from) const {
    Reordering prepared{first, {}};
    if (root_ == None) return prepared;
    std::vector<Number> old(from.size());
    flatten(first, old);
    if (std::all_of(old.begin(), old.end(), [](Number number) { return number == None; })) return prepared;
    prepared.nodes.reserve(from.size());
    for (const std::int32_t row : from) prepared.nodes.push_back(old[static_cast<std::size_t>(row - first)]);
    return prepared;
}

/// The nodes of the rows are taken out, and come behind those before them one by one.
void RowIds::reorder(Reordering prepared) noexcept {
    if (prepared.nodes.empty()) return;
    const auto [before, from] = split(root_, prepared.first);
    const Number after = split(from, prepared.first + static_cast<std::int32_t>(prepared.nodes.size())).from;
    root_ = before;
    last_ = None;
    findLast();
    const std::vector<Number>& nodes = prepared.nodes;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (const std::size_t ahead = i + support::StepsAhead; ahead < nodes.size() && nodes[ahead] != None)
            support::fetchAhead(&node(nodes[ahead]));
        if (nodes[i] != None) linkLast(nodes[i], prepared.first + static_cast<std::int32_t>(i));
    }
    root_ = merge(root_, after);
    last_ = None;
    flat_ = std::move(prepared);
}

/// The same as link for a row after all that have a node.
void RowIds::append(Number number, std::int32_t row) {
    linkLast(number, row);
    ++pages_[number / PageNodes]->used;
}

/// What merging would do, from the last one upwards.
void RowIds::linkLast(Number number, std::int32_t row) {
    Number below = None;
    std::int32_t belowRow = 0;
    Number above = last_;
    std::int32_t aboveRow = lastRow_;
    while (above != None && rank(above) <= rank(number)) {
        below = above;
        belowRow = aboveRow;
        aboveRow -= node(above).offset;
        above = node(above).parent;
    }
    node(number) = {below, None, above, above == None ? row : row - aboveRow, true};
    if (below != None) {
        node(below).parent = number;
        node(below).offset = belowRow - row;
    }
    (above == None ? root_ : node(above).right) = number;
    last_ = number;
    lastRow_ = row;
}

/// Its page is there, and the row has no other node.
void RowIds::link(Number number, std::int32_t row) {
    const auto [before, from] = split(root_, row);
    Node& fresh = node(number);
    fresh = {};
    fresh.offset = row;
    fresh.there = true;
    ++pages_[number / PageNodes]->used;
    root_ = merge(merge(before, number), from);
}

/// Parts a tree into the nodes of the rows before `row` and those of the others.
RowIds::Parts RowIds::split(Number root, std::int32_t row) {
    if (root == None) return {None, None};
    if (node(root).offset < row) {
        const Parts parts = split(cutOff(&Node::right, root), row);
        hang(parts.before, &Node::right, root);
        return {root, parts.from};
    }
    const Parts parts = split(cutOff(&Node::left, root), row);
    hang(parts.from, &Node::left, root);
    return {parts.before, root};
}

/// Joins two trees, whose rows come one after the other.
RowIds::Number RowIds::merge(Number before, Number after) {
    if (before == None || after == None) return before == None ? after : before;
    if (rank(before) > rank(after)) {
        hang(merge(cutOff(&Node::right, before), after), &Node::right, before);
        return before;
    }
    hang(merge(before, cutOff(&Node::left, after)), &Node::left, after);
    return after;
}

/// Makes a root of a child.
RowIds::Number RowIds::cutOff(Number Node::*side, Number parent) {
    const Number child = std::exchange(node(parent).*side, None);
    if (child != None) {
        node(child).parent = None;
        node(child).offset += node(parent).offset;
    }
    return child;
}

/// Makes a child of a root.
void RowIds::hang(Number child, Number Node::*side, Number parent) {
    node(parent).*side = child;
    if (child == None) return;
    node(child).parent = parent;
    node(child).offset -= node(parent).offset;
}

void RowIds::shift(Number root, std::int32_t rows) {
    if (root != None) node(root).offset += rows;
}

/// Frees a whole tree, from its leaves on.
void RowIds::drop(Number root) {
    Number at = root;
    while (at != None) {
        Node& here = node(at);
        if (here.left != None) {
            at = std::exchange(here.left, None);
        } else if (here.right != None) {
            at = std::exchange(here.right, None);
        } else {
            const Number parent = here.parent;
            free(at);
            at = parent;
        }
    }
}

void RowIds::free(Number number) {
    std::unique_ptr<Page>& page = pages_[number / PageNodes];
    node(number).there = false;
    if (--page->used == 0) page.reset();
}
}  // namespace kxVsGrid::cellgrid
