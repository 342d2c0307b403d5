#include "clerk/BlockEdit.h"

#include "rows/PairWrite.h"

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
        default:
            return Cause::Paste;
    }
}
}  // namespace

BlockEdit::BlockEdit(const ClerkContext& context, Command command, std::int64_t cells)
    : c_(context), cells_(cells) {
    report_.command = command;
}

void BlockEdit::begin(std::string_view step) {
    changedBefore_ = c_.flags.changed;
    progress_ = c_.platform.progress(step, cells_);
    step_ = c_.steps.openHostStep(step, causeOf(report_.command));
}

void BlockEdit::end(support::FirstFault& fault) {
    progress_.reset();
    if (report_.cancelled) takeBack(fault);
    fault.during([&] { c_.steps.closeHostStep(); });
    if (!c_.host.there()) return;
    fault.during([&] { c_.editor.captureAndLoad(); });  // what stands there now is not checked again unchanged
    if (leftToClerk_ && report_.refused > 0) return;
    fault.during([&] { c_.owner.tell(report_); });
}

/// Where memory did not suffice to keep what was there, it stands.
void BlockEdit::takeBack(support::FirstFault& fault) {
    fault.during([&] {
        report_.cancelled = c_.steps.takeBack(step_);
        report_.cutShort = !report_.cancelled;
    });
    if (!report_.cancelled || !c_.host.there()) return;
    report_.written = report_.same = report_.rowsAdded = 0;
    c_.owner.changedData(changedBefore_);
    for (auto before = marks_.rbegin(); before != marks_.rend(); ++before)
        if (const std::int32_t row = c_.grid.RowOf(before->row); row >= 0 && before->col < c_.grid.Cols())
            c_.grid.Mark(row, before->col, before->mark);
}

// --- Cells

bool BlockEdit::mayWrite(const rows::FollowedRow& row, std::int32_t col) {
    if (progress_ && ++done_ % CellsBetweenLooks == 0 && !progress_->goOn(done_)) {
        report_.cancelled = stopped_ = true;
        return false;
    }
    if (!goesOn()) return false;
    if (!row.there() || col >= c_.grid.Cols()) {
        cutShort();
        return false;
    }
    if (c_.editor.gate().opens(row.row(), col)) return true;
    ++report_.passedOver;
    return false;
}

void BlockEdit::write(const rows::FollowedRow& row, std::int32_t col, std::string_view text) {
    if (!mayWrite(row, col)) return;
    const auto admission = c_.editor.gate().admit(row.row(), col, text, codes_);
    if (!goesOn()) return;
    if (!row.there() || col >= c_.grid.Cols()) return cutShort();
    if (!admission.refusal.empty()) return refuse(row, col, text, admission.refusal);
    put(row, col, admission.text, admission.tag ? *admission.tag : c_.grid.Data(row.row(), col));
}

void BlockEdit::writePair(const rows::FollowedRow& row, std::int32_t col, const std::string& text,
                          const std::string& tag) {
    if (!mayWrite(row, col)) return;
    const auto broken = c_.editor.gate().brokenRule(row.row(), col, text);
    if (!goesOn()) return;
    if (!row.there() || col >= c_.grid.Cols()) return cutShort();
    if (broken) return refuse(row, col, text, *broken);
    put(row, col, text, tag);
}

void BlockEdit::put(const rows::FollowedRow& row, std::int32_t col, const std::string& text,
                    const std::string& tag) {
    CellGrid& grid = c_.grid;
    if (grid.Text(row.row(), col) == text && grid.Data(row.row(), col) == tag) {
        ++report_.same;
        return;
    }
    if (grid.CellChanged.heard()) {
        const rows::PairWrite pair(grid, c_.rows.follower(), row.row(), col);
        pair.during(tag, [&] { c_.owner.putCell(row.row(), col, text, tag); });
    } else {
        c_.owner.putCell(row.row(), col, text, tag);
    }
    ++report_.written;
    if (!row.there() || !c_.host.there() || col >= grid.Cols()) return;
    if (grid.Mark(row.row(), col)) keepMark(row.row(), col);  // the write takes a problem away
    c_.owner.clerkWrote(row.row(), col);
    c_.host.raise(&GridEvents::AfterEdit, row.row(), col);
}

void BlockEdit::startRow(const rows::FollowedRow& row) {
    const std::int32_t rows = c_.grid.Rows();
    if (!goesOn() || !row.there() || !c_.flags.Editable) return;
    c_.rows.appendIfLast(row.row());
    if (c_.host.there() && c_.grid.Rows() > rows) ++report_.rowsAdded;
}

// --- What was not written

void BlockEdit::refuse(const rows::FollowedRow& row, std::int32_t col, std::string_view text,
                       std::string reason) {
    ++report_.refused;
    if (leftToClerk_ || marked_ >= MostMarked) return;
    ++marked_;
    keepMark(row.row(), col);
    c_.grid.Mark(row.row(), col, CellMark{CellMark::Kind::Problem, reason});
    if (row.there()) list({c_.grid.IdOf(row.row()), col, 1, std::string(text), std::move(reason)});
}

/// To put it back, should the clerk cancel.
void BlockEdit::keepMark(std::int32_t row, std::int32_t col) {
    const CellMark* const mark = c_.grid.Mark(row, col);
    marks_.push_back({c_.grid.IdOf(row), col, mark ? std::optional(*mark) : std::nullopt});
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
