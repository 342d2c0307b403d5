#include "OrderGrid.h"

#include <algorithm>

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

OrderGrid::OrderGrid(kxGrid& grid, Services services)
    : grid_(grid), services_(std::move(services)), sheet_(grid) {
    setUpColumns();
    sheet_.load(std::vector<OrderLine>());
    setUpKeys();
    connectEvents();
}

void OrderGrid::setUpKeys() {
    // Enter follows what most lines need, code and quantity: a known code brings the rest of its line, new
    // rows get warehouse and delivery. On a closed cell it stops where something is still to be keyed.
    for (const Column brought : {Unit, Price, Warehouse, Delivery, Slot, Entered})
        grid_.Options(brought).skipFilled(true);
    grid_.VsCtrl(Quantity)->i是否允许为空(i字段不能为零);
    grid_.VsCtrl(Warehouse)->i是否允许为空(i字段不能为空);
    grid_.VsCtrl(Slot)->i有效性判断(1);
    grid_.VsCtrl(Slot)->i字段有效性判断类型(ij半日型);
    grid_.VsCtrl(Unit)->iColAlignment(flexAlignCenterCenter);
    for (const Column right : {Delivery, Slot, Entered})
        grid_.VsCtrl(right)->iColAlignment(flexAlignRightCenter);
    grid_.Options(Price).smallest(0);  // returned goods have a quantity below 0; a price never is
    // F3 alone leads to the warehouse.
    constexpr std::int16_t F3 = 114;
    grid_.Commands().Unbind(F3, 0);
    grid_.Commands().Unbind(F3, ShiftKey);
    grid_.Commands().Bind({Command::FindNext, F3, CtrlKey});
    grid_.Commands().Bind({Command::FindPrevious, F3, CtrlKey + ShiftKey});
    GridOptions& options = grid_.Options();
    options.EscRestores(true);
    options.EnterPassesReadOnly(true);
    options.PressToggles(true);
    options.ReadOnlyShade(6);  // an approved order looks closed
    options.HeaderMenu(true);
    options.Refusals(GridOptions::RefusalStyle::Beside);  // the clerk keys on
    grid_.bIsShowZero(true);                              // a price of 0 is a price
    grid_.BackColorBkg(0x8000000F);
    grid_.ColWidth(RowNumber, 500);
    grid_.ColSample(RowNumber, "00000 ");
    grid_.FrozenCols(Name - grid_.FixedCols() + 1);  // what a line is about stays in view
}

void OrderGrid::connectEvents() {
    auto& all = connections_;
    all.push_back(grid_.AfterAddRow.connect([this](bool& keeps, std::int32_t row, bool copied, std::int32_t) {
        if (!copied) return;
        // Goods are what a copied line is for.
        keeps = !sheet_.record(row).code.isEmpty();
        if (keeps)
            sheet_.edit(row, [this](OrderLine& line) { line.entered = services_.now(); });
        else
            emit said(u"没有货号的行不复制,新增了一个空行"_s, false);
    }));
    all.push_back(grid_.Changes().After.connect([this](const StepChanges& step) {
        if (!step.known)
            for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) colourCode(row);
        for (const std::int32_t row : step.rows) colourCode(row);
        emit changed();
    }));
    all.push_back(grid_.Filters().Changed.connect([this] { emit changed(); }));
    all.push_back(grid_.RowColChange.connect([this] { emit moved(); }));
    all.push_back(grid_.SelChange.connect([this] { emit selected(); }));
}

// --- One order after the other.

void OrderGrid::clear(const QDate& delivery) {
    show({}, delivery);
    putPresets(grid_.FixedRows());
}

void OrderGrid::show(const std::vector<OrderLine>& lines, const QDate& delivery) {
    sheet_.load(lines);
    presetDelivery(delivery);
}

void OrderGrid::presetDelivery(const QDate& delivery) {
    preset_.delivery = delivery;
    preset_.slot = delivery.isValid() ? delivery.toString(Qt::ISODate) + u" 上午"_s : QString();
    sheet_.preset("delivery", preset_.delivery);
    sheet_.preset("slot", preset_.slot);
}

void OrderGrid::presetWarehouse(const QString& name) {
    preset_.warehouse = name;
    sheet_.preset("warehouse", name);
}

void OrderGrid::putPresets(OrderLine& line) const {
    if (line.warehouse.isEmpty()) line.warehouse = preset_.warehouse;
    if (!line.delivery.isValid()) line.delivery = preset_.delivery;
    if (line.slot.isEmpty()) line.slot = preset_.slot;
}

void OrderGrid::putPresets(std::int32_t row) {
    const UnrecordedSpan unrecorded = grid_.Unrecorded();
    sheet_.edit(row, [this](OrderLine& line) { putPresets(line); });
}

void OrderGrid::recovered(const QDate& delivery) {
    presetDelivery(delivery);
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) colourCode(row);
    selectEnd();
}

void OrderGrid::goTo(std::int32_t row, std::int32_t col) {
    const UnrecordedSpan unrecorded = grid_.Unrecorded();
    select(row, col);
}

