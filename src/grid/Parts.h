// The collaborators behind a control, and how they are tied together.
#pragma once

#include <memory>

#include "editing/Editor.h"
#include "editing/EditorOwner.h"
#include "grid/ControlFlags.h"
#include "grid/InputRouter.h"
#include "grid/Layout.h"
#include "grid/TotalRow.h"
#include "grid/columns/ColumnArray.h"
#include "grid/events/Context.h"
#include "grid/events/Keys.h"
#include "grid/events/MoveFlags.h"
#include "grid/events/Navigation.h"
#include "grid/events/RowAdder.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid {

struct kxGrid::Parts : editing::EditorOwner {
    Parts(kxGrid& control, Platform& platform);
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    void report(std::string_view setting) { seat->settingChanged(setting); }
    void showError(std::string_view text, std::string_view title);
    void realign();
    /// Writes a cell and keeps its column's total.
    void writeCell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);

    // EditorOwner
    bool editable() const override { return flags.Editable; }
    void markChanged() override { flags.changed = true; }
    void allowMoves() override { moves.MoveAllowed = true; }
    void recalculate(std::int32_t col) override { totals.recalculate(col); }
    void appendIfLast(std::int32_t row) override { rows.appendIfLast(row); }
    void addRowAtEnd() override { control.Rows(control.Rows() + 1); }
    void bringCurrentCellIntoView() override;
    void raiseBeforeTextEdit() override { control.BeforeTextEdit(); }
    void raiseAfterEdit(std::int32_t row, std::int32_t col) override { control.AfterEdit(row, col); }
    void raiseTxtValidBmS(const cVsControl& column, const std::string& text, std::string& code,
                          std::string& name) override {
        control.TxtValidBmS(column.s有效性判断基础(), column.s文本框对应编码字段(),
                            column.s文本框对应名称字段(), text, code, name);
    }
    void showMessage(const MessageBox& box) override { platform.showMessage(box); }
    DateTime now() const override { return platform.now(); }

    kxGrid& control;
    Platform& platform;
    CellGrid main;
    CellGrid sums;
    columns::ColumnArray columns;
    grid::ControlFlags flags;
    events::MoveFlags moves;
    std::unique_ptr<Seat> seat;
    grid::TotalRow totals;
    grid::Layout layout;
    editing::Editor editor;
    events::Context context;
    events::Navigation navigation;
    events::RowAdder rows;
    events::Keys keys;
    grid::InputRouter input;

  private:
    void connectMoves();
    void connectKeysAndMouse();
};
}  // namespace kxVsGrid
