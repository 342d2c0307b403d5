#include "clerk/BlockEdit.h"

#include <utility>

#include "rows/PairWrite.h"
#include "support/Text.h"

namespace kxVsGrid::clerk {
namespace {

/// So often the display is told how far it has come.
constexpr std::int64_t CellsBetweenLooks = 64;
/// Marks beyond these would help nobody: no clerk goes through them.
constexpr std::size_t MostMarked = 10'000;

Cause causeOf(Command command) {
    switch (command) {
        case Command::FillDown:
        case Command::FillRight:
        case Command::CopyFromAbove:
            return Cause::Fill;
        case Command::Today:
        case Command::Now:
            return Cause::Typed;
        case Command::Replace:
            return Cause::Replace;
        default:
            return Cause::Paste;
    }
}
}  // namespace

std::string namedFor(Command command, std::int64_t cells) {
    return std::string(captionOf(command)) + " " + std::to_string(cells) + " 格";
}

BlockEdit::BlockEdit(const ClerkContext& context, Command command, std::int64_t cells)
    : c_(context), cells_(cells) {
    report_.command = command;
}

void BlockEdit::begin(std::string_view step) {
    changedBefore_ = c_.flags.changed;
    progress_ = c_.platform.progress(step, cells_);
    step_ = c_.steps.openHostStep(step, entry_ ? Cause::Typed : causeOf(report_.command));
}

void BlockEdit::end(support::FirstFault& fault) {
    progress_.reset();
    if (report_.cancelled) takeBack(fault);
    if (!report_.cancelled) keepProblems(fault);
    fault.during([&] { c_.steps.closeHostStep(); });
    if (!c_.host.there()) return;
    fault.during(
        [&] { c_.editor.captureAndLoad(); });  // what stands there now is not checked again unchanged
    if (entry_ || (leftToClerk_ && report_.refused > 0)) return;
    fault.during([&] { c_.owner.tell(report_); });
}

/// Where memory did not suffice to keep what was there, it stands.
void BlockEdit::takeBack(support::FirstFault& fault) {
    fault.during([&] {
        report_.cancelled = c_.steps.takeBack(step_);
        report_.cutShort = !report_.cancelled;
    });
    if (!report_.cancelled || !c_.host.there()) return;
    report_.written = report_.same = report_.rowsAdded = report_.refused = report_.filteredRows = 0;
    report_.refusals.clear();
    c_.owner.changedData(changedBefore_);
    for (auto before = marks_.rbegin(); before != marks_.rend() && c_.host.there(); ++before)
        fault.during([&] {
            const std::int32_t row = c_.grid.RowOf(before->row);
            if (row >= 0 && before->col < c_.grid.Cols()) c_.grid.Mark(row, before->col, before->before);
        });
}

// --- Cells

bool BlockEdit::mayWrite(const rows::FollowedRow& row, std::int32_t col) {
    if (!goesOn()) return false;
    if (progress_ && ++done_ % CellsBetweenLooks == 0 && !progress_->goOn(done_)) {
        report_.cancelled = stopped_ = true;
        return false;
    }
    if (!stillThere(row, col)) return false;
    const bool opens = c_.editor.gate().opens(row.row(), col);
    if (!stillThere(row, col)) return false;
    if (!opens) ++report_.passedOver;
    return opens;
}

bool BlockEdit::stillThere(const rows::FollowedRow& row, std::int32_t col) {
    if (goesOn() && (!row.there() || col >= c_.grid.Cols())) cutShort();
    return goesOn();
}

/// What the cell says already is not judged again, as with a typed text.
void BlockEdit::write(const rows::FollowedRow& row, std::int32_t col, std::string_view text) {
    if (!mayWrite(row, col)) return;
    const std::string_view typed = support::trim(text);
    const bool nothing = typed.empty() && c_.grid.Data(row.row(), col).empty();
    if (c_.grid.Text(row.row(), col) == typed && (nothing || !typed.empty())) return same(row, col);
    const auto admission = c_.editor.gate().admit(row.row(), col, text, codes_);
    if (!stillThere(row, col)) return;
    tooLong_ = admission.tooLong;
    if (!admission.refusal.empty()) return refuse(row, col, text, admission.refusal);
    put(row, col, admission.text, admission.tag ? *admission.tag : c_.grid.Data(row.row(), col));
}

void BlockEdit::writePair(const rows::FollowedRow& row, std::int32_t col, const std::string& text,
                          const std::string& tag) {
    if (!mayWrite(row, col)) return;
    std::optional<std::string> broken;
    if (c_.grid.Text(row.row(), col) != text) broken = c_.editor.gate().brokenRule(row.row(), col, text);
    if (!stillThere(row, col)) return;
    if (broken) return refuse(row, col, text, *broken);
    put(row, col, text, tag);
}

/// A problem was with what was to stand there before.
void BlockEdit::same(const rows::FollowedRow& row, std::int32_t col) {
    ++report_.same;
    const CellMark* const mark = c_.grid.Mark(row.row(), col);
    if (!mark || mark->kind != CellMark::Kind::Problem) return;
    keepMark(row.row(), col);
    c_.grid.Mark(row.row(), col, std::nullopt);
}

/// A text that stands there counts as written also when a handler fails as it hears of it.
void BlockEdit::put(const rows::FollowedRow& row, std::int32_t col, const std::string& text,
                    const std::string& tag) {
    CellGrid& grid = c_.grid;
    if (grid.Text(row.row(), col) == text && grid.Data(row.row(), col) == tag) return same(row, col);
    if (addsRows()) askForRowBelow(row);
    if (!stillThere(row, col)) return;
    if (grid.CellChanged.heard()) {
        const rows::PairWrite pair(grid, c_.rows.follower(), row.row(), col);
        try {
            pair.during(tag, [&] { c_.owner.putCell(row.row(), col, text, tag); });
        } catch (...) {
            const bool stands = row.there() && col < grid.Cols() && grid.Text(row.row(), col) == text;
            if (stands && c_.host.there()) written(row, col);
            throw;
        }
    } else {
        c_.owner.putCell(row.row(), col, text, tag);
    }
    if (!row.there() || !c_.host.there() || col >= grid.Cols()) {
        ++report_.written;
        return;
    }
    written(row, col);
    c_.host.raise(&GridEvents::AfterEdit, row.row(), col);
}

void BlockEdit::written(const rows::FollowedRow& row, std::int32_t col) {
    ++report_.written;
    if (c_.grid.Mark(row.row(), col)) keepMark(row.row(), col);  // the write takes a problem away
    c_.owner.clerkWrote(row.row(), col);
}

void BlockEdit::askForRowBelow(const rows::FollowedRow& row) {
    CellGrid& grid = c_.grid;
    if (!goesOn() || !row.there() || !c_.flags.Editable || row.row() < grid.Rows() - 1) return;
    const RowId id = grid.IdOf(row.row());
    if (std::exchange(asked_, id) == id) return;
    const std::int32_t rows = grid.Rows();
    c_.rows.appendIfLast(row.row());
    if (c_.host.there() && grid.Rows() > rows) ++report_.rowsAdded;
}

// --- What was not written

void BlockEdit::refuse(const rows::FollowedRow& row, std::int32_t col, std::string_view text,
                       std::string reason) {
    ++report_.refused;
    if (leftToClerk_) {
        reason_ = std::move(reason);
        return;
    }
    if (marked_ >= MostMarked) return;
    ++marked_;
    keepMark(row.row(), col);
    marks_.back().after = CellMark{CellMark::Kind::Problem, reason};
    c_.grid.Mark(row.row(), col, marks_.back().after);
    if (row.there()) list({c_.grid.IdOf(row.row()), col, 1, std::string(text), std::move(reason)});
}

/// To put it back, should the clerk cancel.
void BlockEdit::keepMark(std::int32_t row, std::int32_t col) {
    const CellMark* const mark = c_.grid.Mark(row, col);
    marks_.push_back({c_.grid.IdOf(row), col, mark ? std::optional(*mark) : std::nullopt, std::nullopt});
}

/// What was refused is not wrong any more when the act has been undone.
void BlockEdit::keepProblems(support::FirstFault& fault) {
    fault.during([&] {
        std::erase_if(marks_, [](const changes::KeptMark& mark) { return !mark.after; });
        c_.steps.keepMarks(std::move(marks_));
    });
}

void BlockEdit::refuseBeyond(std::int64_t cells, std::string reason) {
    if (cells <= 0) return;
    report_.refused += cells;
    for (PasteReport::Refusal& known : report_.refusals)
        if (known.row == RowId::None && known.reason == reason) {
            known.cells += cells;
            return;
        }
    list({RowId::None, -1, cells, {}, std::move(reason)});
}

void BlockEdit::list(PasteReport::Refusal refusal) {
    if (report_.refusals.size() < PasteReport::MostListed) report_.refusals.push_back(std::move(refusal));
}

void BlockEdit::cutShort() {
    report_.cutShort = stopped_ = true;
}
}  // namespace kxVsGrid::clerk
