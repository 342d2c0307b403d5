#include "changes/DraftWriter.h"

#include <algorithm>

#include "changes/DraftFormat.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::changes {
namespace {

constexpr char LineEnd = '\n';
constexpr std::int32_t SliceRows = 512;
/// What waits for a sink that keeps nothing, or for the end of a step: more is cheaper to give anew.
constexpr std::size_t MostWaiting = std::size_t{16} << 20;
/// So much is given as a step closes, also anew or once more; the rest has to wait until nobody types.
constexpr std::size_t MostAtOnce = std::size_t{1} << 20;
}  // namespace

// --- What the host asks

void DraftWriter::begin(std::string_view key, std::string_view version) {
    Header header = headerNow(key, version);
    DraftPlace place;
    std::string lines(1, LineEnd);  // for what may have been torn before it
    appendHeader(lines, place, header, false);
    listening_.on(true);
    header_ = std::move(header);
    place_ = place;
    pending_ = std::move(lines);
    contentBytes_ = pending_.size();
    puts_.clear();
    changes_.clear();
    rowChanges_.clear();
    lastStep_.clear();
    steps_ = 0;
    given_.start(header_.fixedRows);
    whole_ = lost_ = failing_ = false;
    give(true);
}

void DraftWriter::put(std::string_view name, std::string_view bytes) {
    if (!listening_.on()) return;
    const auto kept = puts_.find(name);
    if (kept != puts_.end() && kept->second == bytes) return;
    puts_.insert_or_assign(std::string(name), std::string(bytes));
    attempt([&] {
        std::string fields = "P";
        appendField(fields, name);
        appendField(fields, bytes);
        appendLine(pending_, place_, fields);
    });
    give(true);
}

bool DraftWriter::writeSlice() {
    if (!listening_.on() || grid_.StepOpen()) return false;
    attempt([&] { closeLine({}, Cause::Code); });
    if (!whole_)
        attempt([&] {
            const std::size_t before = pending_.size();
            const std::int32_t first = given_.row();
            const std::int32_t count = std::min(SliceRows, grid_.Rows() - first);
            if (count > 0) appendSlice(pending_, place_, first, count);
            const bool last = first + count >= grid_.Rows();
            if (last) appendLine(pending_, place_, "E");
            given_.passed(first + count);
            whole_ = last;
            contentBytes_ += pending_.size() - before;
        });
    give(true);
    return !whole() && !failing_;
}

void DraftWriter::flush() {
    if (!listening_.on() || grid_.StepOpen()) return;
    attempt([&] { closeLine({}, Cause::Code); });
    give(true);
}

void DraftWriter::end() {
    listening_.on(false);
    pending_.clear();
    changes_.clear();
}

bool DraftWriter::rewrite(const Draft::Sink& into) {
    if (!listening_.on() || grid_.StepOpen()) return false;
    Whole whole = wholeNow(false);
    if (giveTo(into, whole.lines)) {
        takeOver(whole);
        return true;
    }
    // Whichever of the two goes on, all of it anew is right behind it.
    giveUpChanges();
    return false;
}

// --- What the engine tells

/// What cannot be noted is given anew later; the write itself goes on.
template <class Work>
void DraftWriter::attempt(Work work) noexcept {
    if (lost_) return;
    try {
        work();
        if (changes_.size() > MostWaiting || pending_.size() > MostWaiting) lost_ = true;
    } catch (...) {
        lost_ = true;
    }
    if (lost_) giveUpChanges();
}

/// They are told by the whole alone.
void DraftWriter::giveUpChanges() noexcept {
    lost_ = true;
    changes_.clear();
    pending_.clear();
}

void DraftWriter::written(std::int32_t row, std::int32_t col, CellPart part, std::string_view,
                          std::string_view after) noexcept {
    if (row < header_.fixedRows) return;
    changed_ = true;
    attempt([&] {
        changes_ += part == CellPart::Text ? "\tw" : "\tg";
        appendField(changes_, std::int64_t{row});
        appendField(changes_, std::int64_t{col});
        appendField(changes_, after);
    });
}

