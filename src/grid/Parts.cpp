// Wiring: which collaborator hears which event of the grids.
#include "grid/Parts.h"

#include <algorithm>

#include "clerk/TipAtCell.h"
#include "columns/EditableColumn.h"
#include "editing/BringIntoView.h"
#include "grid/CellPlace.h"
#include "support/FirstFault.h"

namespace kxVsGrid {

kxGrid::Parts::Parts(kxGrid& owner, Platform& machine)
    : control(owner),
      host(owner),
      platform(machine),
      main(machine.textMetrics()),
      sums(machine.textMetrics()),
      seat(machine.seat(owner)),
      totals(main, sums, columns),
      layout(main, sums, totals),
      wheel(main),
      settings(main, sums, columns, &clerkColumns, flags, totals, layout),
      editor({context, platform, *seat, *this}),
      rows({context, editor, totals, wheel, defaulted}),
      filters(context, editor, *this),
      clerkContext{context, defaulted, platform, *seat, rows, editor, *this, clerkColumns, filters},
      menus(clerkContext),
      search(clerkContext),
      commands(clerkContext, menus, search),
      inputContext{context, editor, rows, totals, *seat, platform},
      moveEvents(inputContext),
      keys(inputContext, menus),
      boxPress(inputContext),
      input(inputContext, moveEvents, keys, boxPress, layout, commands) {
    columns.resize(main.Cols());
    main.SelectsRanges(true);
    main.ColShade([this](std::int32_t col) { return shadeOf(col); });
    options.LookChanged.connect([this] { main.damageAll(); });
    connectMoves();
    connectKeysAndMouse();
    connectCommands();
}

/// A grid that cannot be edited has no column that can.
std::uint8_t kxGrid::Parts::shadeOf(std::int32_t col) {
    if (options.ReadOnlyShade() == 0) return 0;
    const bool editable = flags.Editable && columns::isEditableColumn(main, columns, col);
    return editable ? std::uint8_t{0} : static_cast<std::uint8_t>(options.ReadOnlyShade());
}

void kxGrid::Parts::controlGone() {
    host.controlGone();
    search.silence();
    main.silence();
    sums.silence();
    steps.silence();
    commands.face.Changed.disconnectAll();
    filters.face.Changed.disconnectAll();
    commands.face.Reported.disconnectAll();
    options.RowInUse.disconnectAll();
    options.CellLocked.disconnectAll();
    options.AllRowsNeeded.disconnectAll();
    options.LookChanged.disconnectAll();
    clerkColumns.face.Changed.disconnectAll();
}

void kxGrid::Parts::connectMoves() {
    main.BeforeRowColChange.connect(
        keeping([this](auto oldRow, auto oldCol, auto newRow, auto newCol, bool& cancel) {
            moveEvents.beforeRowColChange(oldRow, oldCol, newRow, newCol, cancel);
        }));
    main.LeaveCell.connect(keeping([this] { moveEvents.leaveCell(); }));
    main.EnterCell.connect(keeping([this] {
        support::FirstFault fault;
        fault.during([&] { filters.entered(); });
        fault.during([&] { moveEvents.enterCell(); });
        fault.raise();
    }));
    main.RowColChange.connect(keeping([this] { moveEvents.rowColChange(); }));
    main.AfterRowColChange.connect(keeping([this](auto oldRow, auto oldCol, auto newRow, auto newCol) {
        support::FirstFault fault;
        fault.during([&] { moveEvents.afterRowColChange(oldRow, oldCol, newRow, newCol); });
        fault.during([&] { filters.settle(); });
        fault.raise();
    }));
    main.SelChange.connect(keeping([this] {
        host.raise(&GridEvents::SelChange);
        commands.tellChanges();
    }));
    main.CellChanged.passOn(control.CellChanged);
    const auto scrolled = keeping([this](auto&&...) { moveEvents.scrolled(); });
    main.AfterScroll.connect(scrolled);
    main.OffsetChanged.connect(scrolled);
    main.SizeChanged.connect(keeping([this] {
        totals.followCols();
        totals.followStillCols();
        columns.resize(main.Cols());
        rows.follower().rowsLimited(main.Rows());
        defaulted.colsLimited(main.Cols());
        clerkColumns.colsLimited(main.Cols());
        editor.place();
        filters.sizeChanged();
        filters.settle();
    }));
    main.PlacesChanged.connect([this] {
        if (!editor.visible() && totals.followsStillCols() && !filters.on()) return;
        const auto kept = shared_from_this();
        totals.followStillCols();
        if (editor.visible()) editor.placesChanged();
        filters.sizeChanged();
    });
    main.RowMoved.connect(keeping([this](std::int32_t position, bool inserted) {
        if (inserted) {
            rows.follower().rowInserted(position);
            editor.rowInserted(position);
        } else {
            rows.follower().rowRemoved(position);
            editor.rowRemoved(position);
            filters.settle();
        }
        totals.followStillCols();  // a scroll bar that comes or goes takes room, or gives it
    }));
    main.RowsReordered.connect(keeping(
        [this](std::int32_t first, std::span<const std::int32_t> from) { rowsReordered(first, from); }));
}

/// The order in which numbers are added up decides the last digits.
void kxGrid::Parts::rowsReordered(std::int32_t first, std::span<const std::int32_t> from) {
    rows.follower().rowsReordered(first, from);
    support::FirstFault fault;
    fault.during([&] { editor.rowsReordered(first, from); });
    fault.during([&] { totals.recalculate(totals::TotalRow::AllColumns); });
    fault.raise();
}

/// What a command can do also depends on which rows and columns there are to be seen. They hear last.
void kxGrid::Parts::connectCommands() {
    const auto tell = keeping([this](auto&&...) { commands.tellChanges(); });
    main.MarksChanged.connect(tell);
    main.SizeChanged.connect(tell);
    main.PlacesChanged.connect(tell);
    main.RowMoved.connect([tell](std::int32_t, bool) { tell(); });
}

void kxGrid::Parts::connectKeysAndMouse() {
    main.KeyDown.connect(
        keeping([this](std::int16_t& code, std::int16_t shift) { keys.keyDown(code, shift); }));
    main.CharacterTyped.connect(keeping(
        [this](std::int16_t& ascii, std::string_view character) { keys.keyPress(ascii, character); }));
    main.Click.connect(keeping([this] { host.raise(&GridEvents::Click); }));
    main.DblClick.connect(keeping([this] { keys.doubleClick(!boxPress.turned()); }));
    main.MouseDown.connect(keeping([this](std::int16_t button, std::int16_t shift, float x, float y) {
        boxPress.ends(menus.mouseDown(button, shift, x, y, input.pressLeadsThere()));
    }));
    main.MouseMove.connect(keeping([this](std::int16_t button, std::int16_t shift, float x, float y) {
        wheel.mouseOver();
        host.raise(&GridEvents::MouseMove, button, shift, x, y);
    }));
    main.BeforeUserResize.connect(
        [this](std::int32_t, std::int32_t col) { clerkColumns.widthWillChange(col); });
    main.AfterUserResize.connect(keeping([this](std::int32_t, std::int32_t col) {
        realign();
        clerkColumns.widthChanged(col);
    }));
    main.EdgeDblClick.connect(keeping([this](std::int32_t col) { commands.fitColumn(col); }));
    main.AfterEdit.connect(keeping(
        [this](std::int32_t row, std::int32_t col) { host.raise(&GridEvents::AfterEdit, row, col); }));
}

void kxGrid::Parts::realign() {
    layout.alignTotalRow();
    editor.place();
    seat->layoutChanged();
}

/// What was wrong with the cell was wrong with what it held.
void kxGrid::Parts::clerkWrote(std::int32_t row, std::int32_t col) {
    flags.changed = true;
    defaulted.written(row, col);
    if (!grid::holds(main, row, col)) return;
    const CellMark* const mark = main.Mark(row, col);
    if (mark && mark->kind == CellMark::Kind::Problem) main.Mark(row, col, std::nullopt);
}

void kxGrid::Parts::leaveFixedArea() {
    if (input.keyboardInGrid() && !editor.visible()) moveEvents.leaveFixedArea();
}

// --- The way back
// -------------------------------------------------------------------------------------------------------------

/// What was typed and could be stored is stored, to be undone first; a refused expression has been undone
/// when its number is back.
bool kxGrid::Parts::closeEditor() {
    if (editor.committing()) return false;
    if (editor.visible() && !editor.refused() && !editor.unchanged()) editor.commit();
    if (!editor.visible()) return true;
    if (editor.locked()) return false;
    editor.drop();
    return true;
}

void kxGrid::Parts::tell(const PasteReport& report) {
    commands.face.Reported(report);
    clerk::tellAtCell(clerkContext, report.summary());
}

void kxGrid::Parts::show(std::int32_t row, std::int32_t col) {
    if (!host.there() || main.Col() < 0) return;
    filters.expose(row);
    main.Select(row, col < 0 ? main.Col() : col);
    editing::bringCurrentCellIntoView(main);
}

DraftInfo kxGrid::Parts::recover(std::string_view draft, bool document) {
    DraftInfo info;
    support::FirstFault fault;
    fault.during([&] {
        steps.duringLoading([&] {
            const std::int32_t row = main.Row();
            info = recoverDraft(main, draft, document, [&] {
                editor.drop();
                filters.drop();
                steps.forget();
            });
            if (info.refusal.empty()) rows.replaced();
            if (main.Row() < row) main.Row(std::min(row, main.Rows() - 1));
        });
    });
    if (!info.refusal.empty()) return info;
    flags.changed = true;
    fault.during([&] { leaveFixedArea(); });
    fault.during([&] { editor.captureAndLoad(); });
    fault.during([&] { historyChanged(); });
    fault.raise();
    return info;
}

void kxGrid::Parts::settleAfterReading() {
    // A failed reading may have ended before the total row was told.
    totals.followFixedCols();
    realign();
    leaveFixedArea();
}

void kxGrid::Parts::showError(std::string_view text, std::string_view title) {
    if (host.there()) platform.showMessage({std::string(text), MessageBox::Critical, std::string(title)});
}
}  // namespace kxVsGrid
