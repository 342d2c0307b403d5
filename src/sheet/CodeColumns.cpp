#include "sheet/CodeColumns.h"

#include <algorithm>

#include "sheet/ProblemMark.h"
#include "sheet/ThrownReason.h"

namespace kxVsGrid::sheet {
namespace {

constexpr std::string_view BasisPrefix = "sheet:";
/// The name of no code: a check without one refuses.
const std::string NoName = " ";
const std::string CannotLookUp = "现在不能查找";
const std::string NotFollowed = "其余内容还没有按编码填入";
}  // namespace

void CodeColumns::leave() {
    if (listening_) c_.cells().RemoveListener(*this);
    listening_ = false;
}

std::string CodeColumns::basisOf(const ColumnPlan& plan) {
    return std::string(BasisPrefix) + plan.name;
}

std::string CodeColumns::refusalOf(const ColumnPlan& plan) {
    return plan.refusal.empty() ? "没有这个" + plan.caption : plan.refusal;
}

std::int32_t CodeColumns::columnWith(const SheetContext& context, std::string_view basis) {
    if (!basis.starts_with(BasisPrefix)) return -1;
    const std::int32_t column = context.columnNamed(basis.substr(BasisPrefix.size()));
    return column >= 0 && context.plan(column).codes ? column : -1;
}

// --- Checks

CodeColumns::Answer CodeColumns::lookUp(std::int32_t column, const std::string& text) const {
    const ColumnPlan& plan = c_.plan(column);
    try {
        Answer answer{plan.codes->find(text), {}};
        answer.reason = answer.found ? plan.codes->objection(answer.found.get()) : refusalOf(plan);
        return answer;
    } catch (...) {
        const std::string why = thrownReason(CannotLookUp);
        c_.tellFailed(plan.caption + " " + text + "：" + why);
        return {nullptr, why, true};
    }
}

const CodeColumns::Answer& CodeColumns::lookUp(std::int32_t column, const std::string& text,
                                               Answers& answers) const {
    const auto key = std::make_pair(column, text);
    const auto known = answers.find(key);
    return known != answers.end() ? known->second
                                  : answers.insert_or_assign(key, lookUp(column, text)).first->second;
}

/// Asked anew each time. The answer is kept for what follows from the code within the step.
void CodeColumns::check(std::string_view basis, std::string_view typed, std::string& code,
                        std::string& name) {
    const std::int32_t column = columnWith(c_, basis);
    if (column < 0) return;
    const std::string text(trimmedCode(typed));
    code = text;
    name = NoName;
    if (text.empty()) return;
    untilStepCloses();
    const Answer answer = lookUp(column, text);
    answers_[{column, text}] = answer;
    name = text;
    if (answer.failed) return;
    name.clear();
    if (!c_.gone) c_.grid.VsCtrl(static_cast<std::int16_t>(c_.gridCol(column)))->s错误提示信息(answer.reason);
    if (!answer.reason.empty()) return;
    const CodeSource& source = *c_.plan(column).codes;
    code = source.codeOf(answer.found.get());
    name = source.nameOf(answer.found.get());
    answers_[{column, code}] = answer;
}

// --- What follows from a code

bool CodeColumns::follow(std::int32_t row) {
    return followLine(
        c_.cells().IdOf(row), [](std::int32_t) { return true; }, false);
}

void CodeColumns::settle(std::int32_t row, const StepChanges& step) {
    const auto written = [&](std::int32_t column) {
        return !step.known || std::binary_search(step.cols.begin(), step.cols.end(), c_.gridCol(column));
    };
    followLine(c_.cells().IdOf(row), written, true);
}

/// What follows from one code may be the code of another column.
bool CodeColumns::followLine(RowId row, const Written& written, bool marks) {
    bool any = false;
    for (std::int32_t pass = 0; pass < c_.count(); ++pass) {
        bool again = false;
        for (std::int32_t column = 0; column < c_.count(); ++column)
            if (c_.plan(column).codes && followCell({row, column}, any || again || written(column), marks))
                again = true;
        if (!again) break;
        any = true;
    }
    return any;
}

/// Nothing follows from the text. A preset code waits for the rest of its line.
bool CodeColumns::stands(const Cell& cell, const std::string& text, bool written) {
    const auto missed = missed_.find(cell);
    const bool known = text == foundFor(cell);
    if (missed != missed_.end()) {
        if (!known || missed->second.text == text) return false;
        settleMissed(cell);
    } else if (!known && !written && waiting_.count(cell) == 0) {
        found_[cell] = text;
    } else if (!known) {
        const bool waits =
            !text.empty() && text == c_.plan(cell.column).preset && !lines_.isInUse(rowOf(cell));
        if (waits)
            waiting_.insert(cell);
        else
            waiting_.erase(cell);
        return waits;
    }
    return true;
}

bool CodeColumns::followCell(const Cell& cell, bool written, bool marks) {
    if (rowOf(cell) < 0) return false;
    const std::string text = textOf(cell);
    if (text.empty()) writeTag(cell, {});
    if (stands(cell, text, written)) return false;
    if (text.empty()) return clear(cell);
    untilStepCloses();
    const Answer answer = lookUp(cell.column, text, answers_);
    if (rowOf(cell) < 0) return false;
    const std::string reason = answer.reason.empty() ? apply(cell, text, answer.found) : answer.reason;
    if (reason.empty())
        settleMissed(cell);
    else
        miss(cell, text, reason, marks || missed_.count(cell) > 0);
    return reason.empty();
}

/// A copy that the host has not kept is emptied by nobody's wish.
bool CodeColumns::clear(const Cell& cell) {
    const ColumnPlan& plan = c_.plan(cell.column);
    settleMissed(cell);
    noteFound(cell, {});
    if (!plan.cleared || copies_.count(cell.row) > 0 || rowOf(cell) < 0) return true;
    std::optional<Fault> unreadable;
    const AnyRecord before = lines_.read(rowOf(cell), unreadable);
    const AnyRecord after = c_.make(before.get());
    plan.cleared(after.get());
    write(cell.row, before.get(), after.get(), before.get());
    return true;
}

/// Answers why nothing could follow. The code counts as followed before anybody hears of what is written. Where it
/// was missed at first, what the clerk has put since stands.
std::string CodeColumns::apply(const Cell& cell, const std::string& text, const CodeSource::Found& found) {
    const ColumnPlan& plan = c_.plan(cell.column);
    std::optional<Fault> unreadable;
    const AnyRecord before = lines_.read(rowOf(cell), unreadable);
    const AnyRecord after = c_.make(before.get());
    try {
        if (plan.found) plan.found(after.get(), found.get());
    } catch (...) {
        return thrownReason(CannotLookUp);
    }
    const std::string code = plan.codes->codeOf(found.get());
    const auto missed = missed_.find(cell);
    const bool late = missed != missed_.end() && missed->second.text == text;
    const KeptRecord then = late ? doubtful_.at({cell, text}) : before;
    noteFound(cell, code);
    if (code != text && rowOf(cell) >= 0) c_.grid.SetCell(rowOf(cell), c_.gridCol(cell.column), code);
    writeTag(cell, plan.codes->nameOf(found.get()));
    write(cell.row, before.get(), after.get(), then.get());
    return {};
}

/// What has become another one since `then` stays.
void CodeColumns::write(RowId id, const void* before, const void* after, const void* then) {
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const ColumnPlan& plan = c_.plan(column);
        const std::int32_t row = rowOf({id, column});
        if (row < 0) return;
        if (plan.computed || plan.field->alike(before, after)) continue;
        if (!plan.field->alike(before, then)) continue;
        std::string text = lines_.text(after, column);
        if (plan.decimals) text = Lines::rounded(text, *plan.decimals);
        if (c_.cells().Text(row, c_.gridCol(column)) != text) c_.grid.SetCell(row, c_.gridCol(column), text);
    }
}