/// Also while the draft is lost: the whole has to say where the document's rows are now.
template <class Append>
void DraftWriter::noteRowChange(std::int32_t at, Append append) noexcept {
    changed_ = true;
    if (at < header_.fixedRows) return loseRows();
    try {
        std::string fields;
        append(fields);
        rowChanges_ += fields;
        if (!lost_) changes_ += fields;
    } catch (...) {
        loseRows();
    }
}

void DraftWriter::noteRows(const char* kind, std::int32_t at, std::int32_t count) noexcept {
    noteRowChange(at, [&](std::string& fields) {
        fields = kind;
        appendField(fields, std::int64_t{at});
        appendField(fields, std::int64_t{count});
    });
}

/// Where the document's rows stand is not known any more.
void DraftWriter::loseRows() noexcept {
    changed_ = true;
    header_.rows = -1;
    giveUpChanges();
}

void DraftWriter::added(std::int32_t at, std::int32_t count) noexcept {
    given_.added(at, count);
    noteRows("\ta", at, count);
}

void DraftWriter::removing(std::int32_t at, std::int32_t count) noexcept {
    given_.removing(at, count);
    noteRows("\tr", at, count);
}

/// Of rows that were sorted again and again, where those of the document stand would take more than all they
/// hold.
void DraftWriter::reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept {
    given_.reordered(first, from.size());
    noteRowChange(first, [&](std::string& fields) {
        const std::vector<DraftStretch> stretches = stretchesOf(from);
        fields = "\to";
        appendField(fields, std::int64_t{first});
        appendField(fields, static_cast<std::int64_t>(stretches.size()));
        for (const DraftStretch& one : stretches) {
            appendField(fields, std::int64_t{one.row});
            appendField(fields, std::int64_t{one.count});
        }
    });
    if (rowChanges_.size() > MostWaiting) loseRows();
    attempt([] {});
}

void DraftWriter::cleared(std::int32_t first, std::int32_t last) noexcept {
    changed_ = true;
    attempt([&] {
        changes_ += "\tc";
        appendField(changes_, std::int64_t{first});
        appendField(changes_, std::int64_t{last});
    });
}

void DraftWriter::stepOpened(std::string_view, Cause) noexcept {
    attempt([&] { closeLine({}, Cause::Code); });
    changed_ = false;
}

void DraftWriter::stepClosed(std::string_view name, Cause cause) noexcept {
    attempt([&] { closeLine(name, cause); });
    if (std::exchange(changed_, false)) noteStep(name);
    give(false);
}

void DraftWriter::noteStep(std::string_view name) noexcept {
    ++steps_;
    try {
        lastStep_ = name;
    } catch (...) {
        lastStep_.clear();
    }
}

/// What has changed since the last line becomes one; nothing is written for nothing.
void DraftWriter::closeLine(std::string_view name, Cause cause) {
    if (!fitsHeader()) lost_ = true;
    if (changes_.empty() || lost_) return;
    std::string fields = "T";
    appendField(fields, name);
    appendField(fields, static_cast<std::int64_t>(cause));
    fields += changes_;
    appendLine(pending_, place_, fields);
    changes_.clear();
}

bool DraftWriter::fitsHeader() const {
    return grid_.FixedRows() == header_.fixedRows && captionsOf(grid_) == header_.captions;
}

// --- Giving away

/// `idle`: there is time for more than a key press may take.
void DraftWriter::give(bool idle) noexcept {
    if (giving_) return;
    const support::FlagSpan giving(giving_);
    if (lost_) {
        if (!grid_.StepOpen() && (idle || (contentBytes_ <= MostAtOnce && !failing_))) giveAnew();
        return;
    }
    if (pending_.empty() || (!idle && failing_ && pending_.size() > MostAtOnce)) return;
    if (giveTo(sink_, pending_))
        pending_.clear();
    else if (!pending_.empty() && pending_.front() != LineEnd)
        attempt([&] { pending_.insert(pending_.begin(), LineEnd); });  // for what may have been torn
}

/// Behind what was given before. It counts only when it is whole.
void DraftWriter::giveAnew() noexcept {
    try {
        Whole whole = wholeNow(true);
        whole.lines.insert(whole.lines.begin(), LineEnd);  // for what may have been torn
        if (giveTo(sink_, whole.lines)) takeOver(whole);
    } catch (...) {
        // For want of memory: later.
    }
}

