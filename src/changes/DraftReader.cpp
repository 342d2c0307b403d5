#include "changes/DraftReader.h"

#include <limits>
#include <utility>

#include "changes/DraftFormat.h"

namespace kxVsGrid::changes {
namespace {

/// What the changes of a step lead to: the count of rows, and the table where there is one.
struct Target {
    std::int32_t rows;
    std::int32_t fixedRows;
    std::int32_t cols;
    DraftFrontier given;
    DraftTable* table;
};

bool readWrite(FieldReader& fields, Target& target, CellPart part) {
    const std::int32_t row = fields.number(target.fixedRows, target.rows - 1);
    const std::int32_t col = fields.number(0, target.cols - 1);
    const std::string_view text = fields.text();
    if (fields.good() && target.table) target.table->write(row, col, part, text);
    return fields.good();
}

bool readAdding(FieldReader& fields, Target& target) {
    const std::int32_t at = fields.number(target.fixedRows, target.rows);
    const std::int32_t count = fields.number(1, CellGrid::MaxRows - target.rows);
    if (!fields.good()) return false;
    target.rows += count;
    target.given.added(at, count);
    if (target.table) target.table->add(at, count);
    return true;
}

bool readRemoving(FieldReader& fields, Target& target) {
    const std::int32_t at = fields.number(target.fixedRows, target.rows - 1);
    const std::int32_t count = fields.number(1, target.rows - at);
    if (!fields.good()) return false;
    target.rows -= count;
    target.given.removing(at, count);
    if (target.table) target.table->remove(at, count);
    return true;
}

bool readClearing(FieldReader& fields, Target& target) {
    const std::int32_t first = fields.number(0, target.rows - 1);
    const std::int32_t last = fields.number(first, target.rows - 1);
    if (fields.good() && target.table) target.table->clear(first, last);
    return fields.good();
}

bool readChange(FieldReader& fields, Target& target) {
    const std::string_view kind = fields.text();
    if (kind == "w") return readWrite(fields, target, CellPart::Text);
    if (kind == "g") return readWrite(fields, target, CellPart::Tag);
    if (kind == "a") return readAdding(fields, target);
    if (kind == "r") return readRemoving(fields, target);
    return kind == "c" && readClearing(fields, target);
}

bool readCells(FieldReader& fields, std::int32_t first, std::int32_t count, std::int32_t cols,
               DraftTable* table) {
    while (fields.good() && !fields.atEnd()) {
        const std::int32_t row = fields.number(first, first + count - 1);
        const std::int32_t col = fields.number(0, cols - 1);
        const std::string text(fields.text());
        const std::string_view tag = fields.text();
        if (!fields.good() || !table) continue;
        table->write(row, col, CellPart::Text, text);
        table->write(row, col, CellPart::Tag, tag);
    }
    return fields.good();
}
}  // namespace

DraftReader::DraftReader(std::string_view bytes, bool makesTable) : makesTable_(makesTable) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t end = bytes.find('\n', at);
        const bool ended = end != std::string_view::npos;
        take(bytes.substr(at, ended ? end - at : end), at, ended);
        at = ended ? end + 1 : bytes.size();
    }
    finish();
}

void DraftReader::take(std::string_view line, std::size_t at, bool ended) {
    if (line.empty()) return;
    const auto read = ended ? readLine(line) : std::nullopt;
    if (read && use(*read)) {
        badLines_ = 0;
        return;
    }
    if (badLines_++ == 0) badAt_ = at;
    tornAtEnd_ = !ended;
}

bool DraftReader::use(const DraftLine& line) {
    FieldReader fields(line.fields);
    const std::string kind(fields.text());
    if (kind == "B" && line.number == 1) return begin(fields);
    if (!began_ || line.number > draft_.lines + 1) return false;
    if (line.number <= draft_.lines) return true;  // given once more
    if (!useOne(kind, fields)) return false;
    draft_.lines = line.number;
    return true;
}

bool DraftReader::begin(FieldReader& fields) {
    constexpr std::int32_t AnyFormat = std::numeric_limits<std::int32_t>::max();
    const std::int32_t format = fields.number(1, AnyFormat);
    if (fields.good() && format != DraftFormat) otherFormat_ = format;
    if (format != DraftFormat) return false;
    OneDraft next;
    next.again = fields.number(0, 1) != 0;
    next.info.key = fields.text();
    next.info.version = fields.text();
    next.rows = next.info.rows = fields.number(0, CellGrid::MaxRows);
    next.fixedRows = fields.number(0, next.rows);
    next.cols = fields.number(0, CellGrid::MaxCols);
    for (std::int32_t col = 0; fields.good() && col < next.cols; ++col)
        next.info.captions.emplace_back(fields.text());
    if (!fields.good() || !fields.atEnd()) return false;
    next.given.start(next.fixedRows);
    next.lines = 1;
    if (makesTable_) next.table = std::make_unique<DraftTable>(next.rows, next.fixedRows, next.cols);
    if (next.again && began_) {
        next.info.steps = draft_.info.steps;
        next.info.lastStep = draft_.info.lastStep;
        if (!before_) before_ = std::move(draft_);
    } else {
        before_.reset();
    }
    draft_ = std::move(next);
    began_ = true;
    return true;
}

