#include "OrderGrid.h"

#include <QPointer>
#include <QRegularExpression>
#include <algorithm>
#include <numeric>

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr std::int32_t SheetRows = 12;   // data rows of a new sheet
constexpr std::uint32_t Red = 0x0000C0;  // red is the low byte

// The control copies a cell as it is displayed: 1,234.5.
std::optional<std::int64_t> number(const QString& text, int decimals) {
    static const QRegularExpression grouped(u"^-?\\d{1,3}(,\\d{3})+(\\.\\d*)?$"_s);
    const bool isGrouped = text.contains(u',') && grouped.match(text).hasMatch();
    return scaledNumber((isGrouped ? QString(text).remove(u',') : text).toStdString(), decimals);
}

QString text(const std::optional<std::int64_t>& value, int decimals) {
    return value ? QString::fromStdString(plainText(*value, decimals)) : QString();
}

QDate date(const QString& text) {
    return QDate::fromString(text, Qt::ISODate);
}

// Codes that an input method typed in full-width digits are the same codes.
QString normalized(const QString& code) {
    return code.normalized(QString::NormalizationForm_KC).trimmed();
}
}  // namespace

OrderGrid::OrderGrid(kxGrid& grid, Services services) : grid_(grid), services_(std::move(services)) {
    setUpColumns();
    setUpRules();
    grid_.Options().EscRestores(true);
    grid_.Options().EnterPassesReadOnly(true);
    grid_.Options().PressToggles(true);
    grid_.Options().ReadOnlyShade(6);  // an approved order looks closed
    connectEvents();
}

OrderGrid::~OrderGrid() = default;

void OrderGrid::connectEvents() {
    auto& all = connections_;
    all.push_back(
        grid_.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = grid_.Editable(); }));
    all.push_back(
        grid_.AfterAddRow.connect([this](bool& keepCopy, std::int32_t row, bool copied, std::int32_t) {
            if (copied) keepOrClearCopy(row, keepCopy);
        }));
    all.push_back(grid_.DeleteVsRow.connect(
        [this](std::int32_t row, bool& consent) { consent = grid_.Editable() && mayDeleteRow(row); }));
    // Dates that a row got as the clerk passed it make it no line: fills end before it.
    grid_.Options().FillsToLastLine(true);
    all.push_back(grid_.Options().RowInUse.connect(
        [this](std::int32_t row, bool& inUse) { inUse = !read(row).isEmpty(); }));
    all.push_back(grid_.TxtValidBmS.connect([this](const std::string& query, const std::string& codeField,
                                                   const std::string& nameField, const std::string& typed,
                                                   std::string& code, std::string& name) {
        const CodeAndName known =
            confirm(QString::fromStdString(query), QString::fromStdString(codeField),
                    QString::fromStdString(nameField), normalized(QString::fromStdString(typed)));
        code = known.code.toStdString();
        name = known.name.toStdString();
    }));
    all.push_back(grid_.AfterEdit.connect([this](std::int32_t row, std::int32_t col) {
        settle(row);
        settleTyped(row, static_cast<Column>(col));
        if (col == Code) presetPasted(row);
    }));
    // Fills, copies and pastes of the control itself raise no AfterEdit. Whatever the clerk does, what follows
    // from it belongs to the same step, and is undone and redone with it. The grid may outlive this.
    grid_.Changes().AddSettler([self = QPointer(this)](const StepChanges& step) {
        if (self) self->settleStep(step);
    });
    all.push_back(grid_.Changes().After.connect([this](const StepChanges& step) {
        markCodes(step);
        judgeMarks(step);
        emit changed();
    }));
    all.push_back(grid_.Filters().Changed.connect([this] { emit changed(); }));
    all.push_back(grid_.RowColChange.connect([this] { emit moved(); }));
    all.push_back(grid_.SelChange.connect([this] { emit selected(); }));
}

void OrderGrid::clear(const QDate& delivery) {
    load(SheetRows, delivery, [&] { putPresets(grid_.FixedRows()); });
    markSaved({});
}

// What the row would get if the clerk came to it.
void OrderGrid::putPresets(std::int32_t row) {
    for (const Column col : {Warehouse, Delivery, Slot}) {
        const QString preset = QString::fromStdString(grid_.VsCtrl(col)->sDefaultText_Name());
        put(row, col, preset, preset);
    }
}

// A line whose code came with a block: the clerk has not been to its row. Presets that a block empties stay empty.
void OrderGrid::presetPasted(std::int32_t row) {
    if (row == grid_.Row() || text(row, Code).isEmpty()) return;
    for (const Column col : {Warehouse, Delivery, Slot})
        if (!text(row, col).isEmpty()) return;
    putPresets(row);
}

