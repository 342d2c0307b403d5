// The public face of the whole grid: its settings, its view and its picture.
#include <algorithm>
#include <utility>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

namespace {
/// Sizes of views are cut to this, so that they can be added up in 32 bits.
constexpr std::int32_t MaxExtent = 500'000'000;

/// Stores a setting that the picture depends on.
template <class T>
void put(cellgrid::DamageLog& damage, T& setting, const T& value) {
    if (setting == value) return;
    setting = value;
    damage.addAll();
}
}  // namespace

std::uint32_t CellGrid::BackColor() const {
    return impl_->backColor;
}
void CellGrid::BackColor(std::uint32_t color) {
    put(impl_->damage, impl_->backColor, color);
}
std::uint32_t CellGrid::BackColorBkg() const {
    return impl_->backColorBkg;
}
void CellGrid::BackColorBkg(std::uint32_t color) {
    put(impl_->damage, impl_->backColorBkg, color);
}
std::uint32_t CellGrid::BackColorFixed() const {
    return impl_->backColorFixed;
}
void CellGrid::BackColorFixed(std::uint32_t color) {
    put(impl_->damage, impl_->backColorFixed, color);
}
std::uint32_t CellGrid::ForeColor() const {
    return impl_->foreColor;
}
void CellGrid::ForeColor(std::uint32_t color) {
    put(impl_->damage, impl_->foreColor, color);
}
std::uint32_t CellGrid::ForeColorFixed() const {
    return impl_->foreColorFixed;
}
void CellGrid::ForeColorFixed(std::uint32_t color) {
    put(impl_->damage, impl_->foreColorFixed, color);
}
std::int32_t CellGrid::Appearance() const {
    return impl_->appearance;
}
void CellGrid::Appearance(std::int32_t appearance) {
    put(impl_->damage, impl_->appearance, appearance);
}
std::optional<std::uint32_t> CellGrid::FittedColor() const {
    return impl_->fittedColor;
}
void CellGrid::FittedColor(std::optional<std::uint32_t> color) {
    put(impl_->damage, impl_->fittedColor, color);
}
const std::function<std::uint8_t(std::int32_t)>& CellGrid::ColShade() const {
    return impl_->colShade;
}
void CellGrid::ColShade(std::function<std::uint8_t(std::int32_t)> shade) {
    impl_->colShade = std::move(shade);
    impl_->damage.addAll();
}
const std::function<CellGrid::Tint(std::int32_t, std::int32_t)>& CellGrid::CellTint() const {
    return impl_->cellTint;
}
void CellGrid::CellTint(std::function<Tint(std::int32_t, std::int32_t)> tint) {
    impl_->cellTint = std::move(tint);
    impl_->damage.addAll();
}
bool CellGrid::TextsRunOver() const {
    return impl_->textsRunOver;
}
void CellGrid::TextsRunOver(bool over) {
    put(impl_->damage, impl_->textsRunOver, over);
}
const TextMetrics& CellGrid::Metrics() const {
    return impl_->metrics;
}
mEmflexMerge CellGrid::MergeCells() const {
    return impl_->mergeCells;
}
void CellGrid::MergeCells(mEmflexMerge merge) {
    put(impl_->damage, impl_->mergeCells, merge);
}
std::int32_t CellGrid::Redraw() const {
    return impl_->redraw;
}
void CellGrid::Redraw(std::int32_t drawing) {
    impl_->redraw = drawing;
    impl_->damage.hold(drawing == 0);
}
bool CellGrid::ScrollBars() const {
    return impl_->layout.scrollBars;
}
void CellGrid::ScrollBars(bool automatic) {
    if (std::exchange(impl_->layout.scrollBars, automatic) != automatic) held()->geometryChanged();
}
bool CellGrid::ShowCursor() const {
    return impl_->showCursor;
}
void CellGrid::ShowCursor(bool show) {
    put(impl_->damage, impl_->showCursor, show);
}
bool CellGrid::SelectsRows() const {
    return impl_->selectsRows;
}
void CellGrid::SelectsRows(bool rows) {
    put(impl_->damage, impl_->selectsRows, rows);
}

// --- The view.

std::int32_t CellGrid::Width() const {
    return impl_->layout.width;
}
std::int32_t CellGrid::Height() const {
    return impl_->layout.height;
}
void CellGrid::Resize(std::int32_t width, std::int32_t height) {
    width = std::clamp(width, 0, MaxExtent);
    height = std::clamp(height, 0, MaxExtent);
    if (width == Width() && height == Height()) return;
    impl_->layout.width = width;
    impl_->layout.height = height;
    held()->geometryChanged();
}
std::int32_t CellGrid::BottomStrip() const {
    return impl_->layout.bottomStrip;
}
void CellGrid::BottomStrip(std::int32_t twips) {
    twips = std::clamp(twips, 0, MaxExtent);
    if (std::exchange(impl_->layout.bottomStrip, twips) != twips) held()->geometryChanged();
}
bool CellGrid::HorizontalBarShown() const {
    return impl_->layout.horizontalBar();
}
bool CellGrid::VerticalBarShown() const {
    return impl_->layout.verticalBar();
}
std::int32_t CellGrid::ClientWidth() const {
    return impl_->layout.clientWidth();
}
std::int32_t CellGrid::ClientHeight() const {
    return impl_->layout.clientHeight();
}