bool DraftWriter::giveTo(const Draft::Sink& sink, std::string_view bytes) noexcept {
    try {
        failing_ = !sink(bytes);
    } catch (...) {
        failing_ = true;
    }
    return !failing_;
}

/// It has been kept.
void DraftWriter::takeOver(Whole& whole) noexcept {
    contentBytes_ = whole.lines.size();
    place_ = whole.place;
    header_ = std::move(whole.header);
    given_.passed(grid_.Rows());
    whole_ = true;
    lost_ = false;
    changes_.clear();
    pending_.clear();
}

DraftWriter::Header DraftWriter::headerNow(std::string_view key, std::string_view version) const {
    return {std::string(key), std::string(version), grid_.Rows(), grid_.FixedRows(), captionsOf(grid_)};
}

DraftWriter::Whole DraftWriter::wholeNow(bool again) {
    Whole whole;
    whole.header = headerNow(header_.key, header_.version);
    const bool overDocument = header_.rows >= 0 && header_.fixedRows == grid_.FixedRows();
    whole.header.rows = overDocument ? header_.rows : -1;
    appendHeader(whole.lines, whole.place, whole.header, again);
    std::string fields = "R";
    appendField(fields, steps_);
    appendField(fields, lastStep_);
    if (overDocument) fields += rowChanges_;
    appendLine(whole.lines, whole.place, fields);
    appendPuts(whole.lines, whole.place);
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); row += SliceRows)
        appendSlice(whole.lines, whole.place, row, std::min(SliceRows, grid_.Rows() - row));
    appendLine(whole.lines, whole.place, "E");
    return whole;
}

/// Its number sets it apart from all others, and with it its lines.
void DraftWriter::appendHeader(std::string& out, DraftPlace& place, const Header& header, bool again) {
    std::string fields = "B";
    appendField(fields, std::int64_t{DraftFormat});
    appendField(fields, std::int64_t{headers_ + 1});
    appendField(fields, std::int64_t{again});
    appendField(fields, header.key);
    appendField(fields, header.version);
    appendField(fields, std::int64_t{header.rows >= 0});
    appendField(fields, std::int64_t{header.rows >= 0 ? header.rows : grid_.Rows()});
    appendField(fields, std::int64_t{header.fixedRows});
    appendField(fields, static_cast<std::int64_t>(header.captions.size()));
    for (const std::string& caption : header.captions) appendField(fields, caption);
    appendLine(out, place, fields);
    ++headers_;
}

void DraftWriter::appendPuts(std::string& out, DraftPlace& place) const {
    for (const auto& [name, bytes] : puts_) {
        std::string fields = "P";
        appendField(fields, name);
        appendField(fields, bytes);
        appendLine(out, place, fields);
    }
}

void DraftWriter::appendSlice(std::string& out, DraftPlace& place, std::int32_t first,
                              std::int32_t count) const {
    std::string fields = "S";
    appendField(fields, std::int64_t{first});
    appendField(fields, std::int64_t{count});
    grid_.ForEachCell(first, first + count - 1, [&](auto row, auto col, auto text, auto tag) {
        appendField(fields, std::int64_t{row});
        appendField(fields, std::int64_t{col});
        appendField(fields, text);
        appendField(fields, tag);
    });
    appendLine(out, place, fields);
}
}  // namespace kxVsGrid::changes

namespace kxVsGrid {

Draft::Draft(CellGrid& grid, Sink sink)
    : writer_(std::make_unique<changes::DraftWriter>(grid, std::move(sink))) {}
Draft::~Draft() = default;

void Draft::begin(std::string_view key, std::string_view version) {
    writer_->begin(key, version);
}
void Draft::put(std::string_view name, std::string_view bytes) {
    writer_->put(name, bytes);
}
bool Draft::writeSlice() {
    return writer_->writeSlice();
}
void Draft::flush() {
    writer_->flush();
}
void Draft::end() {
    writer_->end();
}
bool Draft::whole() const {
    return writer_->whole();
}
bool Draft::kept() const {
    return writer_->kept();
}
bool Draft::rewrite(const Sink& into) {
    return writer_->rewrite(into);
}
std::size_t Draft::contentBytes() const {
    return writer_->contentBytes();
}
}  // namespace kxVsGrid