void OrderGrid::show(const std::vector<OrderLine>& lines, const QDate& delivery) {
    const auto count = static_cast<std::int32_t>(lines.size());
    load(std::max(SheetRows, count + 1), delivery, [&] {
        for (std::int32_t i = 0; i < count; ++i)
            write(grid_.FixedRows() + i, lines[static_cast<std::size_t>(i)]);
    });
    markSaved(lines);
}

// Clear() forgets what could be undone. What is written into the empty sheet, the default texts of its first
// row too, is nobody's step.
void OrderGrid::load(std::int32_t dataRows, const QDate& delivery, const std::function<void()>& fill) {
    const UnrecordedSpan unrecorded = grid_.Unrecorded();
    marks_.clear();  // the marks go with the rows
    grid_.ReDraw(false);
    grid_.Clear();
    grid_.Rows(grid_.FixedRows() + dataRows);
    presetDelivery(delivery);
    fill();
    grid_.ReDraw(true);
    select(grid_.FixedRows(), Code);
}

void OrderGrid::presetDelivery(const QDate& delivery) {
    const QString day = delivery.toString(Qt::ISODate);
    presetRow(Delivery, day);
    presetRow(Slot, day.isEmpty() ? day : day + u" 上午"_s);
    if (!lines().empty()) return;
    // The order's date is none of the acts in the grid.
    const UnrecordedSpan unrecorded = grid_.Unrecorded();
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row)
        if (!text(row, Delivery).isEmpty()) putDelivery(row, delivery);
}

void OrderGrid::presetWarehouse(const QString& name) {
    presetRow(Warehouse, name);
}

/// What the control puts into the column's cell of a row that becomes the current one.
void OrderGrid::presetRow(Column col, const QString& text) {
    grid_.VsCtrl(col)->sDefaultText_Name(text.toStdString());
    grid_.VsCtrl(col)->sDefaultText_Code(text.toStdString());
}

void OrderGrid::setReadOnly(bool readOnly) {
    grid_.Editable(!readOnly);
}

void OrderGrid::select(std::int32_t row, std::int32_t col) {
    grid_.Grid().Select(row, col);
}

void OrderGrid::recovered(const QDate& delivery) {
    presetDelivery(delivery);
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) markCode(row);
    selectEnd();
}

void OrderGrid::goTo(std::int32_t row, std::int32_t col) {
    const UnrecordedSpan unrecorded = grid_.Unrecorded();
    select(row, col);
}

void OrderGrid::selectEnd() {
    std::int32_t row = grid_.Rows() - 1;
    while (row > grid_.FixedRows() && read(row - 1).isEmpty()) --row;
    goTo(row, Code);
    const UnrecordedSpan unrecorded = grid_.Unrecorded();
    if (text(row, Warehouse).isEmpty() && text(row, Delivery).isEmpty() && read(row).isEmpty())
        putPresets(row);
}

// --- Cells and lines.

QString OrderGrid::text(std::int32_t row, Column col) const {
    return QString::fromStdString(grid_.Grid().Text(row, col));
}

QString OrderGrid::tag(std::int32_t row, Column col) const {
    return QString::fromStdString(grid_.Grid().Data(row, col));
}

QString OrderGrid::caption(Column col) const {
    return QString::fromStdString(grid_.VsCtrl(static_cast<std::int16_t>(col))->sName());
}

void OrderGrid::put(std::int32_t row, Column col, const QString& text, const QString& tag) {
    grid_.SetCell(row, col, text.toStdString(), tag.toStdString());
}

void OrderGrid::putDelivery(std::int32_t row, const QDate& delivery) {
    const QString day = delivery.toString(Qt::ISODate);
    put(row, Delivery, day, day);
    put(row, Slot, day + u" 上午"_s, day + u" 上午"_s);
}

void OrderGrid::write(std::int32_t row, const OrderLine& line) {
    put(row, Code, line.code);
    put(row, Name, line.name, line.code);
    put(row, Spec, line.spec, line.code);
    put(row, Unit, line.unit);
    const QString quantity = ::text(line.quantity, QuantityDecimals);
    put(row, Quantity, quantity, quantity);
    put(row, Price, ::text(line.price, PriceDecimals));
    put(row, Amount, ::text(line.amount, PriceDecimals));
    put(row, Warehouse, line.warehouse, line.warehouse);
    put(row, Delivery, line.delivery.toString(Qt::ISODate), line.delivery.toString(Qt::ISODate));
    put(row, Slot, line.slot, line.slot);
    if (line.gift) put(row, Gift, u"-1"_s);
    put(row, Remark, line.remark);
    put(row, Entered, timeText(line.entered), timeText(line.entered));
    markCode(row);
}

