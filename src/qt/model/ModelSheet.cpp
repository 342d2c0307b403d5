#include "kxVsGrid/qt/ModelSheet.h"

#include "qt/model/SheetLink.h"

namespace kxVsGrid::qt {

ModelSheet::ModelSheet(kxGrid& grid, QAbstractItemModel& model, QObject* parent)
    : QObject(parent), link_(std::make_shared<Link>(*this, grid, model)) {
    try {
        link_->attach();
    } catch (...) {
        link_->leave();
        throw;
    }
}

ModelSheet::~ModelSheet() {
    link_->leave();
}

ModelColumn ModelSheet::column(const QString& name) {
    const int column = link_->columnNamed(name);
    if (column < 0) throw GridError("ModelSheet: there is no column " + name.toStdString());
    return {link_, column};
}

ModelColumn ModelSheet::column(int index) {
    if (index < 0 || index >= link_->columns())
        throw GridError("ModelSheet: there is no column " + std::to_string(index));
    return {link_, index};
}

void ModelSheet::mayInsert(bool may) {
    link_->allow(link_->mayInsert, may);
}

void ModelSheet::mayRemove(bool may) {
    link_->allow(link_->mayRemove, may);
}

void ModelSheet::setReason(std::function<QString()> reason) {
    link_->reason = std::move(reason);
}

bool ModelSheet::submit() {
    const auto link = link_;
    return link->submit();
}

bool ModelSheet::hasUnsent() const {
    return link_->hasUnsent();
}

bool ModelSheet::whole() const {
    return link_->whole();
}

void ModelSheet::fetchAll() {
    const auto link = link_;
    link->fetchAll();
}

std::int32_t ModelSheet::gridRow(const QModelIndex& index) const {
    return link_->gridRow(index);
}

std::int32_t ModelSheet::gridCol(const QModelIndex& index) const {
    return link_->gridCol(index);
}

QModelIndex ModelSheet::indexAt(std::int32_t row, std::int32_t col) const {
    return link_->indexAt(row, col);
}

// --- Columns

template <class Change>
ModelColumn& ModelColumn::change(Change change) {
    if (const auto link = link_.lock()) link->change(column_, change);
    return *this;
}

ModelColumn& ModelColumn::caption(const QString& text) {
    return change([&](ModelPlan& plan) {
        plan.caption = text.toStdString();
        plan.captioned = true;
    });
}

namespace {
auto become(FieldKind kind) {
    return [kind](ModelPlan& plan) {
        plan.kind = kind;
        plan.typed = true;
    };
}
}  // namespace

ModelColumn& ModelColumn::text() {
    return change(become(FieldKind::Text));
}
ModelColumn& ModelColumn::number() {
    return change(become(FieldKind::Number));
}
ModelColumn& ModelColumn::date() {
    return change(become(FieldKind::Date));
}
ModelColumn& ModelColumn::moment() {
    return change(become(FieldKind::Moment));
}
ModelColumn& ModelColumn::flag() {
    return change(become(FieldKind::Flag));
}
ModelColumn& ModelColumn::readOnly() {
    return change([](ModelPlan& plan) { plan.readOnly = true; });
}
ModelColumn& ModelColumn::hidden() {
    return change([](ModelPlan& plan) { plan.hidden = true; });
}
ModelColumn& ModelColumn::required() {
    return change([](ModelPlan& plan) { plan.required = true; });
}
ModelColumn& ModelColumn::keepsEmpty() {
    return change([](ModelPlan& plan) { plan.keepsEmpty = true; });
}
ModelColumn& ModelColumn::decimals(int count) {
    if (count < 0 || count > Decimal::MostDecimals)
        throw GridError("ModelColumn.decimals: " + std::to_string(count));
    return change([count](ModelPlan& plan) { plan.decimals = count; });
}
ModelColumn& ModelColumn::least(double number) {
    return change([number](ModelPlan& plan) { plan.least = number; });
}
ModelColumn& ModelColumn::format(const QString& pattern) {
    if (!CellGrid::IsFormat(pattern.toStdString()))
        throw GridError("ModelColumn.format: \"" + pattern.toStdString() + "\" is no format");
    return change([&](ModelPlan& plan) { plan.format = pattern.toStdString(); });
}
ModelColumn& ModelColumn::width(std::int32_t twips) {
    return change([twips](ModelPlan& plan) { plan.width = twips; });
}
ModelColumn& ModelColumn::width(const QString& sample) {
    return change([&](ModelPlan& plan) { plan.sample = sample.toStdString(); });
}
ModelColumn& ModelColumn::stretch() {
    return change([](ModelPlan& plan) { plan.stretch = true; });
}
ModelColumn& ModelColumn::total() {
    return change([](ModelPlan& plan) { plan.total = true; });
}
ModelColumn& ModelColumn::limit(int characters) {
    return change([characters](ModelPlan& plan) { plan.limit = static_cast<std::int16_t>(characters); });
}
ModelColumn& ModelColumn::alignment(mEmflexAlign where) {
    return change([where](ModelPlan& plan) { plan.alignment = where; });
}
}  // namespace kxVsGrid::qt
