// Steps of changes and the history made of them: hears what the engine tells, and keeps what it takes to go
// back.
//
// It listens while a step is open or something is kept, so that filling a grid before anybody has done
// anything costs nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "changes/ChangeLog.h"
#include "changes/KeptSteps.h"
#include "changes/Listening.h"
#include "changes/Record.h"
#include "changes/RowOrigins.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Changes.h"
#include "support/FirstFault.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::changes {

/// What the way back asks of the control above it.
class StepOwner {
  public:
    virtual ~StepOwner() = default;
    /// Kept for as long as something is going on whose listeners may destroy the control.
    virtual std::shared_ptr<void> keep() = 0;
    virtual bool mayGoBack() const = 0;
    /// An open editor has another text than its cell.
    virtual bool holdsText() const = 0;
    /// Closes an open editor. False when it has to stay.
    virtual bool closeEditor() = 0;
    /// All totals are made anew.
    virtual void recalculateAll() = 0;
    /// Cells have got other contents past the clerk; `col` -1: the current one. Makes the cell current.
    virtual void show(std::int32_t row, std::int32_t col) = 0;
    virtual void contentRestored() = 0;
    /// What can be undone or redone may have changed; no step is open.
    virtual void historyChanged() = 0;
};

class Steps : private ChangeListener {
  public:
    Steps(CellGrid& grid, StepOwner& owner)
        : history(*this), changes(*this), log(grid), grid_(grid), owner_(owner) {}
    Steps(const Steps&) = delete;
    Steps& operator=(const Steps&) = delete;

    /// Work that is one step. It ends whole, also when the work throws, which comes through.
    template <class Work>
    void during(std::string_view name, Cause cause, Work work, bool joinsPrelude = false) {
        open(name, cause, joinsPrelude);
        support::FirstFault fault;
        fault.during(work);
        fault.during([&] { close(); });
        fault.raise();
    }
    /// The same; the step of a row that was appended for what is typed now is part of it.
    template <class Work>
    void duringTyped(std::string_view name, Cause cause, Work work) {
        during(name, cause, work, true);
    }
    void open(std::string_view name, Cause cause, bool joinsPrelude = false);
    void close();
    /// The newest step is the beginning of what the clerk types next.
    void keepPrelude() {
        if (depth_ == 0 && !done_.empty() && done_.back().serial > serialAtOpening_)
            prelude_ = done_.back().serial;
    }
    void dropPrelude() { prelude_ = 0; }
    /// What is done next goes on with the newest step, as what is written outside of steps does.
    void resumeNewest() {
        if (depth_ == 0 && !done_.empty()) prelude_ = done_.back().serial;
    }

    /// A step is open, or is being undone or redone: its end tells what can be done then.
    bool underway() const { return depth_ > 0 || restoring_; }
    /// A step is being undone, redone or taken back, or a whole state is put back: nothing fills anything by
    /// itself.
    bool restoring() const { return restoring_; }
    /// Work that puts a whole state back, of which nothing is kept.
    template <class Work>
    void duringLoading(Work work) {
        unrecordedBefore_ = unrecorded_;
        const support::FlagSpan restoring(restoring_);
        beginUnrecorded();
        support::FirstFault fault;
        fault.during(work);
        endUnrecorded();
        fault.raise();
    }

    // --- Steps that can be taken back, of the host's and of commands that a clerk may cancel.
    /// Answers what takeBack() knows the step by. One of a command's is kept beyond the limit for as long as it
    /// is open: a clerk who cancels shall not be left with half of it.
    std::size_t openHostStep(std::string_view name, Cause cause = Cause::Code);
    void closeHostStep();
    /// Marks that the open step has put on cells: undoing it puts back what was there before, redoing it the marks,
    /// where nobody has put others since. A step that has changed nothing keeps none.
    void keepMarks(std::vector<KeptMark> marks) noexcept;
    bool takeBack(std::size_t hostStep);
    void beginUnrecorded() {
        grid_.TellFilled();
        ++unrecorded_;
    }
    void endUnrecorded() {
        grid_.TellFilled();
        --unrecorded_;
    }
    bool undo() { return goBack(done_, undone_); }
    bool redo() { return canRedo() && goBack(undone_, done_); }
    bool canUndo() const { return !done().empty() && mayGoBack(); }
    /// Not over a text that is being typed: its commit would be an act, and end what can be redone.
    bool canRedo() const { return !undone().empty() && mayGoBack() && !owner_.holdsText(); }
    std::string undoName() const { return done().empty() ? std::string() : done_.back().record.name; }
    std::string redoName() const { return undone().empty() ? std::string() : undone_.back().record.name; }
    std::size_t limit() const { return limit_; }
    void limit(std::size_t bytes);
    bool enabled() const { return enabled_; }
    void enable(bool enabled);
    void forget() noexcept;
    void forgetByHost();
    /// The control has gone, perhaps in a listener of what is going on here: nobody is told or asked any more.
    void silence();
    void addSettler(Changes::Settler settler) {
        grid_.TellFilled();
        settlers_.push_back(std::move(settler));
    }