OrderLine OrderGrid::read(std::int32_t row) const {
    OrderLine line;
    line.code = normalized(text(row, Code));
    line.name = text(row, Name);
    line.spec = text(row, Spec);
    line.unit = text(row, Unit);
    line.quantity = number(text(row, Quantity), QuantityDecimals);
    line.price = number(text(row, Price), PriceDecimals);
    line.amount = number(text(row, Amount), PriceDecimals);
    line.warehouse = text(row, Warehouse);
    line.delivery = date(text(row, Delivery));
    const QString gift = text(row, Gift);
    line.gift = !gift.isEmpty() && gift != u"0";
    line.slot = text(row, Slot);
    line.remark = text(row, Remark);
    line.entered = timeOf(text(row, Entered));
    return line;
}

std::vector<OrderLine> OrderGrid::lines() const {
    std::vector<OrderLine> result;
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
        OrderLine line = read(row);
        if (line.isEmpty()) continue;
        if (const auto known = saved_.find(grid_.Grid().IdOf(row)); known != saved_.end())
            line.id = known->second.id;
        result.push_back(std::move(line));
    }
    return result;
}

// --- What is to be saved.

void OrderGrid::markSaved(const std::vector<OrderLine>& lines) {
    saved_.clear();
    savedOrder_.clear();
    auto line = lines.begin();
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows() && line != lines.end(); ++row) {
        if (read(row).isEmpty()) continue;
        if (line->id != 0) {
            saved_.emplace(grid_.Grid().IdOf(row), *line);
            savedOrder_.push_back(grid_.Grid().IdOf(row));
        }
        ++line;
    }
    grid_.Changes().Saved();
}

// The control's log names the rows that hold something else than when they were saved. To the order a row that
// says nothing is no line, and texts alone count, not the tags that go with them.
LineChanges OrderGrid::unsaved() const {
    LineChanges result;
    result.moved = hasMovedLines();
    const Changes& log = grid_.Changes();
    if (log.empty()) return result;
    result.unknown = log.Unknown();
    const auto judge = [&](RowId id) {
        OrderLine now = read(grid_.Grid().RowOf(id));
        const auto saved = saved_.find(id);
        if (saved == saved_.end()) {
            result.added = result.added || !now.isEmpty();
            return;
        }
        now.id = saved->second.id;
        if (now.isEmpty())
            result.removed.push_back(now.id);
        else if (now != saved->second)
            result.changed.push_back(now.id);
    };
    for (const RowId id : log.Added()) judge(id);
    for (const ChangedRow& changed : log.Changed()) judge(changed.row);
    for (const RemovedRow& removed : log.Removed())
        if (const auto saved = saved_.find(removed.row); saved != saved_.end())
            result.removed.push_back(saved->second.id);
    return result;
}

// --- What follows from what was typed.

// Goods are what a copied line is for: without a code there is nothing to keep. The control writes cells as
// they are; the time of entry is ours.
void OrderGrid::keepOrClearCopy(std::int32_t row, bool& keep) {
    keep = !text(row, Code).isEmpty();
    if (!keep) {
        emit said(u"没有货号的行不复制,新增了一个空行"_s, false);
        return;
    }
    const QString now = timeText(services_.now());
    put(row, Entered, now, now);
}

std::vector<std::int32_t> OrderGrid::rowsOf(const StepChanges& step) const {
    std::vector<std::int32_t> rows(step.rows.begin(), step.rows.end());
    if (!step.known) {
        rows.resize(static_cast<std::size_t>(grid_.Rows()));
        std::iota(rows.begin(), rows.end(), 0);
    }
    std::erase_if(rows, [&](std::int32_t row) { return row < grid_.FixedRows(); });
    return rows;
}

// What a failing database has left open. Where nothing is left to do, it is no step.
void OrderGrid::settleAll() {
    // A closed order stays as it is.
    if (!grid_.Editable()) return;
    ChangeStep step = grid_.Step("核对货号");
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) settle(row);
    step.close();
}

void OrderGrid::settleStep(const StepChanges& step) {
    if (!grid_.Editable()) return;
    const bool redated = step.cause == Cause::Fill && std::ranges::count(step.cols, Delivery) > 0;
    for (const std::int32_t row : rowsOf(step)) {
        settle(row);
        if (redated) settleSlot(row);
    }
}