void OrderGrid::selectEnd() {
    std::int32_t row = grid_.Rows() - 1;
    while (row > grid_.FixedRows() && !sheet_.isInUse(row - 1)) --row;
    goTo(row, Code);
    if (!sheet_.isInUse(row)) putPresets(row);
}

LineChanges OrderGrid::unsaved() const {
    LineChanges result;
    const RecordChanges<OrderLine> changes = sheet_.changes();
    result.unknown = grid_.Changes().Unknown();
    result.moved = sheet_.moved();
    result.added = !changes.added.empty();
    for (const auto& line : changes.changed) result.changed.push_back(line.after.id);
    for (const auto& line : changes.removed) result.removed.push_back(line.before.id);
    return result;
}

// --- What follows from what the clerk types.

void OrderGrid::edited(OrderLine& line, const sheet::Edited& cell) {
    const QString day = line.delivery.toString(Qt::ISODate);
    if (cell.column == "delivery" && !day.isEmpty() && line.slot.contains(u' '))
        line.slot = day + line.slot.mid(line.slot.indexOf(u' '));  // the half day stays
    if (line.quantity && line.price && !amountOf(*line.quantity, *line.price))
        emit said(u"数量乘以单价太大,金额没有计算"_s, true);
    if (cell.filled || line.isEmpty()) return;
    if (cell.column != "entered" && !line.entered.isValid()) line.entered = services_.now();
    // A code that came with a block: the clerk has not been to its row. Presets that a block empties stay empty.
    if (cell.column == "code" && cell.row != grid_.Row() && !line.code.isEmpty() &&
        line.warehouse.isEmpty() && day.isEmpty() && line.slot.isEmpty())
        putPresets(line);
}

std::optional<Goods> OrderGrid::goodsOf(const QString& code) try {
    return services_.goods(code);
} catch (const DatabaseError& error) {
    // The clerk goes on; the code is looked up again when the order is saved.
    emit said(u"货号 %1 没有查到品名:"_s.arg(code) + error.text().simplified(), true);
    throw;
}

// By code or by name.
std::optional<CodeAndName> OrderGrid::warehouseOf(const QString& typed) const {
    const QString query = QString::fromUtf8(WarehouseQuery);
    if (const auto coded = services_.find(query, u"code"_s, u"name"_s, typed.toUpper())) return coded;
    const auto named = services_.find(query, u"name"_s, u"code"_s, typed);
    return named ? std::optional(CodeAndName{named->name, named->code}) : std::nullopt;
}

/// Colours are not undone: each step, and each way back, colours its rows as they are then.
void OrderGrid::colourCode(std::int32_t row) {
    if (row < grid_.FixedRows() || row >= grid_.Rows()) return;
    const CellMark* const mark = grid_.Mark(row, Code);
    const bool unknown =
        mark && mark->kind == CellMark::Kind::Problem && !grid_.Grid().Text(row, Code).empty();
    grid_.Grid().CellForeColor(row, Code, unknown ? std::optional(0x0000C0u) : std::nullopt);
}

bool OrderGrid::mayDeleteRows(const std::vector<std::int32_t>& rows) {
    const auto filled = std::ranges::count_if(rows, [this](std::int32_t row) { return sheet_.isInUse(row); });
    if (filled == 0 || !mayDelete_) return true;
    if (rows.size() > 1) {
        const QString some = filled < std::ssize(rows) ? u"(其中 %1 行有内容)"_s.arg(filled) : QString();
        return mayDelete_(u"选中的 %1 行"_s.arg(rows.size()) + some);
    }
    const OrderLine line = sheet_.record(rows[0]);
    return mayDelete_(
        u"第 %1 行 %2 %3"_s.arg(QString::number(rows[0] - grid_.FixedRows() + 1), line.code, line.name));
}

// --- Saving.

bool OrderGrid::commit() {
    // Reading a cell commits what is being typed. What is refused stays in the editor.
    grid_.ReadCell(grid_.Row(), grid_.Col());
    if (grid_.editorView().visible) return false;
    if (!grid_.Editable()) return true;
    sheet_.recompute();
    // A line that the clerk has not been to gets what is preset, where that is missing.
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row)
        if (const OrderLine line = sheet_.record(row);
            !line.code.isEmpty() && line.warehouse.isEmpty() && !preset_.warehouse.isEmpty())
            sheet_.edit(row, [this](OrderLine& one) { putPresets(one); });
    return true;
}

std::optional<OrderGrid::Problem> OrderGrid::firstProblem() {
    const auto fault = sheet_.firstFault();
    if (!fault) return std::nullopt;
    const QString text =
        u"第 %1 行的"_s.arg(fault->row - grid_.FixedRows() + 1) + QString::fromStdString(fault->reason);
    // The control applies its own rule to the current cell, and tells the clerk.
    const bool own = text.endsWith(u"不能为零"_s) || text.endsWith(u"不能为空"_s);
    if (own) select(fault->row, fault->col);
    return Problem{fault->row, fault->col, text, own && !grid_.IsValid()};
}
