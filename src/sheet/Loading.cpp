// Records that become the lines of a sheet: first their texts are made, aside, then they are put into the grid at
// once. What fails or is cancelled before that has touched nothing.
#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <utility>

#include "sheet/SheetImpl.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::sheet {
namespace {

constexpr std::size_t Slice = 4096;  // records between two looks at the progress

/// The texts of a slice of one column, one behind the other.
struct Part {
    std::string texts;
    std::vector<std::size_t> ends;

    /// In place of what `views` holds.
    std::span<const std::string_view> views(std::array<std::string_view, Slice>& views) const {
        std::size_t begin = 0;
        for (std::size_t i = 0; i < ends.size(); ++i) {
            views[i] = {texts.data() + begin, ends[i] - begin};
            begin = ends[i];
        }
        return {views.data(), ends.size()};
    }
};

/// The texts of one column, slice by slice: what was written is not moved as more comes.
struct Column {
    std::vector<Part> parts;

    void add(const std::string& text) {
        if (parts.empty() || parts.back().ends.size() == Slice) begin();
        Part& part = parts.back();
        part.texts += text;
        part.ends.push_back(part.texts.size());
    }
    void begin() {
        const std::size_t room = parts.empty() ? 0 : parts.back().texts.size();
        Part& part = parts.emplace_back();
        part.texts.reserve(room);
        part.ends.reserve(room > 0 ? Slice : 0);
    }
};
}  // namespace

struct SheetBody::Loading::Texts {
    std::shared_ptr<Impl> body;
    std::optional<support::FlagSpan> reading;
    std::size_t total;
    Progress progress;
    std::vector<Column> columns;
    std::vector<KeptRecord> records;
    std::vector<std::pair<std::int32_t, Computing::Failure>> failures;  ///< by line
    std::string text;                                                   ///< of the cell that is being made
    std::vector<RowId> rows;                                            ///< where the lines stand

    void place();
    void put(std::int32_t first);
};

SheetBody::Loading::Loading(SheetBody& body, std::size_t total, Progress progress) : texts_(nullptr) {
    if (body.impl_->reading) throw GridError("load: the sheet is being loaded already");
    texts_.reset(new Texts{body.impl_, {}, total, std::move(progress), {}, {}, {}, {}, {}});
    texts_->reading.emplace(body.impl_->reading);
    texts_->columns.resize(body.impl_->context.plans.size());
    texts_->records.reserve(total);
}

SheetBody::Loading::~Loading() = default;

bool SheetBody::Loading::goesOn() const {
    const bool goesOn = !texts_->progress || texts_->progress(texts_->records.size(), texts_->total);
    return goesOn && !texts_->body->context.gone;  // destroyed by it
}

bool SheetBody::Loading::add(AnyRecord record) {
    if (texts_->records.size() % Slice == 0 && !goesOn()) return false;
    const Impl& body = *texts_->body;
    for (Computing::Failure& failure : body.computing.fill(record.get()))
        texts_->failures.emplace_back(static_cast<std::int32_t>(texts_->records.size()), std::move(failure));
    for (std::size_t i = 0; i < texts_->columns.size(); ++i) {
        body.lines.putText(record.get(), static_cast<std::int32_t>(i), texts_->text);
        texts_->columns[i].add(texts_->text);
    }
    texts_->records.push_back(std::move(record));
    return true;
}

/// The control tells the clerk why it could not be written.
void SheetBody::Loading::Texts::put(std::int32_t first) {
    const auto views = std::make_unique<std::array<std::string_view, Slice>>();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::int32_t row = first;
        for (const Part& part : std::exchange(columns[i].parts, {})) {
            if (body->context.gone) return;
            const std::int32_t col = body->context.gridCol(static_cast<std::int32_t>(i));
            if (!body->context.grid.Fill(col, row, part.views(*views)) && !body->context.gone)
                throw GridError("load: the lines could not be put into the grid");
            row += static_cast<std::int32_t>(part.ends.size());
        }
    }
}

/// A listener of any of these calls may take the sheet away, and the control with it.
void SheetBody::Loading::Texts::place() {
    kxGrid& grid = body->context.grid;
    const bool& gone = body->context.gone;
    const auto count = static_cast<std::int32_t>(records.size());
    const UnrecordedSpan unrecorded = grid.Unrecorded();
    grid.Changes().Forget();  // what goes and comes now is nothing to be saved
    grid.ReDraw(false);
    if (!gone) grid.Clear();  // forgets what could be undone
    if (gone) return;
    const std::int32_t first = grid.FixedRows();
    grid.Rows(first + std::max(body->context.leastRows, count + 1));  // one more to key on in
    put(first);
    if (!gone) grid.ReDraw(true);
    if (!gone) grid.Grid().Select(first, grid.FixedCols());
    if (gone) return;
    rows.resize(records.size());
    grid.Grid().IdsOf(first, rows);
    body->forgetLines();
    for (const auto& [line, failure] : failures) body->computing.mark(first + line, failure);
}

bool SheetBody::Loading::finish() {
    const std::shared_ptr<Impl> body = texts_->body;
    texts_->total = texts_->records.size();
    if (body->context.gone || !goesOn()) return false;
    {
        const support::FlagSpan loading(body->loading);
        body->layOut();
        try {
            texts_->place();
            if (body->context.gone) return true;
            body->saved.begin(body->lines, texts_->rows, std::move(texts_->records));
        } catch (...) {
            if (!body->context.gone) body->loadNothing();
            throw;
        }
    }
    texts_->reading.reset();  // who is told may load others
    body->loaded(texts_->rows.empty());
    return true;
}
}  // namespace kxVsGrid::sheet
