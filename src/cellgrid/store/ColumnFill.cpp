// Filling a column: cells that hold nothing get their slots side by side, a page at a time, and whatever else
// there is to find out about a cell is found out once for all of them.
#include <algorithm>

#include "cellgrid/store/CellStore.h"

namespace kxVsGrid::cellgrid {
namespace {

bool anyText(std::span<const std::string_view> texts) {
    return std::any_of(texts.begin(), texts.end(), [](std::string_view text) { return !text.empty(); });
}

/// How many of the first handles follow each other in one page. Mostly all of them do: that is found out
/// without a question for each.
std::size_t sideBySide(std::span<const RowHandle> handles) {
    const RowHandle first = handles[0];
    const std::size_t most = std::min(handles.size(), CellPages::PageSlots - first % CellPages::PageSlots);
    RowHandle others = 0;
    for (std::size_t i = 0; i < most; ++i) others |= handles[i] ^ (first + static_cast<RowHandle>(i));
    if (others == 0) return most;
    std::size_t n = 1;
    while (handles[n] == first + n) ++n;
    return n;
}

bool allEmpty(const TextSlot* slots, std::size_t n) {
    TextSlot any = slot::Empty;
    for (std::size_t i = 0; i < n; ++i) any |= slots[i];
    return any == slot::Empty;
}
}  // namespace

/// Empty slots of a page that are being filled: they count as used as far as they are, should memory fail, too.
struct CellStore::Stretch {
    Stretch(CellPages& all, CellPages::Page& one, RowHandle first)
        : cells(all), page(one), begin(first % CellPages::PageSlots) {}
    ~Stretch() {
        for (const CellPages::Kind kind : {CellPages::Text, CellPages::Tag})
            if (const TextSlot* const filled = slots(kind))
                cells.filled(page, kind,
                             done - static_cast<std::size_t>(std::count(filled, filled + done, slot::Empty)));
    }
    Stretch(const Stretch&) = delete;
    Stretch& operator=(const Stretch&) = delete;

    TextSlot* slots(CellPages::Kind kind) const {
        return page.slots[kind] ? &page.slots[kind][begin] : nullptr;
    }

    CellPages& cells;
    CellPages::Page& page;
    std::size_t begin;
    std::size_t done = 0;  ///< cells
};

void CellStore::fill(std::int32_t col, std::int32_t row, Texts texts, Texts tags) {
    const bool numbers = numbered_ && col == 0;  // an empty text hides the row's number there
    while (!texts.empty()) {
        const bool nothing = texts[0].empty() && (tags.empty() || tags[0].empty());
        std::size_t done = 1;
        if (numbers || nothing)
            setCell(row, col, texts[0], tags.empty() ? std::string_view{} : tags[0]);
        else
            done = fillPage(col, row, texts, tags);
        row += static_cast<std::int32_t>(done);
        texts = texts.subspan(done);
        if (!tags.empty()) tags = tags.subspan(done);
    }
}

/// Answers how many cells are written.
std::size_t CellStore::fillPage(std::int32_t col, std::int32_t row, Texts texts, Texts tags) {
    const auto most = static_cast<std::int32_t>(std::min(texts.size(), CellPages::PageSlots));
    if (order_.handle(row) == NoHandle) order_.obtainAll(row, most);
    const std::span<const RowHandle> handles = order_.handles(row, most);
    const std::size_t n = sideBySide(handles);
    texts = texts.first(n);
    if (!tags.empty()) tags = tags.first(n);
    if (!anyText(tags)) tags = {};

    GridColumn& c = column(col);
    CellPages::Page& page = c.cells.obtain(handles[0]);
    CellPages::provide(page, CellPages::Text);
    if (!tags.empty()) CellPages::provide(page, CellPages::Tag);
    Stretch at(c.cells, page, handles[0]);
    const TextSlot* const tagSlots = at.slots(CellPages::Tag);
    if (!allEmpty(at.slots(CellPages::Text), n) || (tagSlots && !allEmpty(tagSlots, n))) {
        for (std::size_t i = 0; i < n; ++i)
            setCell(row + static_cast<std::int32_t>(i), col, texts[i],
                    tags.empty() ? std::string_view{} : tags[i]);
        return n;
    }
    if (c.numbers)
        for (std::size_t i = 0; i < n; ++i) c.numbers->forget(handles[i]);
    if (tags.empty())
        fillEmpty<false>(at, texts, tags);
    else
        fillEmpty<true>(at, texts, tags);
    return n;
}

template <bool Tagged>
void CellStore::fillEmpty(Stretch& at, Texts texts, Texts tags) {
    TextSlot* const textSlots = at.slots(CellPages::Text);
    TextSlot* const tagSlots = at.slots(CellPages::Tag);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        TextSlot tag = slot::Empty;
        if constexpr (Tagged) tag = arena_.store(tags[i]);
        const TextSlot text = arena_.storeAfter(tag, texts[i]);
        if constexpr (Tagged) tagSlots[i] = tag;
        textSlots[i] = text;
        at.done = i + 1;
    }
}
}  // namespace kxVsGrid::cellgrid