bool DraftReader::useOne(std::string_view kind, FieldReader& fields) {
    if (kind == "S") return slice(fields);
    if (kind == "T") return step(fields);
    if (kind == "P") put(fields);
    if (kind == "E") whole();
    return (kind == "P" || kind == "E") && fields.good();
}

bool DraftReader::slice(FieldReader& fields) {
    const std::int32_t first = fields.number(draft_.given.row(), draft_.given.row());
    const std::int32_t count = fields.number(1, draft_.rows - draft_.given.row());
    if (!fields.good()) return false;
    FieldReader trial = fields;
    if (!readCells(trial, first, count, draft_.cols, nullptr)) return false;
    draft_.given.passed(first + count);
    if (!draft_.table) return true;
    draft_.table->beginSlice(count);
    return readCells(fields, first, count, draft_.cols, draft_.table.get());
}

bool DraftReader::step(FieldReader& fields) {
    const std::string name(fields.text());
    fields.number(0, std::numeric_limits<std::int32_t>::max());  // the cause
    Target trial{draft_.rows, draft_.fixedRows, draft_.cols, draft_.given, nullptr};
    FieldReader changes = fields;
    while (changes.good() && !changes.atEnd())
        if (!readChange(changes, trial)) return false;
    if (!changes.good()) return false;
    Target target{draft_.rows, draft_.fixedRows, draft_.cols, draft_.given, draft_.table.get()};
    if (target.table)
        while (!fields.atEnd() && readChange(fields, target)) {
        }
    draft_.rows = trial.rows;
    draft_.given = trial.given;
    if (name.empty()) return true;
    ++draft_.info.steps;
    draft_.info.lastStep = name;
    return true;
}

void DraftReader::put(FieldReader& fields) {
    const std::string name(fields.text());
    const std::string_view bytes = fields.text();
    if (fields.good()) draft_.info.puts[name] = bytes;
}

void DraftReader::whole() {
    draft_.info.whole = true;
    before_.reset();
}

void DraftReader::finish() {
    if (!began_) {
        info_.refusal = otherFormat_ > 0 ? "the draft is of format " + std::to_string(otherFormat_) +
                                               ", not of format " + std::to_string(DraftFormat)
                                         : "these bytes are no draft";
        return;
    }
    const bool fellBack = before_ && !draft_.info.whole;
    if (fellBack) draft_ = std::move(*before_);
    info_ = draft_.info;
    const bool torn = badLines_ == 1 && tornAtEnd_;
    if (badLines_ > 0 && !torn)
        info_.damage = "the line at byte " + std::to_string(badAt_) + " is damaged; " +
                       std::to_string(badLines_) + " lines from there on were not used";
    else if (fellBack)
        info_.damage = "the draft was being written anew, which did not come to its end";
}
}  // namespace kxVsGrid::changes

namespace kxVsGrid {

DraftInfo lookAtDraft(std::string_view bytes) {
    return changes::DraftReader(bytes, false).info();
}

namespace {

std::string refusalFor(const CellGrid& grid, const changes::DraftReader& draft, bool document) {
    const DraftInfo& info = draft.info();
    if (!info.refusal.empty()) return info.refusal;
    if (changes::captionsOf(grid) != info.captions || grid.FixedRows() != draft.fixedRows())
        return "the draft belongs to a grid with other columns";
    if (document && grid.Rows() != info.rows)
        return "the document has " + std::to_string(grid.Rows()) + " rows, the draft began with " +
               std::to_string(info.rows);
    if (!document && !info.whole) return "the draft is not whole: it can be recovered over its document only";
    return {};
}
}  // namespace

DraftInfo recoverDraft(CellGrid& grid, std::string_view bytes, bool document) {
    const changes::DraftReader draft(bytes, true);
    DraftInfo info = draft.info();
    info.refusal = refusalFor(grid, draft, document);
    if (info.refusal.empty()) draft.table()->putInto(grid, document);
    return info;
}
}  // namespace kxVsGrid
