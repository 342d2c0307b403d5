#include "OrderGrid.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr std::int32_t SheetRows = 12;   // data rows of a new sheet
constexpr std::uint32_t Red = 0x0000C0;  // red is the low byte

/// Holds a flag for the length of a block.
class Span {
  public:
    explicit Span(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
    ~Span() { flag_ = before_; }
    Span(const Span&) = delete;
    Span& operator=(const Span&) = delete;

  private:
    bool& flag_;
    bool before_;
};

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
    settleLater_.setSingleShot(true);
    settleLater_.setInterval(0);
    connect(&settleLater_, &QTimer::timeout, this, [this] { settleAll(); });
}

OrderGrid::~OrderGrid() = default;

void OrderGrid::connectEvents() {
    auto& all = connections_;
    all.push_back(
        grid_.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = grid_.Editable(); }));
    all.push_back(
        grid_.AfterAddRow.connect([this](bool& keepCopy, std::int32_t row, bool copied, std::int32_t) {
            if (copied) keepOrClearCopy(row, keepCopy);
            emit changed();
        }));
    all.push_back(grid_.DeleteVsRow.connect([this](std::int32_t row, bool& consent) {
        consent = grid_.Editable() &&
                  (read(row).isEmpty() || !mayDelete_ ||
                   mayDelete_(u"第 %1 行 %2 %3"_s.arg(QString::number(row - grid_.FixedRows() + 1),
                                                      text(row, Code), text(row, Name))));
    }));
    // Dates that a row got as the clerk passed it make it no line: fills end before it.
    grid_.Options().FillsToLastLine(true);
    all.push_back(grid_.Options().RowInUse.connect(
        [this](std::int32_t row, bool& inUse) { inUse = !read(row).isEmpty(); }));
    all.push_back(grid_.AfterDeleteVsRow.connect([this] { emit changed(); }));
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
        emit changed();
    }));
    // Fills, copies and pastes of the control itself raise no AfterEdit. They are settled when the control is
    // done with them.
    all.push_back(grid_.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (writing_) return;
        // Of all that writes cells, column fills alone write other rows than the current one.
        if (col == Delivery && row != grid_.Row()) redated_.insert(row);
        settleLater_.start();
    }));
    all.push_back(grid_.RowColChange.connect([this] { emit moved(); }));
}

void OrderGrid::clearRows(std::int32_t dataRows) {
    grid_.Clear();
    grid_.Rows(grid_.FixedRows() + dataRows);
    redated_.clear();
}

void OrderGrid::clear(const QDate& delivery) {
    {
        const Span span(writing_);
        grid_.ReDraw(false);
        clearRows(SheetRows);
        presetDelivery(delivery);
        putDelivery(grid_.FixedRows(), delivery);
        const QString warehouse = QString::fromStdString(grid_.VsCtrl(Warehouse)->sDefaultText_Name());
        put(grid_.FixedRows(), Warehouse, warehouse, warehouse);
        grid_.ReDraw(true);
        select(grid_.FixedRows(), Code);
    }
    markSaved();
}

void OrderGrid::show(const std::vector<OrderLine>& lines, const QDate& delivery) {
    {
        const Span span(writing_);
        grid_.ReDraw(false);
        const auto count = static_cast<std::int32_t>(lines.size());
        clearRows(std::max(SheetRows, count + 1));
        presetDelivery(delivery);
        for (std::int32_t i = 0; i < count; ++i)
            write(grid_.FixedRows() + i, lines[static_cast<std::size_t>(i)]);
        grid_.ReDraw(true);
        select(grid_.FixedRows(), Code);
    }
    markSaved();
}

void OrderGrid::presetDelivery(const QDate& delivery) {
    const QString day = delivery.toString(Qt::ISODate);
    presetRow(Delivery, day);
    presetRow(Slot, day.isEmpty() ? day : day + u" 上午"_s);
    if (!lines().empty()) return;
    const Span span(writing_);
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

void OrderGrid::markSaved() {
    grid_.Unmodified();
}

void OrderGrid::setReadOnly(bool readOnly) {
    grid_.Editable(!readOnly);
}

void OrderGrid::select(std::int32_t row, std::int32_t col) {
    grid_.Grid().Select(row, col);
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
    markCode(row, !line.code.isEmpty() && line.name.isEmpty());
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
        if (!line.isEmpty()) result.push_back(std::move(line));
    }
    return result;
}

// --- What follows from what was typed.

// Goods are what a copied line is for: without a code there is nothing to keep. The control writes cells as
// they are; the mark of an unknown code and the time of entry are ours.
void OrderGrid::keepOrClearCopy(std::int32_t row, bool& keep) {
    keep = !text(row, Code).isEmpty();
    if (!keep) {
        emit said(u"没有货号的行不复制,新增了一个空行"_s, false);
        return;
    }
    const Span span(writing_);
    const QString now = timeText(services_.now());
    put(row, Entered, now, now);
    markCode(row, text(row, Name).isEmpty());
}

void OrderGrid::settleAll() {
    // A closed order stays as it is.
    if (!grid_.Editable()) return;
    // Writing a cell would commit what the clerk is typing; the next commit comes back here.
    if (grid_.editorView().visible) return;
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) settle(row);
    for (const std::int32_t row : std::exchange(redated_, {}))
        if (row < grid_.Rows()) settleSlot(row);
    emit changed();
}

void OrderGrid::settle(std::int32_t row) {
    const Span span(writing_);
    settleGoods(row);
    settleAmount(row);
    settleBlanks(row);
    settleWarehouse(row);
}

// What follows from what the clerk has typed himself. The time of entry does not follow from what the control
// has filled.
void OrderGrid::settleTyped(std::int32_t row, Column col) {
    const Span span(writing_);
    if (col == Delivery) settleSlot(row);
    if (col != Entered && text(row, Entered).isEmpty() && !read(row).isEmpty()) {
        const QString now = timeText(services_.now());
        put(row, Entered, now, now);
    }
}

// The half day stays, on the day of the delivery.
void OrderGrid::settleSlot(std::int32_t row) {
    const Span span(writing_);
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
    markCode(row, !goods && !code.isEmpty());
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

void OrderGrid::markCode(std::int32_t row, bool unknown) {
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
