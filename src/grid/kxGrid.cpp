// The face of the control: what each member reads or changes, on which of the two grids, and what the container
// hears. Errors of reading and writing cells and settings end in a message box, never in the host.
#include "kxVsGrid/kxGrid.h"

#include <algorithm>

#include "columns/ColumnColors.h"
#include "editing/EmptyRule.h"
#include "grid/CellPlace.h"
#include "grid/Parts.h"
#include "grid/SetUp.h"
#include "host/CellLock.h"
#include "support/CurrentError.h"
#include "support/FirstFault.h"

namespace kxVsGrid {

using totals::TotalRow;

namespace {

constexpr const char* SettingsErrorTitle = "错误:";
}  // namespace

kxGrid::kxGrid(Platform& platform) : parts_(std::make_shared<Parts>(*this, platform)) {}

kxGrid::~kxGrid() {
    parts_->controlGone();
}

// --- State

bool kxGrid::bIsDirty() const {
    return parts_->flags.Editable && parts_->flags.changed;
}

void kxGrid::Unmodified() {
    parts_->flags.changed = false;
}

GridOptions& kxGrid::Options() {
    return parts_->options;
}

const GridOptions& kxGrid::Options() const {
    return parts_->options;
}

ColumnOptions& kxGrid::Options(std::int32_t Col) {
    return parts_->columns.options(Col);
}

kxVsGrid::History& kxGrid::History() {
    return parts_->steps.history;
}

kxVsGrid::Changes& kxGrid::Changes() {
    return parts_->steps.changes;
}

ChangeStep kxGrid::Step(std::string_view name) {
    return ChangeStep({parts_, &parts_->steps}, name);
}

UnrecordedSpan kxGrid::Unrecorded() {
    return UnrecordedSpan({parts_, &parts_->steps});
}

DraftInfo kxGrid::Recover(std::string_view draft, bool document) {
    return held()->recover(draft, document);
}

kxVsGrid::Filters& kxGrid::Filters() {
    return parts_->filters.face;
}

const kxVsGrid::Filters& kxGrid::Filters() const {
    return parts_->filters.face;
}

bool kxGrid::Own(const std::weak_ptr<const void>& owner) {
    if (!parts_->columnsOwner.expired()) return false;
    parts_->columnsOwner = owner;
    return true;
}

bool kxGrid::Run(Command command) {
    return held()->commands.run(command);
}

std::string kxGrid::Enter(std::int32_t Row, std::int32_t Col, std::string_view psText) {
    return held()->commands.enter(Row, Col, psText);
}

bool kxGrid::CanRun(Command command) const {
    return held()->commands.can(command);
}

kxVsGrid::Commands& kxGrid::Commands() {
    parts_->commands.look();
    return parts_->commands.face;
}

/// Nobody can begin to listen by this one: keys are looked up here.
const kxVsGrid::Commands& kxGrid::Commands() const {
    return parts_->commands.face;
}

Finder& kxGrid::Find() {
    return parts_->search.face;
}

bool kxGrid::IsActive() const {
    return parts_->input.active();
}

bool kxGrid::Editable() const {
    return parts_->flags.Editable;
}

void kxGrid::Editable(bool editable) {
    const auto kept = held();
    Parts& p = *kept;
    if (!editable) {
        if (p.editor.visible() && !p.editor.committing()) p.editor.commit();
        p.flags.changed = false;
    }
    p.flags.Editable = editable;
    if (p.options.ReadOnlyShade() != 0) p.main.damageAll();
    p.report("Editable");
    p.historyChanged();
}

bool kxGrid::bIsShowZero() const {
    return parts_->flags.bIsShowZero;
}

void kxGrid::bIsShowZero(bool show) {
    parts_->flags.bIsShowZero = show;
    parts_->report("ShowZero");
}

bool kxGrid::ReDraw() const {
    return parts_->flags.ReDraw;
}

void kxGrid::ReDraw(bool redraw) {
    const auto kept = held();
    Parts& p = *kept;
    p.flags.ReDraw = redraw;
    if (!redraw) return;
    grid::setUpGrid(p.main, p.columns, &p.clerkColumns, p.totals);
    p.filters.sizeChanged();
    p.realign();
    if (p.flags.SumRow) p.totals.recalculate(TotalRow::AllColumns);
}

bool kxGrid::SumRow() const {
    return parts_->flags.SumRow;
}

void kxGrid::SumRow(bool show) {
    const auto kept = held();
    Parts& p = *kept;
    p.flags.SumRow = show;
    p.layout.showTotalRow(show);
    p.seat->layoutChanged();
    p.report("SumRow");
}

// --- Column definitions

std::shared_ptr<cVsControl> kxGrid::VsCtrl(std::int16_t Col) {
    return parts_->columns.shared(Col);
}

std::shared_ptr<cVsControl> kxGrid::SetVsControl() {
    return parts_->columns.shared(parts_->main.Col());
}

void kxGrid::SetVsControl(std::shared_ptr<cVsControl> definition) {
    parts_->columns.put(parts_->main.Col(), std::move(definition));
    parts_->report("SetVsControl");
}

// --- Rows and columns

std::int32_t kxGrid::Rows() const {
    return parts_->main.Rows();
}

void kxGrid::Rows(std::int32_t count) {
    const auto kept = held();
    Parts& p = *kept;
    p.commitOpenText();
    support::FirstFault fault;
    fault.during([&] { p.rows.count(count); });
    p.editor.place();
    fault.during([&] { p.leaveFixedArea(); });
    fault.raise();
    p.report("Rows");
}

std::int32_t kxGrid::Cols() const {
    return parts_->main.Cols();
}

void kxGrid::Cols(std::int32_t count) {
    const auto kept = held();
    Parts& p = *kept;
    p.commitOpenText();
    p.main.Cols(count);
    p.main.FormatString(p.main.FormatString());
    p.realign();
    p.report("Cols");
}

std::int32_t kxGrid::FixedRows() const {
    return parts_->main.FixedRows();
}

void kxGrid::FixedRows(std::int32_t count) {
    const auto p = held();
    p->commitOpenText();
    p->main.FixedRows(count);
    p->leaveFixedArea();
    p->report("FixedRows");
}

std::int32_t kxGrid::FixedCols() const {
    return parts_->main.FixedCols();
}

void kxGrid::FixedCols(std::int32_t count) {
    const auto kept = held();
    Parts& p = *kept;
    p.commitOpenText();
    p.main.FixedCols(count);
    p.totals.followFixedCols();
    p.sums.BackColorFixed(p.main.BackColorFixed());
    p.leaveFixedArea();
    p.report("FixedCols");
}

std::int32_t kxGrid::FrozenCols() const {
    return parts_->main.FrozenCols();
}
void kxGrid::FrozenCols(std::int32_t count) {
    parts_->main.FrozenCols(count);
}

ColumnLayout& kxGrid::Layout() {
    return parts_->clerkColumns.face;
}
const ColumnLayout& kxGrid::Layout() const {
    return parts_->clerkColumns.face;
}

std::int32_t kxGrid::Row() const {
    return parts_->main.Row();
}

void kxGrid::Row(std::int32_t row) {
    parts_->main.Row(row);
}

std::int32_t kxGrid::Col() const {
    return parts_->main.Col();
}

void kxGrid::Col(std::int32_t col) {
    parts_->main.Col(col);
}

std::string kxGrid::FormatString() const {
    return parts_->main.FormatString();
}

void kxGrid::FormatString(std::string_view format) {
    const auto kept = held();
    Parts& p = *kept;
    p.commitOpenText();
    p.main.FormatString(format);
    p.realign();
    p.report("FormatString");
}

bool kxGrid::ColHidden(std::int32_t Col) const {
    return parts_->main.ColHidden(Col);
}

void kxGrid::ColHidden(std::int32_t Col, bool hidden) {
    const auto kept = held();
    Parts& p = *kept;
    p.commitOpenText();
    p.main.ColHidden(Col, hidden);
    p.sums.ColHidden(Col, hidden);
    p.columns.shared(Col)->bIsVisible(!hidden);
    p.clerkColumns.hostHid(Col);
    p.realign();
}

std::string kxGrid::ColFormat(std::int32_t Col) const {
    return parts_->main.ColFormat(Col);
}

void kxGrid::ColFormat(std::int32_t Col, std::string_view format) {
    if (!CellGrid::IsFormat(format))
        throw GridError("kxGrid.ColFormat: \"" + std::string(format) + "\" is no format of numbers or dates");
    const auto p = held();
    p->main.ColFormat(Col, format);
    p->sums.ColFormat(Col, format);
    p->filters.sizeChanged();
}

std::int32_t kxGrid::ColWidth(std::int32_t Col) const {
    return parts_->main.ColWidth(Col);
}

void kxGrid::ColWidth(std::int32_t Col, std::int32_t twips) {
    const auto p = held();
    p->main.ColWidth(Col, twips);
    p->realign();
}

std::string kxGrid::ColSample(std::int32_t Col) const {
    return parts_->main.ColSample(Col);
}

void kxGrid::ColSample(std::int32_t Col, std::string_view sample) {
    const auto p = held();
    p->main.ColSample(Col, sample);
    p->realign();
}

mEmflexAlign kxGrid::ColAlignment(std::int32_t Col) const {
    return parts_->main.ColAlignment(Col);
}

void kxGrid::ColAlignment(std::int32_t Col, mEmflexAlign alignment) {
    parts_->main.ColAlignment(Col, alignment);
    parts_->sums.ColAlignment(Col, alignment);
}

std::int32_t kxGrid::RowHeight(std::int32_t Row) const {
    return parts_->main.RowHeight(Row);
}

void kxGrid::RowHeight(std::int32_t Row, std::int32_t twips) {
    const auto p = held();
    p->main.RowHeight(Row, twips);
    p->realign();
}

std::int32_t kxGrid::SumRowHeight() const {
    return parts_->totals.rowHeight();
}

void kxGrid::SumRowHeight(std::int32_t twips) {
    const auto p = held();
    p->totals.setRowHeight(twips);
    p->realign();
}

void kxGrid::MeasureCols() {
    const auto p = held();
    p->main.MeasureCols();
    p->realign();
}

mEmflexMerge kxGrid::MergeCells() const {
    return parts_->main.MergeCells();
}

void kxGrid::MergeCells(mEmflexMerge merge) {
    parts_->main.MergeCells(merge);
}

bool kxGrid::MergeCol(std::int32_t Col) const {
    return parts_->main.MergeCol(Col);
}

void kxGrid::MergeCol(std::int32_t Col, bool merge) {
    parts_->main.MergeCol(Col, merge);
}

bool kxGrid::MergeRow(std::int32_t Row) const {
    return parts_->main.MergeRow(Row);
}

void kxGrid::MergeRow(std::int32_t Row, bool merge) {
    parts_->main.MergeRow(Row, merge);
}

void kxGrid::AddRow(std::int32_t Position, bool WithDefaults, bool CopyData) {
    held()->rows.add(Position, WithDefaults, CopyData);
}

void kxGrid::Clear() {
    const auto kept = held();
    Parts& p = *kept;
    p.steps.forget();
    p.main.ClearMarks();
    p.editor.setText("");
    p.editor.setTag("");
    p.editor.hide();
    support::FirstFault fault;  // of those who hear that the filters have ended
    fault.during([&] { p.filters.drop(); });
    fault.during([&] {
        if (p.host.there()) Rows(p.main.FixedRows());
    });
    p.historyChanged();
    fault.raise();
}

// --- Cells

std::string kxGrid::ReadCell(std::int32_t Row, std::int32_t Col, bool piReturnTextorID) {
    const CellReader data = &CellGrid::Data;
    return read(Row, Col, piReturnTextorID ? &CellGrid::DisplayText : data);
}

std::string kxGrid::RawText(std::int32_t Row, std::int32_t Col) {
    return read(Row, Col, &CellGrid::Text);
}

std::string kxGrid::read(std::int32_t Row, std::int32_t Col, CellReader reader) {
    Parts& p = *parts_;
    std::shared_ptr<Parts> kept;
    try {
        if (p.editor.visible()) {
            kept = held();
            p.editor.commitUnlessLocked();
        }
        if (!grid::holds(p.main, Row, Col)) return {};
        return (p.main.*reader)(Row, Col);
    } catch (...) {
        p.showError("CellError" + support::currentError(), "错误：");
        return {};
    }
}

std::string kxGrid::ReadSum(std::int32_t Col) const {
    Parts& p = *parts_;
    try {
        if (p.sums.Rows() <= p.sums.FixedRows() || !grid::holds(p.sums, 0, Col)) return {};
        return p.sums.DisplayText(0, Col);
    } catch (...) {
        p.showError("CellError" + support::currentError(), "错误：");
        return {};
    }
}

void kxGrid::RecalculateTotals() {
    parts_->totals.recalculate(totals::TotalRow::AllColumns);
}

std::string kxGrid::Problem(std::int32_t Row, std::int32_t Col) const {
    Parts& p = *parts_;
    if (!grid::holds(p.main, Row, Col) || grid::isFixed(p.main, Row, Col)) return {};
    const cVsControl* column = p.columns.find(Col);
    return column ? editing::brokenRule(*column, p.main.Data(Row, Col)) : std::string();
}

const CellMark* kxGrid::Mark(std::int32_t Row, std::int32_t Col) const {
    return parts_->main.Mark(Row, Col);
}

void kxGrid::Mark(std::int32_t Row, std::int32_t Col, std::optional<CellMark> mark) {
    held()->main.Mark(Row, Col, std::move(mark));
}

void kxGrid::ClearMarks(std::optional<CellMark::Kind> kind) {
    held()->main.ClearMarks(kind);
}

std::optional<MarkedCell> kxGrid::NextMark(std::int32_t Row, std::int32_t Col,
                                           std::optional<CellMark::Kind> kind) const {
    return parts_->main.NextMark(Row, Col, kind);
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
    held()->editor.setText(text);
}

std::string kxGrid::TextTag() const {
    return parts_->editor.box().tag();
}

void kxGrid::TextTag(std::string_view tag) {
    parts_->editor.setTag(tag);
}

// --- The grids behind it

CellGrid& kxGrid::Grid() {
    return parts_->main;
}

const CellGrid& kxGrid::Grid() const {
    return parts_->main;
}

CellGrid& kxGrid::Grid_Sum() {
    return parts_->sums;
}

const CellGrid& kxGrid::Grid_Sum() const {
    return parts_->sums;
}

// --- Loading and saving

void kxGrid::InitProperties() {
    Parts& p = *parts_;
    p.columns.resize(p.main.Cols());
    p.flags.Editable = true;
    p.flags.bIsShowZero = false;
    p.flags.SumRow = false;
    p.layout.showTotalRow(false);
    grid::SettingsLoading::setUnderway(false);
}

void kxGrid::ReadProperties(PropertyBag& bag) {
    const auto kept = held();
    Parts& p = *kept;
    grid::SettingsLoading::setUnderway(true);
    p.steps.forget();
    try {
        p.main.ClearMarks();
        p.filters.drop();
        p.settings.read(bag);
        p.wheel.hook(*p.seat);
        grid::SettingsLoading::setUnderway(false);
        p.flags.changed = false;
        p.settleAfterReading();
        p.historyChanged();
    } catch (...) {
        p.showError(grid::readFault(), SettingsErrorTitle);
        try {
            p.settleAfterReading();
        } catch (...) {
            // A handler of the host's own; the box above has told of the failure.
        }
    }
}

void kxGrid::WriteProperties(PropertyBag& bag) {
    if (grid::SettingsLoading::underway()) return;
    const auto kept = held();
    try {
        kept->settings.write(bag, *this);
    } catch (...) {
        kept->showError("WriteProperError:" + support::currentError(), SettingsErrorTitle);
    }
}

// --- For the machine

std::weak_ptr<const void> kxGrid::life() const {
    return life_;
}

std::shared_ptr<Input> kxGrid::input() {
    return {parts_, &parts_->input};
}

const EditorView& kxGrid::editorView() const {
    return parts_->editor.view();
}

bool kxGrid::cellEditable(std::int32_t Row, std::int32_t Col) const {
    const auto kept = held();
    return kept->flags.Editable && host::isOpenCell(kept->context, Row, Col);
}

Rect kxGrid::gridRect() const {
    return parts_->layout.mainRect();
}

Rect kxGrid::totalRowRect() const {
    return parts_->layout.totalRowRect();
}

bool kxGrid::totalRowShown() const {
    return parts_->layout.totalRowShown();
}
}  // namespace kxVsGrid