    History history;
    Changes changes;
    ChangeLog log;

  private:
    /// What is told of a step when it is done.
    struct Told {
        std::string name;
        Cause cause = Cause::Code;
        std::vector<std::int32_t> rows;
        std::vector<std::int32_t> cols;
        bool known = true;
        bool anything = false;
        std::vector<std::int32_t> from;
        StepChanges changes() const { return {name, cause, rows, cols, known, from}; }
    };

    // ChangeListener
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override;
    bool hearsFilled() const noexcept override { return true; }
    void filled(std::int32_t row, std::int32_t col, std::uint32_t texts,
                std::uint32_t tags) noexcept override;
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void cleared(std::int32_t first, std::int32_t last) noexcept override;
    void columnsChanged() noexcept override;

    // As they are when all that was written has been heard of.
    const KeptSteps& done() const {
        grid_.TellFilled();
        return done_;
    }
    const KeptSteps& undone() const {
        grid_.TellFilled();
        return undone_;
    }
    bool mayGoBack() const { return depth_ == 0 && !restoring_ && owner_.mayGoBack(); }
    bool goBack(KeptSteps& from, KeptSteps& to);
    void restore(const Record& record, bool moves, support::FirstFault& fault);
    void restoreMarks(const Record& record, support::FirstFault& fault);
    void forward(const Record& meanwhile, const class Restore& restored);
    Record* keeper() noexcept;
    template <class Keep>
    void record(std::size_t bytesAhead, Keep keep) noexcept;
    void failed() noexcept;
    RowId idOf(std::int32_t row);
    void listen(bool on);
    void listenAsNeeded();
    void settle(support::FirstFault& fault);
    void keepDone() noexcept;
    void trim() noexcept;
    Told toldOf(const Record& record, Cause cause) const noexcept;
    void finish(const Told& told, support::FirstFault& fault);
    void tellForgot();
    bool told() const { return changes.After.heard() || !settlers_.empty(); }
    bool wanted() const { return enabled_ || hostSteps_ > 0 || told(); }

    CellGrid& grid_;
    StepOwner& owner_;
    KeptSteps done_;
    KeptSteps undone_;
    std::vector<Changes::Settler> settlers_;
    Record current_;      ///< of the step that is open
    RowOrigins origins_;  ///< of the rows, in the step that is open or gone back
    Record back_;         ///< what it takes to take a restoration back
    int depth_ = 0;       ///< steps that are open, one in the other
    int hostSteps_ = 0;   ///< of them those that the host may take back
    int unrecorded_ = 0;
    int unrecordedBefore_ = 0;        ///< so many of them began before what is being restored
    std::vector<std::size_t> marks_;  ///< entries that were there when the host's steps began
    std::size_t settledEntries_ = 0;  ///< left by a step that was taken back; no settler is called for them
    std::size_t limit_ = std::size_t{64} << 20;
    std::uint64_t serial_ = 0;
    std::uint64_t serialAtOpening_ = 0;
    std::uint64_t prelude_ = 0;      ///< the step that what is typed next joins; 0 for none
    std::uint64_t joined_ = 0;       ///< the step that goes on in the one that is open
    std::size_t joinedEntries_ = 0;  ///< so long it was
    std::string joinedName_;         ///< and so it was called
    bool enabled_ = true;
    bool silent_ = false;
    bool restoring_ = false;
    bool wholeToTakeBack_ = false;  ///< the open step is kept whatever it takes, until it is closed
    bool lost_ = false;             ///< what is being recorded could not be kept
    bool forgetsStep_ = false;      ///< and shall not
    bool forgot_ = false;           ///< to be told when the step is done
    std::int32_t knownRow_ = -1;    ///< the row that was written to last
    RowId knownId_ = RowId::None;
    Listening listening_{grid_, *this};
};
}  // namespace kxVsGrid::changes
