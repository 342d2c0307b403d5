#include "changes/DraftWriter.h"

#include <algorithm>
#include <utility>

#include "changes/DraftFormat.h"
#include "changes/DraftLine.h"

namespace kxVsGrid::changes {
namespace {

constexpr std::int32_t SliceRows = 512;
constexpr char LineEnd = '\n';
/// What waits for a sink that keeps nothing, or for the end of a step: more is cheaper to give anew.
constexpr std::size_t MostWaiting = std::size_t{64} << 20;
}  // namespace

// --- What the host asks

void DraftWriter::begin(std::string_view key, std::string_view version) {
    std::string newKey(key);
    std::string newVersion(version);
    if (!begun_) grid_.AddListener(*this);
    begun_ = true;
    key_ = std::move(newKey);
    version_ = std::move(newVersion);
    puts_.clear();
    changes_.clear();
    pending_.clear();
    number_ = 0;
    whole_ = lost_ = false;
    appendHeader(pending_, false);
    contentBytes_ = pending_.size();
    frontier_.start(fixedRows_);
    give();
}

void DraftWriter::put(std::string_view name, std::string_view bytes) {
    if (!begun_) return;
    std::string& kept = puts_[std::string(name)];
    if (kept == bytes) return;
    kept = bytes;
    std::string fields = "P";
    appendField(fields, name);
    appendField(fields, bytes);
    appendLine(pending_, ++number_, fields);
    give();
}

bool DraftWriter::writeSlice() {
    if (!begun_ || whole_ || stepOpen_ || lost_ || !fitsHeader()) return false;
    attempt([&] { closeLine({}, Cause::Code); });
    attempt([&] {
        const std::int32_t first = frontier_.row();
        const std::int32_t count = std::min(SliceRows, grid_.Rows() - first);
        const std::size_t before = pending_.size();
        if (count > 0) appendSlice(pending_, first, count);
        frontier_.passed(first + std::max(count, 0));
        if (frontier_.row() >= grid_.Rows()) {
            appendEnd(pending_);
            whole_ = true;
        }
        contentBytes_ += pending_.size() - before;
    });
    give();
    return !whole_ && !lost_;
}

void DraftWriter::flush() {
    if (!begun_ || stepOpen_) return;
    attempt([&] { closeLine({}, Cause::Code); });
    give();
}

void DraftWriter::end() {
    if (!std::exchange(begun_, false)) return;
    grid_.RemoveListener(*this);
    stepOpen_ = false;
    pending_.clear();
    changes_.clear();
}

bool DraftWriter::rewrite(const Draft::Sink& into) {
    if (!begun_ || stepOpen_) return false;
    const std::uint64_t number = number_;
    const bool fitted = fitsHeader();
    const std::string all = allAnew(false);
    if (!giveTo(into, all)) {
        number_ = number;
        if (!fitted) lost_ = true;
        return false;
    }
    contentBytes_ = all.size();
    frontier_.passed(grid_.Rows());
    whole_ = true;
    lost_ = false;
    changes_.clear();
    pending_.clear();
    return true;
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

void DraftWriter::giveUpChanges() noexcept {
    lost_ = true;
    changes_.clear();
    pending_.clear();
}

void DraftWriter::written(std::int32_t row, std::int32_t col, CellPart part, std::string_view,
                          std::string_view after) noexcept {
    if (row < fixedRows_) return;
    attempt([&] {
        changes_ += part == CellPart::Text ? "\tw" : "\tg";
        appendField(changes_, std::int64_t{row});
        appendField(changes_, std::int64_t{col});
        appendField(changes_, after);
    });
}

void DraftWriter::added(std::int32_t at, std::int32_t count) noexcept {
    frontier_.added(at, count);
    if (at < fixedRows_) return giveUpChanges();
    attempt([&] {
        changes_ += "\ta";
        appendField(changes_, std::int64_t{at});
        appendField(changes_, std::int64_t{count});
    });
}

void DraftWriter::removing(std::int32_t at, std::int32_t count) noexcept {
    frontier_.removing(at, count);
    if (at < fixedRows_) return giveUpChanges();
    attempt([&] {
        changes_ += "\tr";
        appendField(changes_, std::int64_t{at});
        appendField(changes_, std::int64_t{count});
    });
}

void DraftWriter::reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept {
    frontier_.reordered(first, static_cast<std::int32_t>(from.size()));
    giveUpChanges();  // as many numbers as rows: all of it anew is hardly more
}

void DraftWriter::cleared(std::int32_t first, std::int32_t last) noexcept {
    attempt([&] {
        changes_ += "\tc";
        appendField(changes_, std::int64_t{first});
        appendField(changes_, std::int64_t{last});
    });
}

void DraftWriter::stepOpened(std::string_view, Cause) noexcept {
    attempt([&] { closeLine({}, Cause::Code); });
    stepOpen_ = true;
}

void DraftWriter::stepClosed(std::string_view name, Cause cause) noexcept {
    stepOpen_ = false;
    attempt([&] { closeLine(name, cause); });
    give();
}

// --- Lines

/// What has changed since the last line becomes one; nothing is written for nothing.
void DraftWriter::closeLine(std::string_view name, Cause cause) {
    if (!fitsHeader()) lost_ = true;
    if (changes_.empty() || lost_) return;
    std::string fields = "T";
    appendField(fields, name);
    appendField(fields, static_cast<std::int64_t>(cause));
    fields += changes_;
    appendLine(pending_, number_ + 1, fields);
    ++number_;
    changes_.clear();
}

void DraftWriter::give() noexcept {
    if (lost_) {
        try {
            giveAnew();
        } catch (...) {
            // For want of memory: with the next step.
        }
        return;
    }
    if (pending_.empty()) return;
    if (giveTo(sink_, pending_))
        pending_.clear();
    else if (pending_.front() != LineEnd)
        attempt([&] { pending_.insert(pending_.begin(), LineEnd); });  // for what may have been torn
}

/// Behind what was given before. It counts only when it is whole.
void DraftWriter::giveAnew() {
    if (stepOpen_) return;
    std::string all(1, LineEnd);  // for what may have been torn
    all += allAnew(true);
    if (!giveTo(sink_, all)) return;
    contentBytes_ = all.size();
    frontier_.passed(grid_.Rows());
    whole_ = true;
    lost_ = false;
    changes_.clear();
    pending_.clear();
}

bool DraftWriter::giveTo(const Draft::Sink& sink, std::string_view bytes) const noexcept {
    try {
        return sink(bytes);
    } catch (...) {
        return false;
    }
}

std::string DraftWriter::allAnew(bool again) {
    std::string all;
    number_ = 0;
    appendHeader(all, again);
    appendPuts(all);
    for (std::int32_t row = fixedRows_; row < grid_.Rows(); row += SliceRows)
        appendSlice(all, row, std::min(SliceRows, grid_.Rows() - row));
    appendEnd(all);
    return all;
}

void DraftWriter::appendHeader(std::string& out, bool again) {
    fixedRows_ = grid_.FixedRows();
    cols_ = grid_.Cols();
    std::string fields = "B";
    appendField(fields, std::int64_t{DraftFormat});
    appendField(fields, std::int64_t{again});
    appendField(fields, key_);
    appendField(fields, version_);
    appendField(fields, std::int64_t{grid_.Rows()});
    appendField(fields, std::int64_t{fixedRows_});
    appendField(fields, std::int64_t{cols_});
    for (const std::string& caption : captionsOf(grid_)) appendField(fields, caption);
    appendLine(out, ++number_, fields);
}

void DraftWriter::appendPuts(std::string& out) {
    for (const auto& [name, bytes] : puts_) {
        std::string fields = "P";
        appendField(fields, name);
        appendField(fields, bytes);
        appendLine(out, ++number_, fields);
    }
}

void DraftWriter::appendSlice(std::string& out, std::int32_t first, std::int32_t count) {
    std::string fields = "S";
    appendField(fields, std::int64_t{first});
    appendField(fields, std::int64_t{count});
    grid_.ForEachCell(first, first + count - 1, [&](auto row, auto col, auto text, auto tag) {
        appendField(fields, std::int64_t{row});
        appendField(fields, std::int64_t{col});
        appendField(fields, text);
        appendField(fields, tag);
    });
    appendLine(out, ++number_, fields);
}

void DraftWriter::appendEnd(std::string& out) {
    appendLine(out, ++number_, "E");
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