/// The name goes with the code, as the check has it.
void CodeColumns::writeTag(const Cell& cell, const std::string& tag) {
    const std::int32_t row = rowOf(cell);
    if (row < 0) return;
    const std::int32_t col = c_.gridCol(cell.column);
    if (c_.cells().Data(row, col) != tag) c_.cells().Data(row, col, tag);
}

// --- For which codes members were found

std::string CodeColumns::textOf(const Cell& cell) const {
    return c_.cells().Text(rowOf(cell), c_.gridCol(cell.column));
}

std::string CodeColumns::foundFor(const Cell& cell) const {
    if (const auto now = following_.find(cell); now != following_.end()) return now->second;
    if (const auto before = found_.find(cell); before != found_.end()) return before->second;
    const KeptRecord kept = saved_.of(cell.row);
    return kept ? lines_.text(kept.get(), cell.column) : std::string();
}

void CodeColumns::noteFound(const Cell& cell, const std::string& code) {
    untilStepCloses();
    following_[cell] = code;
}

void CodeColumns::copied(std::int32_t row, std::int32_t source) {
    const RowId id = c_.cells().IdOf(row);
    const RowId from = c_.cells().IdOf(source);
    untilStepCloses();
    copies_.insert(id);
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (c_.plan(column).codes && missed_.count({from, column}) == 0)
            noteFound({id, column}, textOf({id, column}));
}

/// Only while there is something to hear of: a listener makes writing slower.
void CodeColumns::untilStepCloses() {
    if (listening_ || c_.gone) return;
    c_.cells().AddListener(*this);
    listening_ = true;
}

/// Without the memory for it codes are looked up once more.
void CodeColumns::stepClosed(std::string_view, Cause) noexcept {
    try {
        for (const auto& [cell, code] : following_)
            if (rowOf(cell) >= 0 && textOf(cell) == code) found_[cell] = code;
    } catch (...) {
    }
    following_.clear();
    answers_.clear();
    copies_.clear();
    c_.cells().RemoveListener(*this);
    listening_ = false;
}

