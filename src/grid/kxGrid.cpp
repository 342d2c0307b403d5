// Wiring: which collaborator hears which event of the grids.
#include "kxVsGrid/kxGrid.h"

#include "grid/Parts.h"
#include "grid/events/BringIntoView.h"

namespace kxVsGrid {
namespace {

constexpr std::int32_t CriticalStyle = 16;
}

kxGrid::kxGrid(Platform& platform) : parts_(std::make_unique<Parts>(*this, platform)) {}

kxGrid::~kxGrid() = default;

kxGrid::Parts::Parts(kxGrid& owner, Platform& machine)
    : control(owner),
      platform(machine),
      main(machine.textMetrics()),
      sums(machine.textMetrics()),
      seat(machine.seat(owner)),
      totals(main, sums, columns),
      layout(main, sums, totals),
      editor(main, columns, *this, *seat),
      context{main, sums, columns, owner, moves, flags, editor, totals, *seat, machine},
      navigation(context),
      rows(context, navigation),
      keys(context, rows),
      input(context, navigation, keys, layout) {
    columns.resize(main.Cols());
    connectMoves();
    connectKeysAndMouse();
}

void kxGrid::Parts::connectMoves() {
    main.BeforeRowColChange.connect([this](auto oldRow, auto oldCol, auto newRow, auto newCol, bool& cancel) {
        navigation.beforeRowColChange(oldRow, oldCol, newRow, newCol, cancel);
    });
    main.LeaveCell.connect([this] { navigation.leaveCell(); });
    main.EnterCell.connect([this] { navigation.enterCell(); });
    main.RowColChange.connect([this] { navigation.rowColChange(); });
    main.AfterRowColChange.connect([this](auto oldRow, auto oldCol, auto newRow, auto newCol) {
        navigation.afterRowColChange(oldRow, oldCol, newRow, newCol);
    });
    main.SelChange.connect([this] { control.SelChange(); });
    main.CellChanged.passOn(control.CellChanged);
    main.AfterScroll.connect(
        [this](auto oldTopRow, auto oldLeftCol, auto, auto) { navigation.scrolled(oldTopRow, oldLeftCol); });
    main.SizeChanged.connect([this] {
        totals.followCols();
        columns.resize(main.Cols());
        editor.place();
    });
    main.RowMoved.connect([this](std::int32_t position, bool inserted) {
        if (inserted)
            editor.rowInserted(position);
        else
            editor.rowRemoved(position);
    });
}

void kxGrid::Parts::connectKeysAndMouse() {
    main.KeyDown.connect([this](std::int16_t& code, std::int16_t) { keys.keyDown(code); });
    main.KeyPress.connect([this](std::int16_t& ascii) { keys.keyPress(ascii, input.typedCharacter(ascii)); });
    main.Click.connect([this] { control.Click(); });
    main.DblClick.connect([this] { keys.doubleClick(); });
    main.MouseDown.connect([this](std::int16_t button, std::int16_t shift, float x, float y) {
        bool cancel = false;
        control.MouseDown(button, shift, x, y, cancel);
    });
    main.MouseMove.connect([this](std::int16_t button, std::int16_t shift, float x, float y) {
        control.MouseMove(button, shift, x, y);
    });
    main.AfterUserResize.connect([this](std::int32_t, std::int32_t) { realign(); });
    main.AfterEdit.connect([this](std::int32_t row, std::int32_t col) { control.AfterEdit(row, col); });
}

void kxGrid::Parts::bringCurrentCellIntoView() {
    events::bringCurrentRowIntoView(main);
    events::bringCurrentColIntoView(main);
}

void kxGrid::Parts::realign() {
    layout.alignTotalRow();
    editor.place();
    seat->layoutChanged();
}

void kxGrid::Parts::showError(std::string_view text, std::string_view title) {
    platform.showMessage({std::string(text), CriticalStyle, std::string(title)});
}

// --- Loading and saving
// ----------------------------------------------------------------------------------------------

void kxGrid::InitProperties() {
    Parts& p = *parts_;
    p.columns.resize(p.main.Cols());
    p.flags.Editable = true;
    p.flags.bIsShowZero = false;
    p.flags.SumRow = false;
    p.layout.showTotalRow(false);
}

// Settings are neither read nor written yet: a loaded control starts with what a bare one has.
void kxGrid::ReadProperties(PropertyBag&) {}

void kxGrid::WriteProperties(PropertyBag&) {}

// --- For the machine
// -------------------------------------------------------------------------------------------------

Input& kxGrid::input() {
    return parts_->input;
}

const EditorView& kxGrid::editorView() const {
    return parts_->editor.view();
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

void kxGrid::AddRow(std::int32_t Position, bool WithDefaults, bool CopyData) {
    parts_->rows.addRow(Position, WithDefaults, CopyData);
}
}  // namespace kxVsGrid
