// The collaborators behind a control, and how they are tied together.
#pragma once

#include <memory>
#include <utility>

#include "editing/Editor.h"
#include "editing/EditorOwner.h"
#include "grid/ControlFlags.h"
#include "grid/InputRouter.h"
#include "grid/Layout.h"
#include "grid/Settings.h"
#include "grid/TotalRow.h"
#include "grid/Wheel.h"
#include "grid/columns/ColumnArray.h"
#include "grid/events/Context.h"
#include "grid/events/DefaultedCells.h"
#include "grid/events/FollowedRow.h"
#include "grid/events/Host.h"
#include "grid/events/Keys.h"
#include "grid/events/Menus.h"
#include "grid/events/MoveFlags.h"
#include "grid/events/Navigation.h"
#include "grid/events/RowAdder.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid {

/// Held by every listener and member that goes on after an event, whose listener may destroy the control.
struct kxGrid::Parts : editing::EditorOwner, events::CellAccess, std::enable_shared_from_this<kxGrid::Parts> {
    Parts(kxGrid& control, Platform& platform);
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    /// The control is being destroyed: its host hears no more.
    void controlGone();
    void report(std::string_view setting) { seat->settingChanged(setting); }
    void showError(std::string_view text, std::string_view title);
    void realign();
    /// A host is about to change rows or columns: what is being typed is committed. A refused text stays.
    void commitOpenText() { editor.commitForHost(); }
    /// Loading works on the grids directly: afterwards the control stands as they do.
    void settleAfterReading();
    /// The fixed area may have come over the current cell, where a clerk who is in the grid could not type
    /// on. An editor that is still open stays where it is: the cell moves when the editor gives the keyboard
    /// back.
    void leaveFixedArea();
    /// What SetCell does. False when it failed and a box told of it.
    bool set(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);
    /// Writes a cell and keeps its column's total.
    void writeCell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);

    // EditorOwner
    bool editable() const override { return flags.Editable && host.there(); }
    void markChanged() override { flags.changed = true; }
    void allowMoves() override { moves.MoveAllowed = true; }
    void recalculate(std::int32_t col) override { totals.recalculate(col); }
    void appendIfLast(std::int32_t row) override { rows.appendIfLast(row); }
    void addRowAtEnd() override {
        if (host.there()) control.Rows(control.Rows() + 1);
    }
    void bringCurrentCellIntoView() override;
    bool escRestores() const override { return options.EscRestores(); }
    void editorHidden() override { input.editorHidden(); }
    void raiseBeforeTextEdit() override { host.raise(&GridEvents::BeforeTextEdit); }
    void raiseAfterEdit(std::int32_t row, std::int32_t col) override {
        host.raise(&GridEvents::AfterEdit, row, col);
    }
    void raiseTxtValidBmS(const cVsControl& column, const std::string& text, std::string& code,
                          std::string& name) override {
        host.raise(&GridEvents::TxtValidBmS, column.s有效性判断基础(), column.s文本框对应编码字段(),
                   column.s文本框对应名称字段(), text, code, name);
    }
    void showMessage(const MessageBox& box) override {
        if (host.there()) platform.showMessage(box);
    }
    void raiseGetHelpCodeInfo(const std::string& code, Variant& Grid_code, Variant& GridInfo,
                              Variant& GridData) override {
        host.raise(&GridEvents::GetHelpCodeInfo, Variant(code), Grid_code, GridInfo, GridData);
    }
    void raiseUserHelpEvent(std::int32_t x, std::int32_t y, std::string& text, Variant& value) override {
        host.raise(&GridEvents::UserHelpEvent, x, y, text, value);
    }
    void raiseGetHelpEdit(const std::string& component, Variant& GridData) override {
        host.raise(&GridEvents::GetHelpEdit, component, GridData);
    }
    void showForm(Form& form, const Rect& anchor) override {
        if (host.there()) platform.showForm(form, anchor);
    }
    Rect onScreen(const Rect& place) const override;
    const TextMetrics& textMetrics() const override { return platform.textMetrics(); }
    DateTime now() const override { return platform.now(); }

    // CellAccess
    std::string readCell(std::int32_t row, std::int32_t col, bool text) override {
        return host.there() ? control.ReadCell(row, col, text) : std::string();
    }
    bool setCell(std::int32_t row, std::int32_t col, std::string_view text, std::string_view tag) override {
        return !host.there() || set(row, col, text, tag);
    }

    kxGrid& control;
    events::Host host;
    Platform& platform;
    CellGrid main;
    CellGrid sums;
    columns::ColumnArray columns;
    grid::ControlFlags flags;
    GridOptions options;
    events::MoveFlags moves;
    events::DefaultedCells defaulted{main};
    events::RowFollower follower;
    std::unique_ptr<Seat> seat;
    grid::TotalRow totals;
    grid::Layout layout;
    grid::Wheel wheel;
    grid::Settings settings;
    editing::Editor editor;
    events::Context context;
    events::Navigation navigation;
    events::RowAdder rows;
    events::Keys keys;
    events::Menus menus;
    grid::InputRouter input;

  private:
    void connectMoves();
    void connectKeysAndMouse();
    void keyDown(std::int16_t& code, std::int16_t shift);
    /// The work as a listener that keeps all this until it is done.
    template <class Work>
    auto keeping(Work work) {
        return [this, work](auto&&... args) {
            const auto kept = shared_from_this();
            work(std::forward<decltype(args)>(args)...);
        };
    }
};
}  // namespace kxVsGrid
