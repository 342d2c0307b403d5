// The public face: checks what it is given and hands it to the part that owns it.
#include "kxVsGrid/CellGrid.h"

#include <algorithm>
#include <new>
#include <utility>

#include "cellgrid/GridImpl.h"
#include "support/Numbers.h"

namespace kxVsGrid {

using cellgrid::CellStore;
using cellgrid::CellStyle;
using cellgrid::misuse;
using cellgrid::requireSize;

CellGrid::CellGrid(const TextMetrics& metrics) : impl_(std::make_shared<Impl>(*this, metrics)) {
    Rows(6);
    Cols(10);
    FixedRows(1);
    FixedCols(1);
    impl_->currentRow = impl_->currentCol = 1;
}

CellGrid::~CellGrid() {
    impl_->there = false;
}

void CellGrid::silence() {
    impl_->there = false;
    const auto end = [](auto&... events) { (events.disconnectAll(), ...); };
    end(BeforeRowColChange, LeaveCell, EnterCell, RowColChange, AfterRowColChange, SelChange, CellChanged,
        KeyDown, CharacterTyped, KeyPress, MouseDown, MouseMove, MouseUp, Click, DblClick, AfterScroll,
        OffsetChanged, BeforeUserResize, AfterUserResize, EdgeDblClick, AfterEdit, SizeChanged, PlacesChanged,
        MarksChanged, RowMoved, RowsReordered);
}

void CellGrid::AddListener(ChangeListener& listener) {
    impl_->listeners.add(listener);
    impl_->listening |= Impl::Streamed;
}
void CellGrid::RemoveListener(ChangeListener& listener) {
    impl_->listeners.remove(listener);
    if (!impl_->listeners.any()) impl_->listening &= ~Impl::Streamed;
}
void CellGrid::TellFilled() {
    impl_->listeners.tellFilled();
}
void CellGrid::TellStepOpened(std::string_view name, Cause cause) {
    impl_->stepOpen = true;
    impl_->tellStream([&](ChangeListener& one) { one.stepOpened(name, cause); });
}
void CellGrid::TellStepClosed(std::string_view name, Cause cause) {
    impl_->stepOpen = false;
    impl_->tellStream([&](ChangeListener& one) { one.stepClosed(name, cause); });
}
bool CellGrid::StepOpen() const {
    return impl_->stepOpen;
}
void CellGrid::ForEachCell(std::int32_t firstRow, std::int32_t lastRow, const CellVisitor& visit) const {
    if (Cols() > 0) ForEachCell({firstRow, 0, lastRow, Cols() - 1}, visit);
}
void CellGrid::ForEachCell(const CellRange& range, const CellVisitor& visit) const {
    if (range.empty()) return;
    impl_->requireCell("ForEachCell", range.firstRow, range.firstCol);
    impl_->requireCell("ForEachCell", range.lastRow, range.lastCol);
    impl_->store.forEachCell(range.firstRow, range.lastRow - range.firstRow + 1, range.firstCol,
                             range.lastCol, visit);
}

void CellGrid::ForEachText(std::int32_t col, std::int32_t firstRow, std::int32_t lastRow,
                           const TextVisitor& visit) const {
    impl_->requireCol("ForEachText", col);
    if (lastRow < firstRow) return;
    impl_->requireRows("ForEachText", firstRow, lastRow);
    impl_->store.forEachText(col, firstRow, lastRow + 1, visit);
}

std::int32_t CellGrid::RowWithText(std::int32_t col, std::string_view text, std::int32_t except) const {
    impl_->requireCol("RowWithText", col);
    return impl_->store.rowWithText(col, text, except);
}

void CellGrid::FindTexts(const support::TextPattern& pattern, std::int32_t col, std::int32_t firstRow,
                         std::int32_t lastRow, std::vector<std::int32_t>& found,
                         std::vector<std::int32_t>& computed) const {
    if (lastRow < firstRow) return;
    impl_->requireCol("FindTexts", col);
    impl_->requireRows("FindTexts", firstRow, lastRow);
    const std::size_t before = found.size();
    impl_->store.findTexts(pattern, col, firstRow, lastRow + 1, found, computed);
    const cellgrid::Axis& down = impl_->layout.rows.axis;
    found.erase(std::remove_if(found.begin() + static_cast<std::ptrdiff_t>(before), found.end(),
                               [&](std::int32_t row) { return down.extent(row) == 0; }),
                found.end());
}

std::int32_t CellGrid::Rows() const {
    return impl_->rows();
}
void CellGrid::Rows(std::int32_t count) {
    held()->setRows(count);
}
std::int32_t CellGrid::Cols() const {
    return impl_->cols();
}
void CellGrid::Cols(std::int32_t count) {
    held()->setCols(count);
}
RowId CellGrid::IdOf(std::int32_t row) {
    impl_->requireRow("IdOf", row);
    return impl_->ids.idOf(row);
}
RowId CellGrid::KnownId(std::int32_t row) const {
    impl_->requireRow("KnownId", row);
    return impl_->ids.known(row);
}
std::int32_t CellGrid::RowOf(RowId id) const {
    return impl_->ids.rowOf(id);
}
void CellGrid::IdsOf(std::int32_t first, std::span<RowId> ids) {
    if (first < 0 || first > Rows()) misuse("IdsOf", first, "is no row");
    if (ids.size() > static_cast<std::size_t>(Rows() - first))
        misuse("IdsOf", static_cast<std::int64_t>(ids.size()), "rows are more than there are");
    impl_->ids.idsOf(first, ids);
}
void CellGrid::RowsOf(std::span<const RowId> ids, std::span<std::int32_t> rows) const {
    if (rows.size() != ids.size())
        misuse("RowsOf", static_cast<std::int64_t>(rows.size()), "places are not as many as ids");
    impl_->ids.rowsOf(ids, rows);
}
std::int32_t CellGrid::FixedRows() const {
    return impl_->layout.rows.fixed;
}
void CellGrid::FixedRows(std::int32_t count) {
    held()->setFixedRows(count);
}
std::int32_t CellGrid::FixedCols() const {
    return impl_->layout.cols.fixed;
}
std::int32_t CellGrid::FrozenCols() const {
    return std::min(impl_->layout.cols.frozen, Cols() - FixedCols());
}
void CellGrid::FrozenCols(std::int32_t count) {
    if (count < 0) misuse("FrozenCols", count, "is negative");
    if (std::exchange(impl_->layout.cols.frozen, count) != count) held()->geometryChanged();
}
std::int32_t CellGrid::StillCols() const {
    return impl_->layout.cols.still;
}
void CellGrid::FixedCols(std::int32_t count) {
    held()->setFixedCols(count);
}
void CellGrid::InsertRow(std::int32_t position) {
    held()->insertRow(position);
}
void CellGrid::BringRowBack(std::int32_t position, RowId id) {
    if (id == RowId::None) misuse("BringRowBack", position, "is for no row that went");
    held()->insertRow(position, id);
}
void CellGrid::RemoveRow(std::int32_t position) {
    held()->removeRow(position);
}

std::int32_t CellGrid::Row() const {
    return impl_->currentRow;
}
void CellGrid::Row(std::int32_t row) {
    impl_->requireRow("Row", row);
    held()->move(row, impl_->currentCol);
}
std::int32_t CellGrid::Col() const {
    return impl_->currentCol;
}
void CellGrid::Col(std::int32_t col) {
    impl_->requireCol("Col", col);
    held()->move(impl_->currentRow, col);
}
bool CellGrid::Select(std::int32_t row, std::int32_t col) {
    impl_->requireCell("Select", row, col);
    return held()->move(row, col);
}

// --- Cells.

std::optional<mEmflexAlign> CellGrid::CellAlignment(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("CellAlignment", row, col);
    return impl_->store.style(row, col).alignment;
}
void CellGrid::CellAlignment(std::int32_t row, std::int32_t col, std::optional<mEmflexAlign> alignment) {
    impl_->requireCell("CellAlignment", row, col);
    impl_->changeStyle(row, col, [&](CellStyle& s) { s.alignment = alignment; });
}
std::optional<std::uint32_t> CellGrid::CellForeColor(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("CellForeColor", row, col);
    return impl_->store.style(row, col).foreColor;
}
void CellGrid::CellForeColor(std::int32_t row, std::int32_t col, std::optional<std::uint32_t> color) {
    impl_->requireCell("CellForeColor", row, col);
    impl_->changeStyle(row, col, [&](CellStyle& s) { s.foreColor = color; });
}
std::optional<std::uint32_t> CellGrid::CellBackColor(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("CellBackColor", row, col);
    return impl_->store.style(row, col).backColor;
}
void CellGrid::CellBackColor(std::int32_t row, std::int32_t col, std::optional<std::uint32_t> color) {
    impl_->requireCell("CellBackColor", row, col);
    impl_->changeStyle(row, col, [&](CellStyle& s) { s.backColor = color; });
}
void CellGrid::PaintColumn(std::int32_t col, std::int32_t firstRow, std::int32_t lastRow,
                           std::optional<std::uint32_t> foreColor, std::optional<std::uint32_t> backColor) {
    impl_->requireCol("PaintColumn", col);
    if (lastRow < firstRow) return;
    impl_->requireRows("PaintColumn", firstRow, lastRow);
    const auto paint = [&](CellStyle& s) {
        s.foreColor = foreColor;
        s.backColor = backColor;
    };
    if (impl_->store.changeStyle(col, firstRow, lastRow - firstRow + 1, paint)) impl_->damage.addAll();
}
mEmflexAlign CellGrid::EffectiveAlignment(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("EffectiveAlignment", row, col);
    const cellgrid::GridColumn& column = impl_->store.column(col);
    const mEmflexAlign given = impl_->store.style(row, col).alignment.value_or(
        row < FixedRows() ? column.fixedAlignment : column.alignment);
    if (given >= flexAlignLeftTop && given < flexAlignGeneral) return given;
    CellStore::Scratch scratch;
    const bool number = support::completeNumber(impl_->store.text(row, col, scratch)).has_value();
    return number ? flexAlignRightCenter : flexAlignLeftCenter;
}
void CellGrid::ClearText(std::int32_t firstRow, std::int32_t lastRow) {
    if (lastRow < firstRow) return;
    impl_->requireRows("ClearText", firstRow, lastRow);
    impl_->contentWillChange(-1);
    impl_->tellStream([&](ChangeListener& one) { one.cleared(firstRow, lastRow); });
    impl_->store.clearTexts(firstRow, lastRow - firstRow + 1);
    impl_->damage.addAll();
}

void CellGrid::ComputedText(std::int32_t row, std::int32_t col, std::function<std::string()> compute) {
    impl_->requireCell("ComputedText", row, col);
    impl_->setComputed(row, col, std::move(compute));
}
void CellGrid::NumberRows() {
    if (FixedCols() > 0) impl_->numberRows();
}
void CellGrid::ShowRowNumber(std::int32_t row) {
    impl_->requireRow("ShowRowNumber", row);
    if (Cols() > 0) impl_->showRowNumber(row);
}
double CellGrid::ColumnSum(std::int32_t col) const {
    impl_->requireCol("ColumnSum", col);
    return impl_->store.sum(col);
}
double CellGrid::CellNumber(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("CellNumber", row, col);
    return impl_->store.number(row, col);
}
bool CellGrid::ColGroups(std::int32_t col) const {
    impl_->requireCol("ColGroups", col);
    return impl_->store.groups(col);
}
bool CellGrid::ColPercent(std::int32_t col) const {
    impl_->requireCol("ColPercent", col);
    return impl_->store.percent(col);
}

// --- Columns.

std::int32_t CellGrid::ColWidth(std::int32_t col) const {
    impl_->requireCol("ColWidth", col);
    return impl_->layout.cols.axis.size(col);
}
void CellGrid::ColWidth(std::int32_t col, std::int32_t twips) {
    impl_->requireCol("ColWidth", col);
    requireSize("ColWidth", twips);
    const auto impl = held();
    const auto i = static_cast<std::size_t>(col);
    if (i < impl->samples.size()) impl->samples[i].clear();
    impl->setWidth(col, twips);
}
std::string CellGrid::ColSample(std::int32_t col) const {
    impl_->requireCol("ColSample", col);
    const auto i = static_cast<std::size_t>(col);
    return i < impl_->samples.size() ? impl_->samples[i] : std::string();
}
void CellGrid::ColSample(std::int32_t col, std::string_view sample) {
    impl_->requireCol("ColSample", col);
    if (sample.empty())
        ColWidth(col, ColWidth(col));
    else
        held()->setSample(col, sample);
}
void CellGrid::MeasureCols() {
    held()->measureCols();
}
bool CellGrid::ColHidden(std::int32_t col) const {
    impl_->requireCol("ColHidden", col);
    return impl_->layout.cols.axis.hidden(col);
}
void CellGrid::ColHidden(std::int32_t col, bool hidden) {
    impl_->requireCol("ColHidden", col);
    if (impl_->layout.cols.axis.setHidden(col, hidden)) held()->geometryChanged();
}
mEmflexAlign CellGrid::ColAlignment(std::int32_t col) const {
    impl_->requireCol("ColAlignment", col);
    return impl_->store.column(col).alignment;
}
void CellGrid::ColAlignment(std::int32_t col, mEmflexAlign alignment) {
    impl_->requireCol("ColAlignment", col);
    impl_->store.column(col).alignment = alignment;
    impl_->damage.addAll();
}
mEmflexAlign CellGrid::FixedAlignment(std::int32_t col) const {
    impl_->requireCol("FixedAlignment", col);
    return impl_->store.column(col).fixedAlignment;
}
void CellGrid::FixedAlignment(std::int32_t col, mEmflexAlign alignment) {
    impl_->requireCol("FixedAlignment", col);
    impl_->store.column(col).fixedAlignment = alignment;
    impl_->damage.addAll();
}
std::string CellGrid::ColFormat(std::int32_t col) const {
    impl_->requireCol("ColFormat", col);
    const auto& format = impl_->store.column(col).format;
    return format ? format->pattern() : std::string();
}
void CellGrid::ColFormat(std::int32_t col, std::string_view format) {
    impl_->requireCol("ColFormat", col);
    const auto& present = impl_->store.column(col).format;
    if (present ? present->pattern() == format : format.empty()) return;
    impl_->contentWillChange(col);
    impl_->store.setFormat(col, format);
    impl_->tellShown(col);
    impl_->damage.addAll();
}
bool CellGrid::IsFormat(std::string_view format) {
    return format.empty() || cellgrid::CellFormat(format).changesTexts();
}
mEmDataType CellGrid::ColDataType(std::int32_t col) const {
    impl_->requireCol("ColDataType", col);
    return impl_->store.column(col).dataType;
}
void CellGrid::ColDataType(std::int32_t col, mEmDataType type) {
    impl_->requireCol("ColDataType", col);
    if (std::exchange(impl_->store.column(col).dataType, type) == type) return;
    impl_->tellShown(col);
    impl_->damage.addAll();
}
bool CellGrid::MergeCol(std::int32_t col) const {
    impl_->requireCol("MergeCol", col);
    return impl_->store.column(col).merge;
}
void CellGrid::MergeCol(std::int32_t col, bool merge) {
    impl_->requireCol("MergeCol", col);
    impl_->store.column(col).merge = merge;
    impl_->damage.addAll();
}
bool CellGrid::ColFiltered(std::int32_t col) const {
    impl_->requireCol("ColFiltered", col);
    return impl_->store.column(col).filtered;
}
void CellGrid::ColFiltered(std::int32_t col, bool filtered) {
    impl_->requireCol("ColFiltered", col);
    if (std::exchange(impl_->store.column(col).filtered, filtered) != filtered) impl_->damage.addAll();
}

// --- Rows.

std::int32_t CellGrid::RowHeight(std::int32_t row) const {
    impl_->requireRow("RowHeight", row);
    return impl_->layout.rows.axis.size(row);
}
void CellGrid::RowHeight(std::int32_t row, std::int32_t twips) {
    impl_->requireRow("RowHeight", row);
    requireSize("RowHeight", twips);
    if (impl_->layout.rows.axis.setSize(row, twips)) held()->geometryChanged();
}
bool CellGrid::RowHidden(std::int32_t row) const {
    impl_->requireRow("RowHidden", row);
    return impl_->layout.rows.axis.hidden(row);
}
void CellGrid::RowHidden(std::int32_t row, bool hidden) {
    impl_->requireRow("RowHidden", row);
    if (impl_->layout.rows.axis.setHidden(row, hidden)) held()->geometryChanged();
}
bool CellGrid::RowFiltered(std::int32_t row) const {
    impl_->requireRow("RowFiltered", row);
    return impl_->layout.rows.axis.filtered(row);
}
void CellGrid::RowFiltered(std::int32_t row, bool filtered) {
    impl_->requireRow("RowFiltered", row);
    if (impl_->layout.rows.axis.setFiltered(row, filtered)) held()->geometryChanged();
}
void CellGrid::FilterRows(std::int32_t first, const std::vector<bool>& filtered) {
    if (first < 0 || first > Rows()) misuse("FilterRows", first, "is no row");
    if (filtered.size() > static_cast<std::size_t>(Rows() - first))
        misuse("FilterRows", static_cast<std::int64_t>(filtered.size()), "rows are more than there are");
    if (impl_->layout.rows.axis.setFiltered(first, filtered)) held()->geometryChanged();
}
void CellGrid::FilterRows(const std::vector<std::pair<std::int32_t, bool>>& rows) {
    for (const auto& [row, filtered] : rows) impl_->requireRow("FilterRows", row);
    const auto impl = held();
    try {
        if (impl->layout.rows.axis.setFiltered(rows)) impl->geometryChanged();
    } catch (const std::bad_alloc&) {
        impl->settle();
        throw;
    }
}
std::int32_t CellGrid::FilteredRows(std::int32_t firstRow, std::int32_t lastRow) const {
    if (lastRow < firstRow) return 0;
    impl_->requireRows("FilteredRows", firstRow, lastRow);
    return impl_->layout.rows.axis.filteredAlone(firstRow, lastRow + 1);
}
bool CellGrid::RowShown(std::int32_t row) const {
    impl_->requireRow("RowShown", row);
    return impl_->layout.rows.axis.extent(row) > 0;
}
std::int32_t CellGrid::RowHeightMin() const {
    return impl_->layout.rows.axis.minimum();
}
void CellGrid::RowHeightMin(std::int32_t twips) {
    requireSize("RowHeightMin", twips);
    if (impl_->layout.rows.axis.setMinimum(twips)) held()->geometryChanged();
}
bool CellGrid::MergeRow(std::int32_t row) const {
    impl_->requireRow("MergeRow", row);
    return impl_->mergedRows.at(row);
}
void CellGrid::MergeRow(std::int32_t row, bool merge) {
    impl_->requireRow("MergeRow", row);
    if (impl_->mergedRows.set(row, 1, merge)) impl_->damage.addAll();
}

std::string CellGrid::FormatString() const {
    return impl_->formatString;
}
void CellGrid::FormatString(std::string_view format) {
    held()->setFormatString(format);
}
}  // namespace kxVsGrid