void CodeColumns::undone(std::int32_t row, Answers& answers) {
    const RowId id = c_.cells().IdOf(row);
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        if (!c_.plan(column).codes) continue;
        const Cell cell{id, column};
        const std::string text = textOf(cell);
        found_[cell] = text;
        const std::string reason = reasonOnceMore(cell, text, answers);
        if (reason.empty())
            settleMissed(cell);
        else
            putBackMissed(cell, text, reason);
    }
}

/// Only of a code that was missed in that row before: either it still cannot be found, or the line has been put back
/// to what it was before anything followed.
std::string CodeColumns::reasonOnceMore(const Cell& cell, const std::string& text, Answers& answers) const {
    const auto once = doubtful_.find({cell, text});
    if (once == doubtful_.end()) return {};
    const Answer& answer = lookUp(cell.column, text, answers);
    const ColumnPlan& plan = c_.plan(cell.column);
    if (!answer.reason.empty() || !plan.found || rowOf(cell) < 0) return answer.reason;
    std::optional<Fault> unreadable;
    const AnyRecord now = lines_.read(rowOf(cell), unreadable);
    const AnyRecord after = c_.make(now.get());
    try {
        plan.found(after.get(), answer.found.get());
    } catch (...) {
        return thrownReason(CannotLookUp);
    }
    const void* const then = once->second.get();
    const bool follows = std::any_of(c_.plans.begin(), c_.plans.end(), [&](const ColumnPlan& other) {
        return !other.computed && !other.field->alike(now.get(), after.get()) &&
               other.field->alike(now.get(), then);
    });
    return follows ? NotFollowed : std::string();
}

// --- Codes that could not be found

void CodeColumns::miss(const Cell& cell, const std::string& text, const std::string& reason, bool marks) {
    if (rowOf(cell) < 0) return;
    std::optional<Fault> unreadable;
    const auto missed = missed_.find(cell);
    if (missed == missed_.end() || missed->second.text != text)
        doubtful_[{cell, text}] = lines_.read(rowOf(cell), unreadable);
    missed_[cell] = {text, reason};
    if (marks) mark(cell, reason);
}

/// What its line was when the code was missed first is known.
void CodeColumns::putBackMissed(const Cell& cell, const std::string& text, const std::string& reason) {
    missed_[cell] = {text, reason};
    mark(cell, reason);
}

void CodeColumns::mark(const Cell& cell, const std::string& reason) {
    if (const std::int32_t row = rowOf(cell); row >= 0)
        putProblem(c_.grid, row, c_.gridCol(cell.column), reason);
}

void CodeColumns::settleMissed(const Cell& cell) {
    const auto missed = missed_.find(cell);
    if (missed == missed_.end()) return;
    const std::string reason = missed->second.reason;
    missed_.erase(missed);
    if (const std::int32_t row = rowOf(cell); row >= 0)
        takeProblemAway(c_.grid, row, c_.gridCol(cell.column), reason);
}

void CodeColumns::retry(Answers& answers) {
    std::vector<Cell> there;
    for (const auto& [cell, missed] : std::map(missed_)) {
        if (rowOf(cell) < 0) continue;
        const std::string text = textOf(cell);
        const std::string reason = text.empty() ? std::string() : lookUp(cell.column, text, answers).reason;
        if (reason.empty())
            there.push_back(cell);
        else
            miss(cell, text, reason, true);
    }
    if (there.empty() || c_.gone) return;
    ChangeStep step = c_.grid.Step("补查编码");
    untilStepCloses();
    answers_ = answers;
    for (const Cell& cell : there)
        followLine(
            cell.row, [](std::int32_t) { return true; }, true);
    step.close();
}

std::string CodeColumns::reason(std::int32_t row, std::int32_t column, const std::string& text,
                                Answers& answers) const {
    if (text.empty()) return {};
    const auto missed = missed_.find({c_.cells().KnownId(row), column});
    if (missed != missed_.end() && missed->second.text == text) return missed->second.reason;
    return lookUp(column, text, answers).reason;
}

bool CodeColumns::paints() const {
    return std::any_of(c_.plans.begin(), c_.plans.end(),
                       [](const ColumnPlan& plan) { return plan.unknownColor.has_value(); });
}

void CodeColumns::paint(std::int32_t row) const {
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const std::optional<std::uint32_t> color = c_.plan(column).unknownColor;
        if (!color) continue;
        const std::int32_t col = c_.gridCol(column);
        const CellMark* const mark = c_.grid.Mark(row, col);
        const bool unknown =
            mark && mark->kind == CellMark::Kind::Problem && !c_.cells().Text(row, col).empty();
        const std::optional<std::uint32_t> wanted = unknown ? color : std::nullopt;
        if (c_.cells().CellForeColor(row, col) != wanted) c_.cells().CellForeColor(row, col, wanted);
    }
}

void CodeColumns::forget() {
    found_.clear();
    missed_.clear();
    doubtful_.clear();
    waiting_.clear();
    following_.clear();
    answers_.clear();
    copies_.clear();
}
}  // namespace kxVsGrid::sheet
