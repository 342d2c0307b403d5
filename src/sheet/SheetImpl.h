// The parts of a sheet, and the ties to its grid.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "sheet/CodeColumns.h"
#include "sheet/CodeHelp.h"
#include "sheet/Computing.h"
#include "sheet/Deleting.h"
#include "sheet/FaultMarks.h"
#include "sheet/Faults.h"
#include "sheet/Lines.h"
#include "sheet/Presets.h"
#include "sheet/Saved.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

struct SheetBody::Impl : std::enable_shared_from_this<SheetBody::Impl> {
    Impl(kxGrid& grid, MakeRecord make, bool computesTwice) : context{grid, make, computesTwice} {}

    /// Listens to the grid.
    void attach();
    /// Once: the columns as they are declared by now.
    void layOut();
    void settle(const StepChanges& step);
    void settled(const StepChanges& step);
    void tellModified();
    void keepRowBelow();
    void tellChanged();
    /// Lines have taken the place of others.
    void loaded(bool none);
    void presetRow(std::int32_t row);
    void presetCurrentRow();
    bool commit();
    void recompute();
    void complete();
    std::optional<Fault> firstFault();
    std::optional<Fault> hindrance();
    std::optional<Fault> save(const Write& write);
    std::vector<AnyChange> changes() const;
    void accept(const std::vector<AnyChange>& all);
    void storedAs(RowId row, KeptRecord record);
    Fault refusedLine(const LineRefused& refused);
    std::vector<KeptRecord> records() const;
    /// Does something with each of the step's rows that are there when it is their turn, and with the others also
    /// where one of them throws.
    void eachRow(const StepChanges& step, const std::function<void(std::int32_t)>& work);
    std::int32_t require(std::string_view member, std::string_view name) const;
    void requireRow(std::string_view member, std::int32_t row) const;
    void requireWhole(std::string_view member) const;
    void requireOpen(std::string_view what) const;
    /// The fault with a way to its cell, wherever its row is by then.
    Fault shown(Fault fault);
    void attachCodes();
    /// Writes what differs. What follows from a code comes before what was given beside it.
    void write(std::int32_t row, const void* record);
    void roundCell(std::int32_t row, std::int32_t column);
    void round(std::int32_t row, const StepChanges& step);
    /// The clerk has changed a cell: the host makes of its line what follows.
    void tellEdited(std::int32_t row, std::int32_t column, bool filled);
    void tellFilled(std::int32_t row, const StepChanges& step);
    /// What is remembered of lines goes, and so do all marks.
    void forgetLines();
    /// A load has failed among the lines: half of them would be saved as all there are.
    void loadNothing();
    void preset(std::int32_t column, const std::string& text);
    bool adaptCopy(std::int32_t row);
    void goTo(RowId row, std::int32_t col);
    void paintAll();

    SheetContext context;
    Saved saved{context};
    Lines lines{context, saved};
    Computing computing{context, lines};
    Presets presets{context, lines};
    CodeColumns codes{context, lines, saved};
    CodeHelp codeHelp{context};
    Faults faults{context, lines, computing, codes};
    FaultMarks faultMarks{context, faults};
    Deleting deleting{context};
    Event<bool> modifiedTold;
    Event<> changedTold;
    std::size_t changesTold = 0;  ///< how often
    RowId stands = RowId::None;   ///< the row where the clerk is
    bool modified = false;        ///< as it was told last
    bool laidOut = false;
    bool loading = false;  ///< lines are being put into the grid
    bool reading = false;  ///< they are being made of a range
    std::vector<ScopedConnection> connections;
};
}  // namespace kxVsGrid::sheet
