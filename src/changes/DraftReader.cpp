#include "changes/DraftReader.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "changes/DraftFormat.h"

namespace kxVsGrid::changes {
namespace {

constexpr std::int32_t AnyNumber = std::numeric_limits<std::int32_t>::max();

/// What the changes of a line are for: tried with neither rows nor table, for the count alone, they change
/// nothing.
struct Target {
    std::int32_t count;  ///< of rows
    std::int32_t fixedRows;
    std::int32_t cols;
    DraftRows* rows;
    DraftTable* table;
};

bool readWrite(FieldReader& fields, const Target& target, CellPart part) {
    const std::int32_t row = fields.number(target.fixedRows, target.count - 1);
    const std::int32_t col = fields.number(0, target.cols - 1);
    const std::string_view text = fields.text();
    if (fields.good() && target.table) target.table->write(*target.rows, row, col, part, text);
    return fields.good();
}

bool readAdding(FieldReader& fields, Target& target) {
    const std::int32_t at = fields.number(target.fixedRows, target.count);
    const std::int32_t count = fields.number(1, CellGrid::MaxRows - target.count);
    if (!fields.good()) return false;
    target.count += count;
    if (target.rows) target.rows->add(at, count);
    if (target.table) target.table->add(at, count);
    return true;
}

bool readRemoving(FieldReader& fields, Target& target) {
    const std::int32_t at = fields.number(target.fixedRows, target.count - 1);
    const std::int32_t count = fields.number(1, target.count - at);
    if (!fields.good()) return false;
    target.count -= count;
    if (target.rows) target.rows->remove(at, count);
    if (target.table) target.table->remove(at, count);
    return true;
}

/// Together the stretches are the rows that they stand in place of.
bool fitTogether(std::vector<DraftStretch> order, std::int32_t first) {
    std::sort(order.begin(), order.end(),
              [](const DraftStretch& a, const DraftStretch& b) { return a.row < b.row; });
    std::int64_t next = first;
    for (const DraftStretch& stretch : order) {
        if (stretch.row != next) return false;
        next += stretch.count;
    }
    return true;
}

bool readReordering(FieldReader& fields, const Target& target) {
    const std::int32_t first = fields.number(target.fixedRows, target.count - 1);
    const std::int32_t stretches = fields.number(1, target.count - first);
    std::vector<DraftStretch> order;
    for (std::int32_t i = 0; i < stretches && fields.good(); ++i) {
        const std::int32_t row = fields.number(first, target.count - 1);
        order.push_back({row, fields.number(1, target.count - row)});
    }
    if (!fields.good() || !fitTogether(order, first)) return false;
    if (target.rows) target.rows->reorder(first, order);
    if (target.table) target.table->reorder(first, order);
    return true;
}

bool readClearing(FieldReader& fields, const Target& target) {
    const std::int32_t first = fields.number(0, target.count - 1);
    const std::int32_t last = fields.number(first, target.count - 1);
    if (!fields.good()) return false;
    if (target.rows) target.rows->know(first, last - first + 1);
    if (target.table) target.table->clear(first, last);
    return true;
}

bool readChange(FieldReader& fields, Target& target) {
    const std::string_view kind = fields.text();
    if (kind == "w") return readWrite(fields, target, CellPart::Text);
    if (kind == "g") return readWrite(fields, target, CellPart::Tag);
    if (kind == "a") return readAdding(fields, target);
    if (kind == "r") return readRemoving(fields, target);
    if (kind == "o") return readReordering(fields, target);
    return kind == "c" && readClearing(fields, target);
}

bool readChanges(FieldReader fields, Target target) {
    while (fields.good() && !fields.atEnd())
        if (!readChange(fields, target)) return false;
    return fields.good();
}

/// Nothing has changed when one of them is wrong.
bool readChanges(const FieldReader& fields, DraftRows& rows, std::int32_t cols, DraftTable* table) {
    const Target trial{rows.count(), rows.fixed(), cols, nullptr, nullptr};
    return readChanges(fields, trial) &&
           readChanges(fields, Target{rows.count(), rows.fixed(), cols, &rows, table});
}

bool readCells(FieldReader fields, std::int32_t first, std::int32_t count, std::int32_t cols,
               const DraftRows& rows, DraftTable* table) {
    while (fields.good() && !fields.atEnd()) {
        const std::int32_t row = fields.number(first, first + count - 1);
        const std::int32_t col = fields.number(0, cols - 1);
        const std::string text(fields.text());
        const std::string_view tag = fields.text();
        if (!fields.good() || !table) continue;
        table->write(rows, row, col, CellPart::Text, text);
        table->write(rows, row, col, CellPart::Tag, tag);
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
    info_.nothing = !info_.refusal.empty() && isTornHeader(bytes);
}

// --- Lines

void DraftReader::take(std::string_view line, std::size_t at, bool ended) {
    if (line.empty()) return;
    const auto read = ended ? readLine(line, draft_.place.checksum) : std::nullopt;
    const Use used = read ? use(*read) : Use::Bad;
    if (used == Use::Good) draft_.badLines = 0;
    if (used != Use::Bad) return;
    if (draft_.badLines++ == 0) draft_.badAt = at;
    draft_.torn = !ended;
}

DraftReader::Use DraftReader::use(const DraftLine& line) {
    FieldReader fields(line.fields);
    const std::string kind(fields.text());
    if (line.number == 1) {
        if (line.checksum == draft_.place.checksum && draft_.place.number > 0) return Use::Again;
        closed_ = kind != "B" || !begin(fields, line);
        return closed_ ? Use::Bad : Use::Good;
    }
    if (closed_ || draft_.place.number == 0 || line.number > draft_.place.number + 1) return Use::Bad;
    if (line.number <= draft_.place.number) return Use::Again;
    if (!useOne(kind, fields)) return Use::Bad;
    draft_.place.number = line.number;
    return Use::Good;
}

bool DraftReader::begin(FieldReader& fields, const DraftLine& line) {
    const std::int32_t format = fields.number(1, AnyNumber);
    if (fields.good() && format != DraftFormat) otherFormat_ = format;
    if (format != DraftFormat) return false;
    OneDraft next;
    fields.number(1, AnyNumber);  // which of the headers of its program it is: by it no two are alike
    const bool again = fields.number(0, 1) != 0;
    next.info.key = fields.text();
    next.info.version = fields.text();
    next.overDocument = fields.number(0, 1) != 0;
    next.info.rows = fields.number(0, CellGrid::MaxRows);
    next.rows = DraftRows(next.info.rows, fields.number(0, next.info.rows));
    next.cols = fields.number(0, CellGrid::MaxCols);
    for (std::int32_t col = 0; fields.good() && col < next.cols; ++col)
        next.info.captions.emplace_back(fields.text());
    if (!fields.good() || !fields.atEnd()) return false;
    next.place = {line.number, line.checksum};
    if (makesTable_)
        next.table = std::make_unique<DraftTable>(next.rows.count(), next.rows.fixed(), next.cols);
    if (!again || draft_.place.number == 0)
        before_.reset();
    else if (!before_)
        before_ = std::move(draft_);
    draft_ = std::move(next);
    return true;
}

bool DraftReader::useOne(std::string_view kind, FieldReader& fields) {
    if (kind == "R") return rowsSince(fields);
    if (kind == "S") return slice(fields);
    if (kind == "T") return step(fields);
    if (kind == "P") return put(fields);
    return kind == "E" && whole(fields);
}

bool DraftReader::rowsSince(FieldReader& fields) {
    const std::int32_t steps = fields.number(0, AnyNumber);
    const std::string last(fields.text());
    if (!fields.good() || !readChanges(fields, draft_.rows, draft_.cols, draft_.table.get())) return false;
    draft_.info.steps = static_cast<std::size_t>(steps);
    draft_.info.lastStep = last;
    return true;
}

bool DraftReader::slice(FieldReader& fields) {
    const std::int32_t first = fields.number(draft_.rows.fixed(), draft_.rows.count() - 1);
    const std::int32_t count = fields.number(1, draft_.rows.count() - first);
    if (!fields.good() || !readCells(fields, first, count, draft_.cols, draft_.rows, nullptr)) return false;
    draft_.rows.know(first, count);
    if (!draft_.table) return true;
    draft_.table->clear(first, first + count - 1);
    return readCells(fields, first, count, draft_.cols, draft_.rows, draft_.table.get());
}

bool DraftReader::step(FieldReader& fields) {
    const std::string name(fields.text());
    fields.number(0, AnyNumber);  // the cause
    if (!fields.good() || !readChanges(fields, draft_.rows, draft_.cols, draft_.table.get())) return false;
    if (name.empty()) return true;
    ++draft_.info.steps;
    draft_.info.lastStep = name;
    return true;
}

bool DraftReader::put(FieldReader& fields) {
    const std::string name(fields.text());
    const std::string_view bytes = fields.text();
    if (!fields.good()) return false;
    draft_.info.puts[name] = bytes;
    return true;
}

bool DraftReader::whole(const FieldReader& fields) {
    if (!fields.good() || !draft_.rows.knowsAll()) return false;
    draft_.info.whole = true;
    before_.reset();
    return true;
}

// --- What comes of it

std::string DraftReader::OneDraft::damage() const {
    if (badLines == 0 || (badLines == 1 && torn)) return {};
    return "the line at byte " + std::to_string(badAt) + " is damaged; " + std::to_string(badLines) +
           " lines from there on were not used";
}

void DraftReader::finish() {
    if (draft_.place.number == 0) {
        info_.refusal = otherFormat_ > 0 ? "the draft is of format " + std::to_string(otherFormat_) +
                                               ", not of format " + std::to_string(DraftFormat)
                                         : "these bytes are no draft";
        return;
    }
    std::string damage;
    if (before_ && !draft_.info.whole) {
        damage = "the draft was being written anew, which did not come to its end";
        const std::string own = before_->damage();
        if (!own.empty()) damage = own + "; " + damage;
        draft_ = std::move(*before_);
    } else {
        damage = draft_.damage();
    }
    info_ = draft_.info;
    info_.damage = std::move(damage);
}

std::string DraftReader::refusalFor(const CellGrid& grid, bool document) const {
    if (!info_.refusal.empty()) return info_.refusal;
    if (grid.FixedRows() != draft_.rows.fixed())
        return "the draft belongs to a grid of " + std::to_string(draft_.rows.fixed()) + " fixed rows";
    if (captionsOf(grid) != info_.captions) return "the draft belongs to a grid with other columns";
    if (!info_.whole && !(document && draft_.overDocument))
        return "the draft is not whole: it can be recovered over its document only";
    if (document && draft_.overDocument && grid.Rows() != info_.rows)
        return "the document has " + std::to_string(grid.Rows()) + " rows, the draft began with " +
               std::to_string(info_.rows);
    return {};
}

void DraftReader::putInto(CellGrid& grid, bool document) const {
    draft_.table->putInto(grid, draft_.rows, document && draft_.overDocument);
}
}  // namespace kxVsGrid::changes

namespace kxVsGrid {

DraftInfo lookAtDraft(std::string_view bytes) {
    return changes::DraftReader(bytes, false).info();
}

DraftInfo recoverDraft(CellGrid& grid, std::string_view bytes, bool document,
                       const std::function<void()>& before) {
    const changes::DraftReader draft(bytes, true);
    DraftInfo info = draft.info();
    info.refusal = draft.refusalFor(grid, document);
    if (!info.refusal.empty()) return info;
    if (before) before();
    draft.putInto(grid, document);
    return info;
}
}  // namespace kxVsGrid
