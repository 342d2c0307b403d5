// The collaborators behind a control, and how they are tied together.
#pragma once

#include <memory>
#include <utility>

#include "clerk/CommandRunner.h"
#include "clerk/Filters.h"
#include "clerk/Menus.h"
#include "clerk/find/Search.h"
#include "columns/ClerkColumns.h"
#include "editing/EditSession.h"
#include "editing/EditorOwner.h"
#include "grid/Layout.h"
#include "grid/Settings.h"
#include "grid/input/BoxPress.h"
#include "grid/input/InputRouter.h"
#include "grid/input/Keys.h"
#include "grid/input/MoveEvents.h"
#include "host/ControlContext.h"
#include "kxVsGrid/kxGrid.h"
#include "platform/Wheel.h"
#include "rows/DefaultedCells.h"
#include "rows/Rows.h"
#include "totals/TotalRow.h"

namespace kxVsGrid {

/// Held by every listener and member that goes on after an event, whose listener may destroy the control.
struct kxGrid::Parts : editing::EditorOwner,
                       clerk::CommandOwner,
                       changes::StepOwner,
                       columns::LayoutOwner,
                       std::enable_shared_from_this<kxGrid::Parts> {
    using Texts = std::span<const std::string_view>;

    Parts(kxGrid& control, Platform& platform);
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    /// The control is being destroyed: its host hears no more.
    void controlGone();
    void report(std::string_view setting) { seat->settingChanged(setting); }
    void showError(std::string_view text, std::string_view title);
    void realign();
    std::uint8_t shadeOf(std::int32_t col);
    /// A host is about to change rows or columns: what is being typed is committed. A refused text stays.
    void commitOpenText() override { editor.commitUnlessLocked(); }
    /// What Recover does.
    DraftInfo recover(std::string_view draft, bool document);
    /// Loading works on the grids directly: afterwards the control stands as they do.
    void settleAfterReading();
    /// The fixed area may have come over the current cell, where a clerk who is in the grid could not type
    /// on. An editor that is still open stays where it is: the cell moves when the editor gives the keyboard
    /// back.
    void leaveFixedArea();
    /// What SetCell does. False when it failed and a box told of it.
    bool set(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);
    /// The text is written to the column as it is, no total depends on it and nobody hears of it: the usual write
    /// when a table is filled.
    bool goesStraight(std::int32_t col, std::string_view text) const;
    /// Tells of what was thrown. False.
    bool failedToSet();
    /// What Fill does. False like set().
    bool fill(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags);
    /// Writes a cell and keeps its column's total.
    void writeCell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);

    // EditorOwner, CommandOwner
    void clerkWrote(std::int32_t row, std::int32_t col) override;
    void recalculate(std::int32_t col) override { totals.recalculate(col); }
    void appendIfLast(std::int32_t row) override { rows.appendIfLast(row); }
    void addRowAtEnd() override {
        if (!host.there()) return;
        steps.during("新增行", Cause::Rows, [this] { control.Rows(control.Rows() + 1); });
    }
    void editorHidden() override { input.editorHidden(); }

    // CommandOwner
    std::string readCell(std::int32_t row, std::int32_t col, bool text) override {
        return host.there() ? control.ReadCell(row, col, text) : std::string();
    }
    bool setCell(std::int32_t row, std::int32_t col, std::string_view text, std::string_view tag) override {
        return !host.there() || set(row, col, text, tag);
    }
    void putCell(std::int32_t row, std::int32_t col, std::string_view text,
                 const std::string_view& tag) override;
    void filtersChanged() override { commands.tellChanges(); }
    void changedData(bool changed) override { flags.changed = changed; }
    void tell(const PasteReport& report) override;
    void searchChanged() override { commands.tellChanges(); }
    void openHelp() override { keys.openHelp(); }

    // StepOwner, LayoutOwner, CommandOwner
    std::shared_ptr<void> keep() override { return shared_from_this(); }
    bool mayGoBack() const override { return flags.Editable && host.there(); }
    bool holdsText() const override { return editor.visible() && !editor.unchanged(); }
    bool closeEditor() override;
    void recalculateAll() override { totals.recalculate(totals::TotalRow::AllColumns); }
    void show(std::int32_t row, std::int32_t col) override;
    void contentRestored() override { editor.captureAndLoad(); }
    void historyChanged() override {
        filters.settle();
        commands.tellChanges();
    }

    // LayoutOwner
    void freeze(std::int32_t cols) override {
        if (host.there()) control.FrozenCols(cols);
    }
    void columnsPlaced() override { realign(); }

    // the first two
    Rect onScreen(const Rect& place) const override { return seat->onScreen(layout.inControl(place)); }

    kxGrid& control;
    host::Host host;
    Platform& platform;
    std::weak_ptr<const void> columnsOwner;
    CellGrid main;
    CellGrid sums;
    changes::Steps steps{main, *this};
    columns::ColumnArray columns;
    columns::ClerkColumns clerkColumns{main, sums, columns, *this};
    host::ControlFlags flags;
    GridOptions options;
    host::ControlContext context{main, columns, host, flags, options, steps};
    rows::DefaultedCells defaulted{main};
    std::unique_ptr<Seat> seat;
    totals::TotalRow totals;
    grid::Layout layout;
    platform::Wheel wheel;
    grid::Settings settings;
    editing::EditSession editor;
    rows::Rows rows;
    clerk::Filters filters;
    clerk::ClerkContext clerkContext;
    clerk::Menus menus;
    clerk::Search search;
    clerk::CommandRunner commands;
    grid::InputContext inputContext;
    grid::MoveEvents moveEvents;
    grid::Keys keys;
    grid::BoxPress boxPress;
    grid::InputRouter input;

  private:
    /// SetCell without what guards it.
    void setPlainly(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& tag);
    /// Somebody hears of each write to a column, or does not.
    void fillHeard(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags);
    void fillUnheard(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags);
    /// Fills the cells that there are, with the texts that the column's type blanks as empty ones.
    void fillShown(std::int32_t col, std::int32_t firstRow, Texts texts, Texts tags);
    bool blanks(std::int32_t row, std::int32_t col, mEmDataType type, std::string_view text) const;
    void connectMoves();
    void connectCommands();
    void connectKeysAndMouse();
    void rowsReordered(std::int32_t first, std::span<const std::int32_t> from);
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