std::int32_t CellGrid::TopRow() const {
    return impl_->layout.rows.first;
}
void CellGrid::TopRow(std::int32_t row) {
    held()->scrollTo({{row, 0}, impl_->layout.cols.start()});
}
std::int32_t CellGrid::LeftCol() const {
    return impl_->layout.cols.first;
}
void CellGrid::LeftCol(std::int32_t col) {
    held()->scrollTo({impl_->layout.rows.start(), {col, 0}});
}
void CellGrid::ScrollTo(std::int32_t topRow, std::int32_t leftCol) {
    ScrollTo(topRow, leftCol, 0, 0);
}
void CellGrid::ScrollTo(std::int32_t topRow, std::int32_t leftCol, std::int32_t topOffset,
                        std::int32_t leftOffset) {
    held()->scrollTo({{topRow, topOffset}, {leftCol, leftOffset}});
}
void CellGrid::ScrollBy(std::int32_t right, std::int32_t down) {
    const auto impl = held();
    const cellgrid::Viewport& layout = impl->layout;
    impl->scrollTo(
        {layout.rows.movedBy(down, layout.rowsEnd()), layout.cols.movedBy(right, layout.colsEnd())});
}
void CellGrid::ScrollBack() {
    held()->scrollTo(impl_->placeBefore);
}
std::int32_t CellGrid::TopOffset() const {
    return impl_->layout.rows.offset;
}
std::int32_t CellGrid::LeftOffset() const {
    return impl_->layout.cols.offset;
}
std::int32_t CellGrid::MaxTopRow() const {
    return impl_->layout.maxTopRow();
}
std::int32_t CellGrid::MaxLeftCol() const {
    return impl_->layout.maxLeftCol();
}
bool CellGrid::RowIsVisible(std::int32_t row) const {
    impl_->requireRow("RowIsVisible", row);
    return impl_->layout.rows.isVisible(row, ClientHeight());
}
bool CellGrid::ColIsVisible(std::int32_t col) const {
    impl_->requireCol("ColIsVisible", col);
    return impl_->layout.cols.isVisible(col, ClientWidth());
}
Rect CellGrid::CellRect(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("CellRect", row, col);
    return impl_->layout.cellRect(row, col);
}
std::int32_t CellGrid::CellLeft() const {
    return CellRect(Row(), Col()).left;
}
std::int32_t CellGrid::CellTop() const {
    return CellRect(Row(), Col()).top;
}
std::int32_t CellGrid::CellWidth() const {
    return CellRect(Row(), Col()).width;
}
std::int32_t CellGrid::CellHeight() const {
    return CellRect(Row(), Col()).height;
}
GridHit CellGrid::HitTest(std::int32_t x, std::int32_t y) const {
    return impl_->layout.hit(x, y);
}
std::int64_t CellGrid::TotalHeight() const {
    return impl_->layout.rows.axis.total();
}
std::int64_t CellGrid::TotalWidth() const {
    return impl_->layout.cols.axis.total();
}
std::int32_t CellGrid::FixedHeight() const {
    return impl_->layout.rows.fixedExtent();
}
std::int32_t CellGrid::FixedWidth() const {
    return impl_->layout.cols.fixedExtent();
}
std::int32_t CellGrid::StillWidth() const {
    return impl_->layout.cols.stillExtent();
}
std::int32_t CellGrid::TopRowToShow(std::int32_t row, std::int32_t bottom) const {
    impl_->requireRow("TopRowToShow", row);
    return std::min(impl_->layout.rows.startToShow(row, bottom).index, std::max(TopRow(), MaxTopRow()));
}
std::int32_t CellGrid::LeftColToShow(std::int32_t col, std::int32_t right) const {
    impl_->requireCol("LeftColToShow", col);
    return std::min(impl_->layout.cols.startToShow(col, right).index, std::max(LeftCol(), MaxLeftCol()));
}
void CellGrid::BringRowIntoView(std::int32_t row, std::int32_t bottom) {
    impl_->requireRow("BringRowIntoView", row);
    held()->scrollTo({impl_->layout.rows.startToShow(row, bottom), impl_->layout.cols.start()});
}
void CellGrid::BringColIntoView(std::int32_t col, std::int32_t right) {
    impl_->requireCol("BringColIntoView", col);
    held()->scrollTo({impl_->layout.rows.start(), impl_->layout.cols.startToShow(col, right)});
}

std::int32_t CellGrid::ShownRowAfter(std::int32_t row, std::int32_t steps) const {
    return impl_->layout.rows.axis.shownAfter(std::max(row, -1), steps);
}
std::int32_t CellGrid::ShownRowBefore(std::int32_t row, std::int32_t steps) const {
    return impl_->layout.rows.axis.shownBefore(row, steps);
}

// --- Damage.

void CellGrid::onDamage(std::function<void()> listener) {
    impl_->damage.listen(std::move(listener));
}
CellGrid::Damage CellGrid::takeDamage() {
    return impl_->damage.take();
}
void CellGrid::damageAll() {
    impl_->damage.addAll();
}
void CellGrid::damageCell(std::int32_t row, std::int32_t col) {
    impl_->requireCell("damageCell", row, col);
    impl_->damageCell(row, col);
}
void CellGrid::watch(Watcher* watcher) {
    impl_->watcher = watcher;
    impl_->listening &= ~Impl::Watched;
    if (watcher) impl_->listening |= Impl::Watched;
}
}  // namespace kxVsGrid
