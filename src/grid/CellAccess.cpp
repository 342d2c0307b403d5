// Cells as hosts write and read them. Errors end in a message box, never in the host.
#include <exception>

#include "grid/Parts.h"
#include "support/Dates.h"
#include "support/Numbers.h"

namespace kxVsGrid {
namespace {

bool holds(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    return row >= 0 && col >= 0 && row < grid.Rows() && col < grid.Cols();
}

/// The day that stands for "no date" in databases that cannot store none.
bool isNoDate(std::string_view text) {
    const auto date = support::parseDate(text);
    return !date || (date->year == 1900 && date->month == 1 && date->day == 1);
}

/// Zeros of number columns, and what is no date in date columns, are not shown.
bool isBlanked(mEmDataType type, std::string_view text) {
    if (type == flexDTDouble) return support::leadingNumber(text) == 0;
    return type == flexDTDate && isNoDate(text);
}

bool isFixed(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    return row < grid.FixedRows() || col < grid.FixedCols();
}
}  // namespace

void kxGrid::SetCell(std::int32_t Row, std::int32_t Col, std::string_view psDisplay, std::string_view psTag) {
    Parts& p = *parts_;
    try {
        p.editor.commitForHost();
        if (!holds(p.main, Row, Col)) return;
        if (!p.flags.bIsShowZero && isBlanked(p.columns.at(Col).iType(), psDisplay) &&
            !isFixed(p.main, Row, Col))
            psDisplay = {};
        p.totals.around(
            Row, Col, p.cellChangesAreHeard(), [&] { p.writeCell(Row, Col, psDisplay, psTag); },
            [&] { return p.flags.ReDraw; });
    } catch (const std::exception& error) {
        p.showError(std::string("SetCell Error::") + error.what(), "错误");
    }
}

bool kxGrid::Parts::cellChangesAreHeard() const {
    return control.CellChanged.listeners() > 0 || main.CellChanged.listeners() > 0;
}

/// Who hears of the tag may take the cell away before its text is written.
void kxGrid::Parts::writeCell(std::int32_t row, std::int32_t col, std::string_view text,
                              std::string_view tag) {
    main.Data(row, col, tag);
    if (!cellChangesAreHeard() || holds(main, row, col)) main.Text(row, col, text);
}

std::string kxGrid::ReadCell(std::int32_t Row, std::int32_t Col, bool piReturnTextorID) {
    Parts& p = *parts_;
    try {
        p.editor.commitForHost();
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

bool kxGrid::ValidTextData() {
    return parts_->editor.validate();
}

bool kxGrid::IsValid() {
    return ValidTextData();
}

std::string kxGrid::Text() const {
    return parts_->editor.box().text();
}

void kxGrid::Text(std::string_view text) {
    parts_->editor.text(text);
}

std::string kxGrid::TextTag() const {
    return parts_->editor.box().tag();
}

void kxGrid::TextTag(std::string_view tag) {
    parts_->editor.tag(tag);
}
}  // namespace kxVsGrid