void OrderGrid::settle(std::int32_t row) {
    settleGoods(row);
    settleAmount(row);
    settleBlanks(row);
    settleWarehouse(row);
}

// What follows from what the clerk has typed himself. The time of entry does not follow from what the control
// has filled.
void OrderGrid::settleTyped(std::int32_t row, Column col) {
    if (col == Delivery) settleSlot(row);
    if (col != Entered && text(row, Entered).isEmpty() && !read(row).isEmpty()) {
        const QString now = timeText(services_.now());
        put(row, Entered, now, now);
    }
}

// The half day stays, on the day of the delivery.
void OrderGrid::settleSlot(std::int32_t row) {
    const QString slot = text(row, Slot);
    const QString day = text(row, Delivery);
    if (day.isEmpty() || !slot.contains(u' ')) return;
    const QString moved = day + slot.mid(slot.indexOf(u' '));
    if (moved != slot) put(row, Slot, moved, moved);
}

// An emptied cell: the check has left a blank there (see confirm()).
void OrderGrid::settleBlanks(std::int32_t row) {
    for (const Column col : {Unit, Warehouse})
        if (const QString typed = text(row, col); typed != typed.trimmed()) put(row, col, typed.trimmed());
}

// The tag is where the rule "not empty" looks.
void OrderGrid::settleWarehouse(std::int32_t row) {
    const QString name = text(row, Warehouse);
    if (tag(row, Warehouse) != name) put(row, Warehouse, name, name);
}

void OrderGrid::settleGoods(std::int32_t row) {
    // The tags of name and specification are the code that they were filled for.
    const QString code = normalized(text(row, Code));
    if (code != text(row, Code)) put(row, Code, code);
    const bool named = tag(row, Name) == code;
    const bool specified = tag(row, Spec) == code;
    if (named && specified) return;
    try {
        const std::optional<Goods> goods = code.isEmpty() ? std::nullopt : services_.goods(code);
        if (!named) putName(row, code, goods);
        if (!specified) put(row, Spec, goods ? goods->spec : QString(), code);
        // Where only one of them is another row's, a column fill has spoilt it: the price stays as agreed.
        if (!named && !specified) putTerms(row, code, goods);
    } catch (const DatabaseError& error) {
        emit said(u"货号 %1 没有查到品名:"_s.arg(code) + error.text().simplified(), true);
    }
}

void OrderGrid::putName(std::int32_t row, const QString& code, const std::optional<Goods>& goods) {
    put(row, Name, goods ? goods->name : QString(), code);
}

// Unit and price of the goods that the row now has.
void OrderGrid::putTerms(std::int32_t row, const QString& code, const std::optional<Goods>& goods) {
    if (!goods && !code.isEmpty()) {
        emit said(u"货号 %1 不在商品目录中;本行已输入的内容保留"_s.arg(code), true);
    } else if (goods) {
        put(row, Unit, goods->unit);
        put(row, Price, ::text(goods->price, PriceDecimals));
        emit said(
            u"%1  %2  %3  单价 %4 元/%5"_s.arg(code, goods->name, goods->spec,
                                               QString::fromStdString(moneyText(goods->price)), goods->unit),
            false);
    }
}

// Colours are not undone: each step, and each way back, marks its rows as they are then.
void OrderGrid::markCodes(const StepChanges& step) {
    for (const std::int32_t row : rowsOf(step)) markCode(row);
}

void OrderGrid::markCode(std::int32_t row) {
    const QString code = text(row, Code);
    const bool unknown = !code.isEmpty() && tag(row, Name) == code && text(row, Name).isEmpty();
    grid_.Grid().CellForeColor(row, Code, unknown ? std::optional(Red) : std::nullopt);
}

void OrderGrid::settleAmount(std::int32_t row) {
    // The number goes into the tag as well: that is where the rule "not zero" looks.
    const auto rounded = [&](Column col, int decimals) {
        const QString typed = text(row, col);
        const std::optional<std::int64_t> value = number(typed, decimals);
        const QString wanted = value ? ::text(value, decimals) : typed;
        if (typed != wanted || tag(row, col) != wanted) put(row, col, wanted, wanted);
        return value;
    };
    const std::optional<Thousandths> quantity = rounded(Quantity, QuantityDecimals);
    const std::optional<Cents> price = rounded(Price, PriceDecimals);
    std::optional<Cents> amount;
    if (quantity && price) {
        amount = amountOf(*quantity, *price);
        if (!amount) emit said(u"数量乘以单价太大,金额没有计算"_s, true);
    }
    const QString wanted = ::text(amount, PriceDecimals);
    if (text(row, Amount) != wanted) put(row, Amount, wanted);
}
