// Records that become the lines of a sheet: first their texts are made, aside, then they are put into the grid at
// once. What fails or is cancelled before that has touched nothing.
#include <algorithm>
#include <utility>

#include "sheet/SheetImpl.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::sheet {
namespace {

constexpr std::size_t Slice = 4096;  // records between two looks at the progress

/// The texts of one column, one behind the other.
struct Column {
    std::string texts;
    std::vector<std::size_t> ends;

    void add(const std::string& text) {
        texts += text;
        ends.push_back(texts.size());
    }
    std::vector<std::string_view> views() const {
        std::vector<std::string_view> views;
        views.reserve(ends.size());
        std::size_t begin = 0;
        for (const std::size_t end : ends) {
            views.emplace_back(texts.data() + begin, end - begin);
            begin = end;
        }
        return views;
    }
};
}  // namespace

struct SheetBody::Loading::Texts {
    std::shared_ptr<Impl> body;
    support::FlagSpan reading;
    std::size_t total;
    Progress progress;
    std::vector<Column> columns;
    std::vector<KeptRecord> records;
    std::vector<std::pair<std::int32_t, Computing::Failure>> failures;  ///< by line
    std::vector<RowId> rows;                                            ///< where the lines stand

    void place();
    void put(std::int32_t first) const {
        for (std::size_t i = 0; i < columns.size() && !body->context.gone; ++i)
            body->context.cells().Fill(body->context.gridCol(static_cast<std::int32_t>(i)), first,
                                       columns[i].views());
    }
};

SheetBody::Loading::Loading(SheetBody& body, std::size_t total, Progress progress) : texts_(nullptr) {
    if (body.impl_->reading) throw GridError("load: the sheet is being loaded already");
    texts_.reset(new Texts{
        body.impl_, support::FlagSpan(body.impl_->reading), total, std::move(progress), {}, {}, {}, {}});
    texts_->columns.resize(body.impl_->context.plans.size());
    for (Column& column : texts_->columns) column.ends.reserve(total);
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
    for (std::size_t i = 0; i < texts_->columns.size(); ++i)
        texts_->columns[i].add(body.lines.text(record.get(), static_cast<std::int32_t>(i)));
    texts_->records.push_back(std::move(record));
    return true;
}

/// A listener of any of these calls may take the sheet away, and the control with it.
void SheetBody::Loading::Texts::place() {
    kxGrid& grid = body->context.grid;
    const bool& gone = body->context.gone;
    const auto count = static_cast<std::int32_t>(records.size());
    const UnrecordedSpan unrecorded = grid.Unrecorded();
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
    body->computing.forgetMarks();
    body->codes.forget();
    body->faultMarks.forget();
    grid.ClearMarks();
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
        } catch (...) {
            if (body->context.gone) throw;
            // Half of the lines would be saved as all there are.
            body->context.grid.Clear();
            body->context.grid.ReDraw(true);
            body->saved.begin(body->lines, {}, {});
            throw;
        }
        if (body->context.gone) return true;
        body->saved.begin(body->lines, texts_->rows, std::move(texts_->records));
    }
    body->loaded(texts_->rows.empty());
    return true;
}
}  // namespace kxVsGrid::sheet
