// The columns of a model in a grid.
#include <algorithm>

#include "qt/model/SheetLink.h"
#include "sheet/ColumnLook.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {
namespace {

constexpr int LookedAt = 16;  // rows whose values say what a column holds

/// Without what FormatString reads in another way.
std::string plainCaption(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '|' || c == ';'; }, ' ');
    return text.empty() ? " " : text;
}
}  // namespace

std::string ModelSheet::Link::headerOf(int column) const {
    return model().headerData(column, Qt::Horizontal).toString().toStdString();
}

int ModelSheet::Link::columnNamed(const QString& name) const {
    const std::string sought = name.toStdString();
    for (const auto member : {&ModelPlan::header, &ModelPlan::caption})
        for (int column = 0; column < columns(); ++column)
            if (plans_[static_cast<std::size_t>(column)].*member == sought) return column;
    return -1;
}

/// What was said of a column stays with it as long as there is one of its name. False when they are the same ones.
bool ModelSheet::Link::planColumns() {
    std::vector<ModelPlan> plans(static_cast<std::size_t>(model().columnCount()));
    for (int column = 0; column < static_cast<int>(plans.size()); ++column) {
        ModelPlan& plan = plans[static_cast<std::size_t>(column)];
        plan.header = plan.caption = headerOf(column);
        const bool same = column < columns() && this->plan(column).header == plan.header;
        const auto known = same ? plans_.begin() + column
                                : std::find_if(plans_.begin(), plans_.end(), [&](const ModelPlan& one) {
                                      return one.header == plan.header;
                                  });
        if (known == plans_.end()) continue;
        plan = *known;
        plan.before = static_cast<int>(known - plans_.begin());
    }
    bool same = plans.size() == plans_.size();
    for (int column = 0; column < static_cast<int>(plans.size()); ++column)
        same = same && plans[static_cast<std::size_t>(column)].before == column;
    plans_ = std::move(plans);
    return !same;
}

/// True when a column has turned out to hold something else.
bool ModelSheet::Link::guess() {
    bool others = false;
    const int rows = std::min(model().rowCount(), LookedAt);
    for (int column = 0; column < columns(); ++column) {
        ModelPlan& plan = this->plan(column);
        const FieldKind before = plan.kind;
        for (int row = 0; row < rows && !plan.valueType.isValid(); ++row)
            plan.guess(index(row, column).data(Qt::EditRole));
        others = others || plan.kind != before;
    }
    return others;
}

void ModelSheet::Link::layOut() {
    const support::FlagSpan fetching(fetching_);  // nothing is looked at meanwhile
    const Own own(*this, -1, -1, -1);
    kxGrid& grid = theGrid_;
    grid.Cols(grid.FixedCols() + columns());
    if (!there()) return;
    std::vector<std::string> captions;
    for (const ModelPlan& plan : plans_) captions.push_back(plainCaption(plan.caption));
    sheet::putCaptions(grid, captions);
    digits_ = 0;
    if (there()) fitNumbers();
    if (there()) define();
}

void ModelSheet::Link::define() {
    for (int column = 0; column < columns() && there(); ++column)
        plan(column).define(theGrid_, colOf(column));
    if (there()) allowWhole();
}

void ModelSheet::Link::allowWhole() {
    for (int column = 0; column < columns(); ++column)
        plan(column).allow(theGrid_, colOf(column), wholeTold_);
    const bool totals =
        std::any_of(plans_.begin(), plans_.end(), [](const ModelPlan& plan) { return plan.total; });
    if (totals != theGrid_.SumRow()) theGrid_.SumRow(totals);
    if (there()) theGrid_.ReDraw(true);
    if (there()) fit();
}

void ModelSheet::Link::recaption(int first, int last) {
    for (int column = first; column <= last && column < columns() && there(); ++column) {
        ModelPlan& plan = this->plan(column);
        if (!plan.captioned) {
            plan.header = plan.caption = headerOf(column);
            theGrid_.VsCtrl(static_cast<std::int16_t>(colOf(column)))->sName(plan.caption);
        }
        if (firstRow() == 0) continue;
        const Own own(*this, -1, -1, -1);
        cells().Text(0, colOf(column), plan.caption);
    }
}

void ModelSheet::Link::change(int column, const std::function<void(ModelPlan&)>& change) {
    if (!there() || column >= columns()) return;
    const auto self = shared_from_this();
    ModelPlan& plan = this->plan(column);
    const FieldKind before = plan.kind;
    change(plan);
    plan.define(theGrid_, colOf(column));
    recaption(column, column);
    if (there()) allowWhole();
    if (!there() || plan.kind == before) return;
    map_.allLost();
    fetchVisible();
    missed();
}

void ModelSheet::Link::allow(bool& what, bool may) {
    what = may;
    if (!there()) return;
    const auto self = shared_from_this();
    const int last = map_.rows() - 1;
    if (!takesRows() && last > 0 && map_.modelRow(last) < 0 && isEmpty(last))
        removeRows({last});
    else
        ensureSpare();
}

void ModelSheet::Link::fit() {
    if (fitting_ || fetching_) return;
    const auto stretched =
        std::find_if(plans_.begin(), plans_.end(), [](const ModelPlan& plan) { return plan.stretch; });
    if (stretched == plans_.end()) return;
    const support::FlagSpan fitting(fitting_);
    const std::int32_t col = colOf(static_cast<int>(stretched - plans_.begin()));
    if (col < theGrid_.Cols()) sheet::stretch(theGrid_, col);
}

/// Room for the row numbers; a width that the clerk has dragged stays as long as they have no more digits.
void ModelSheet::Link::fitNumbers() {
    if (theGrid_.FixedCols() == 0) return;
    const std::size_t digits = std::max(std::size_t{4}, std::to_string(map_.rows()).size());
    if (digits <= digits_) return;
    digits_ = digits;
    theGrid_.ColSample(0, std::string(digits + 1, '0'));
}

// --- The model's columns have become others

void ModelSheet::Link::changeColumns(const std::function<void()>& change) {
    if (open_.isValid()) submitOpen();
    if (!there()) return;
    const support::FlagSpan flushing(flushing_);
    for (int column = 0; column < columns(); ++column) plan(column).before = column;
    std::vector<std::pair<int, std::vector<std::string>>> loose;
    for (int row = 0; row < map_.rows(); ++row) {
        if (map_.modelRow(row) >= 0 || isEmpty(row)) continue;
        auto& texts = loose.emplace_back(row, std::vector<std::string>()).second;
        for (int column = 0; column < columns(); ++column)
            texts.push_back(cells().Text(row + firstRow(), colOf(column)));
    }
    change();
    const auto renumber = [this](Cols& cols) {
        Cols now;
        for (int column = 0; column < columns(); ++column)
            if (std::find(cols.begin(), cols.end(), plan(column).before) != cols.end()) now.push_back(column);
        cols = std::move(now);
    };
    for (auto& [row, cols] : dirty_) renumber(cols);
    for (auto& [row, cols] : born_) renumber(cols);
    for (int column = 0; column < columns(); ++column) {
        ModelPlan& plan = this->plan(column);
        if (plan.before < 0) plan.header = plan.caption = headerOf(column);
    }
    guess();
    layOut();
    for (const auto& [row, texts] : loose)
        for (int column = 0; column < columns() && there(); ++column) {
            const int before = plan(column).before;
            put(row, column, before < 0 ? std::string() : texts[static_cast<std::size_t>(before)]);
        }
    if (!there()) return;
    map_.allLost();
    fetchVisible();
    missed();
}
}  // namespace kxVsGrid::qt
