// What the texts of a column count as numbers.
#include "cellgrid/store/CellStore.h"
#include "support/Numbers.h"

namespace kxVsGrid::cellgrid {

/// Group separators belong to the number only in a column whose format puts them there: those that it did
/// put, and those of a text that has them already, as a copy of a shown text has.
double CellStore::numberOf(const GridColumn& c, std::string_view text) {
    if (text.empty()) return 0;
    if (!c.format) return support::leadingNumber(text);
    std::string shown;
    const bool formatted = c.format->apply(text, shown);
    if (!c.format->groups()) return support::leadingNumber(formatted ? shown : text);
    return formatted ? support::leadingNumberOfDisplayed(shown)
                     : support::leadingNumber(support::withoutGroups(text, true));
}

double CellStore::number(std::int32_t row, std::int32_t col) const {
    const TextSlot s = textSlot(row, col);
    if (s == slot::Empty && !numbered(row, col)) return 0;
    Scratch scratch;
    return numberOf(column(col), textOf(s, row, col, scratch));
}

std::optional<double> CellStore::completeNumber(std::int32_t col, std::string_view text) const {
    const GridColumn& c = column(col);
    if (c.dataType == flexDTDate || (c.format && c.format->ofDates())) return std::nullopt;
    const bool groups = c.format && c.format->groups();
    if (!support::completeNumber(groups ? support::withoutGroups(text, true) : text)) return std::nullopt;
    return numberOf(c, text);
}

double CellStore::readNumber(GridColumn& c, RowHandle handle) {
    const TextSlot s = c.cells.get(CellPages::Text, handle);
    Scratch scratch;
    const double value = s == slot::Empty ? 0 : numberOf(c, slotText(s, scratch));
    if (!slot::isComputed(s)) c.numbers->page(handle)[handle % NumberPages::PageNumbers] = value;
    return value;
}

/// Adds in row order, as adding row by row does: the order decides the last digits.
double CellStore::sum(std::int32_t col) {
    if (numbered_ && col == 0) return sumOfRowNumbers();
    GridColumn& c = column(col);
    if (c.cells.used(CellPages::Text) == 0) return 0;
    if (!c.numbers) c.numbers = std::make_unique<NumberPages>();
    double total = 0;
    order_.forEachStretch(fixedRows_, rows(), [&](std::int32_t, const RowHandle* handles, std::int32_t n) {
        double sum = total;  // kept out of memory while it is added to
        RowHandle pageNumber = NoHandle;
        const double* page = nullptr;
        for (std::int32_t i = 0; i < n; ++i) {
            const RowHandle handle = handles[i];
            if (handle == NoHandle) continue;
            if (handle / NumberPages::PageNumbers != pageNumber) {
                pageNumber = handle / NumberPages::PageNumbers;
                page = c.numbers->page(handle).data();
            }
            const double value = page[handle % NumberPages::PageNumbers];
            sum += value == value ? value : readNumber(c, handle);
        }
        total = sum;
    });
    return total;
}

/// Rows are numbered by where they are, so nothing can be remembered of them.
double CellStore::sumOfRowNumbers() const {
    const GridColumn& c = column(0);
    double total = 0;
    Scratch scratch;
    for (std::int32_t row = fixedRows_; row < rows(); ++row) {
        if (!c.format && textSlot(row, 0) == slot::Empty)
            total += row - fixedRows_ + 1;
        else
            total += numberOf(c, text(row, 0, scratch));
    }
    return total;
}
}  // namespace kxVsGrid::cellgrid
