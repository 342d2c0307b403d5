// Cells as hosts write and read them. Errors end in a message box, never in the host.
#include <exception>

#include "editing/FieldRule.h"
#include "grid/Parts.h"
#include "support/Dates.h"
#include "support/Decimal.h"
#include "support/Numbers.h"

namespace kxVsGrid {
namespace {

bool holds(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    return row >= 0 && col >= 0 && row < grid.Rows() && col < grid.Cols();
}

using support::isDigit;

// Most texts of a number or date column are settled by a short look, which a million writes notice.

/// A number above 0; other answers prove nothing.
bool isPlainlyNotZero(std::string_view text) {
    constexpr std::size_t TooShortForZero = 5;  // "1e-324" is as good as 0
    if (text.empty() || text[0] == '0' || !isDigit(text[0])) return false;
    if (text.size() <= TooShortForZero) return true;
    for (const char c : text)
        if (c == 'e' || c == 'E') return false;
    return true;
}

/// A day of this century or a later one as yyyy-mm-dd, which every month has: other answers prove nothing.
bool isPlainlyADay(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    for (const std::size_t i : {0U, 1U, 2U, 3U, 5U, 6U, 8U, 9U})
        if (!isDigit(text[i])) return false;
    const auto pair = [text](std::size_t i) { return (text[i] - '0') * 10 + (text[i + 1] - '0'); };
    return pair(0) >= 20 && pair(5) >= 1 && pair(5) <= 12 && pair(8) >= 1 && pair(8) <= 28;
}

/// The day that stands for "no date" in databases that cannot store none.
bool isNoDate(std::string_view text) {
    if (isPlainlyADay(text)) return false;
    const auto date = support::parseDate(text);
    return !date || (date->year == 1900 && date->month == 1 && date->day == 1);
}

/// Zeros of number columns, and what is no date in date columns, are not shown.
bool isBlanked(mEmDataType type, std::string_view text) {
    if (type == flexDTDouble) return !isPlainlyNotZero(text) && support::leadingNumber(text) == 0;
    return type == flexDTDate && isNoDate(text);
}

bool isFixed(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    return row < grid.FixedRows() || col < grid.FixedCols();
}
}  // namespace

void kxGrid::SetCell(std::int32_t Row, std::int32_t Col, std::string_view psDisplay, std::string_view psTag) {
    Parts& p = *parts_;
    std::shared_ptr<Parts> kept;  // only where a listener is called: the other writes do not pay for it
    try {
        if (p.editor.visible()) {
            kept = held();
            p.editor.commitForHost();
        }
        const cVsControl* column = p.columns.find(Col);
        if (!column) return;
        if (!p.flags.bIsShowZero && isBlanked(column->iType(), psDisplay) && !isFixed(p.main, Row, Col))
            psDisplay = {};
        const bool heard = p.main.CellChanged.heard();
        if (heard) kept = held();
        if ((p.flags.ReDraw && column->b是否合计数据()) || heard)
            return p.writeCell(Row, Col, psDisplay, psTag);
        // No total depends on it and nobody hears of it: the usual write when a table is filled.
        p.main.Cell(Row, Col, psDisplay, psTag);
    } catch (const std::exception& error) {
        p.showError(std::string("SetCell Error::") + error.what(), "错误");
    }
}

void kxGrid::Parts::writeCell(std::int32_t row, std::int32_t col, std::string_view text,
                              const std::string_view& tag) {
    if (!holds(main, row, col)) return;
    const auto write = [&] { main.Cell(row, col, text, tag); };
    totals.around(row, col, main.CellChanged.heard(), write, [this] { return flags.ReDraw; });
}

std::string kxGrid::ReadCell(std::int32_t Row, std::int32_t Col, bool piReturnTextorID) {
    Parts& p = *parts_;
    std::shared_ptr<Parts> kept;
    try {
        if (p.editor.visible()) {
            kept = held();
            p.editor.commitForHost();
        }
        if (!holds(p.main, Row, Col)) return {};
        return piReturnTextorID ? p.main.DisplayText(Row, Col) : p.main.Data(Row, Col);
    } catch (const std::exception& error) {
        p.showError(std::string("CellError") + error.what(), "错误：");
        return {};
    }
}

std::string kxGrid::ReadSum(std::int32_t Col) const {
    Parts& p = *parts_;
    try {
        if (p.sums.Rows() <= p.sums.FixedRows() || !holds(p.sums, 0, Col)) return {};
        return p.sums.DisplayText(0, Col);
    } catch (const std::exception& error) {
        p.showError(std::string("CellError") + error.what(), "错误：");
        return {};
    }
}

std::string kxGrid::Problem(std::int32_t Row, std::int32_t Col) const {
    Parts& p = *parts_;
    if (!holds(p.main, Row, Col) || isFixed(p.main, Row, Col)) return {};
    const cVsControl* column = p.columns.find(Col);
    return column ? editing::brokenRule(*column, p.main.Data(Row, Col)) : std::string();
}

bool kxGrid::ValidTextData() {
    return held()->editor.validate();
}

bool kxGrid::IsValid() {
    return ValidTextData();
}

std::string kxGrid::Text() const {
    return parts_->editor.box().text();
}

void kxGrid::Text(std::string_view text) {
    held()->editor.text(text);
}

std::string kxGrid::TextTag() const {
    return parts_->editor.box().tag();
}

void kxGrid::TextTag(std::string_view tag) {
    parts_->editor.tag(tag);
}
}  // namespace kxVsGrid
