#include "OrderGrid.h"

#include <algorithm>

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr std::int32_t SheetRows = 24;            // data rows of a new sheet
constexpr std::uint32_t ButtonFace = 0x8000000F;  // system colours: they follow the desktop's theme
constexpr std::uint32_t ButtonText = 0x80000012;
constexpr std::uint32_t Red = 0x0000C0;  // red is the low byte

struct ColumnPlan {
    const char* caption;
    std::int32_t width;  // twips
    mEmDataType type;
    mEmflexAlign alignment;
    bool editable;
    std::int16_t limit;
    const char* format;
};

constexpr ColumnPlan Plan[OrderGrid::ColumnCount] = {
    {"行号", 600, flexDTString, flexAlignCenterCenter, false, 0, ""},
    {"货号", 1100, flexDTString, flexAlignLeftCenter, true, 20, ""},
    {"品名", 2250, flexDTString, flexAlignLeftCenter, false, 0, ""},
    {"规格", 1850, flexDTString, flexAlignLeftCenter, false, 0, ""},
    {"单位", 750, flexDTString, flexAlignCenterCenter, true, 10, ""},
    {"数量", 1500, flexDTDouble, flexAlignRightCenter, true, 0, "#,##0.###"},
    {"单价", 1350, flexDTDouble, flexAlignRightCenter, true, 0, "#,##0.00"},
    {"金额", 1650, flexDTDouble, flexAlignRightCenter, false, 0, "#,##0.00"},
    {"仓库", 1300, flexDTString, flexAlignLeftCenter, true, 20, ""},
    {"交货日期", 1550, flexDTDate, flexAlignRightCenter, true, 0, "yyyy-mm-dd"},
    {"赠品", 650, flexDTBoolean, flexAlignCenterCenter, true, 0, ""},
    {"备注", 2200, flexDTString, flexAlignLeftCenter, true, 100, ""},
};

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

std::optional<std::int64_t> number(const QString& text, int decimals) {
    return scaledNumber(text.toStdString(), decimals);
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

OrderGrid::OrderGrid(kxGrid& grid, FindGoods findGoods) : grid_(grid), findGoods_(std::move(findGoods)) {
    setUpColumns();
    setUpRules();
    connectEvents();
    settleLater_.setSingleShot(true);
    settleLater_.setInterval(0);
    connect(&settleLater_, &QTimer::timeout, this, [this] { settleAll(); });
}

OrderGrid::~OrderGrid() {
    for (Connection& connection : connections_) connection.disconnect();
}

void OrderGrid::setUpColumns() {
    std::string captions;
    for (const ColumnPlan& plan : Plan) captions += (captions.empty() ? "" : "|") + std::string(plan.caption);
    grid_.FormatString(captions);
    for (int c = 0; c < ColumnCount; ++c) {
        const ColumnPlan& plan = Plan[c];
        const auto definition = grid_.VsCtrl(static_cast<std::int16_t>(c));
        definition->sName(plan.caption);
        definition->iType(plan.type);
        definition->iColAlignment(plan.alignment);
        definition->bIsEditable(plan.editable);
        definition->iLimitLength(plan.limit);
        if (!plan.editable && c >= grid_.FixedCols()) {
            definition->b是否设列颜色(true);
            definition->d列背景色(ButtonFace);
            definition->d列前景色(ButtonText);
        }
        grid_.ColWidth(c, plan.width);
        if (*plan.format) grid_.ColFormat(c, plan.format);
    }
}

void OrderGrid::setUpRules() {
    // A known code brings everything up to the price: Enter goes straight to the quantity.
    grid_.VsCtrl(Code)->sCellInput("," + std::to_string(Quantity));
    for (const Column summed : {Quantity, Amount}) grid_.VsCtrl(summed)->b是否合计数据(true);

    const auto delivery = grid_.VsCtrl(Delivery);
    delivery->i有效性判断(1);
    delivery->i字段有效性判断类型(ij日期型);
    for (const Column copied : {Warehouse, Delivery}) {
        grid_.VsCtrl(copied)->sDefaultText_Name("[-1,]");
        grid_.VsCtrl(copied)->sDefaultText_Code("[-1,]");
    }
    // A price of 0 is a price: it is shown, and it comes back from the database as it was.
    grid_.bIsShowZero(true);
    grid_.BackColorBkg(ButtonFace);
    grid_.SumRow(true);
}

void OrderGrid::connectEvents() {
    auto& all = connections_;
    all.push_back(grid_.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; }));
    all.push_back(grid_.AfterAddRow.connect([this](bool& keepCopy, std::int32_t, bool, std::int32_t) {
        keepCopy = true;
        emit changed();
    }));
    all.push_back(grid_.DeleteVsRow.connect([this](std::int32_t row, bool& consent) {
        consent = read(row).isEmpty() || !mayDelete_ ||
                  mayDelete_(u"第 %1 行 %2 %3"_s.arg(QString::number(row - grid_.FixedRows() + 1),
                                                     text(row, Code), text(row, Name)));
    }));
    all.push_back(grid_.AfterDeleteVsRow.connect([this] { emit changed(); }));
    all.push_back(grid_.AfterEdit.connect([this](std::int32_t row, std::int32_t) {
        settle(row);
        emit changed();
    }));
    // Fills, copies and pastes of the control itself raise no AfterEdit. They are settled when the control is
    // done with them.
    all.push_back(grid_.CellChanged.connect([this](std::int32_t, std::int32_t) {
        if (!writing_) settleLater_.start();
    }));
    all.push_back(grid_.RowColChange.connect([this] { emit moved(); }));
}

void OrderGrid::clearRows(std::int32_t dataRows) {
    grid_.Clear();
    grid_.Rows(grid_.FixedRows() + dataRows);
}

void OrderGrid::clear(const QDate& delivery) {
    {
        const Span span(writing_);
        grid_.ReDraw(false);
        clearRows(SheetRows);
        put(grid_.FixedRows(), Delivery, delivery.toString(Qt::ISODate), delivery.toString(Qt::ISODate));
        grid_.ReDraw(true);
        select(grid_.FixedRows(), Code);
    }
    markSaved();
}

void OrderGrid::show(const std::vector<OrderLine>& lines) {
    {
        const Span span(writing_);
        grid_.ReDraw(false);
        const auto count = static_cast<std::int32_t>(lines.size());
        clearRows(std::max(SheetRows, count + 1));
        for (std::int32_t i = 0; i < count; ++i)
            write(grid_.FixedRows() + i, lines[static_cast<std::size_t>(i)]);
        grid_.ReDraw(true);
        select(grid_.FixedRows(), Code);
    }
    markSaved();
}

void OrderGrid::presetDelivery(const QDate& delivery) {
    if (!lines().empty()) return;
    const Span span(writing_);
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row)
        if (!text(row, Delivery).isEmpty())
            put(row, Delivery, delivery.toString(Qt::ISODate), delivery.toString(Qt::ISODate));
}

void OrderGrid::markSaved() {
    // Switching Editable off is what clears the control's changed-data flag.
    grid_.Editable(false);
    grid_.Editable(true);
}

void OrderGrid::select(std::int32_t row, std::int32_t col) {
    grid_.Grid().Select(row, col);
}

bool OrderGrid::commit() {
    if (!grid_.ValidTextData()) return false;
    settleAll();
    return true;
}

// --- Cells and lines.

QString OrderGrid::text(std::int32_t row, Column col) const {
    return QString::fromStdString(grid_.Grid().Text(row, col));
}

void OrderGrid::put(std::int32_t row, Column col, const QString& text, const QString& tag) {
    grid_.SetCell(row, col, text.toStdString(), tag.toStdString());
}

void OrderGrid::write(std::int32_t row, const OrderLine& line) {
    put(row, Code, line.code);
    put(row, Name, line.name, line.code);
    markCode(row, !line.code.isEmpty() && line.name.isEmpty());
    put(row, Spec, line.spec);
    put(row, Unit, line.unit);
    put(row, Quantity, ::text(line.quantity, QuantityDecimals));
    put(row, Price, ::text(line.price, PriceDecimals));
    put(row, Amount, ::text(line.amount, PriceDecimals));
    put(row, Warehouse, line.warehouse);
    put(row, Delivery, line.delivery.toString(Qt::ISODate), line.delivery.toString(Qt::ISODate));
    if (line.gift) put(row, Gift, u"-1"_s);
    put(row, Remark, line.remark);
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
    line.remark = text(row, Remark);
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

std::optional<OrderGrid::Problem> OrderGrid::problem() const {
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
        const auto bad = [&](Column col, const char16_t* why) {
            return Problem{row, col,
                           u"第 %1 行的%2“%3”%4"_s.arg(QString::number(row - grid_.FixedRows() + 1),
                                                       QString::fromUtf8(Plan[col].caption), text(row, col),
                                                       QString::fromUtf16(why))};
        };
        const OrderLine line = read(row);
        if (!line.quantity && !text(row, Quantity).isEmpty()) return bad(Quantity, u"太大,无法保存");
        if (!line.price && !text(row, Price).isEmpty()) return bad(Price, u"太大,无法保存");
        if (line.quantity && line.price && !line.amount) return bad(Quantity, u"乘以单价太大,无法保存");
        if (!line.delivery.isValid() && !text(row, Delivery).isEmpty()) return bad(Delivery, u"不是日期");
    }
    return std::nullopt;
}

int OrderGrid::unknownGoods() const {
    const std::vector<OrderLine> all = lines();
    return static_cast<int>(std::count_if(all.begin(), all.end(), [](const OrderLine& line) {
        return !line.code.isEmpty() && line.name.isEmpty();
    }));
}

// --- What follows from what was typed.

void OrderGrid::settleAll() {
    // Writing a cell would commit what the clerk is typing; the next commit comes back here.
    if (grid_.editorView().visible) return;
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) settle(row);
    emit changed();
}

void OrderGrid::settle(std::int32_t row) {
    const Span span(writing_);
    settleGoods(row);
    settleAmount(row);
}

void OrderGrid::settleGoods(std::int32_t row) {
    // The name's tag is the code that the row was filled for.
    const QString code = normalized(text(row, Code));
    if (code != text(row, Code)) put(row, Code, code);
    if (code.toStdString() == grid_.Grid().Data(row, Name)) return;
    try {
        putGoods(row, code, code.isEmpty() ? std::nullopt : findGoods_(code));
    } catch (const DatabaseError& error) {
        emit said(u"货号 %1 没有查到品名:"_s.arg(code) + error.text().simplified(), true);
    }
}

void OrderGrid::putGoods(std::int32_t row, const QString& code, const std::optional<Goods>& goods) {
    const bool unknown = !goods && !code.isEmpty();
    markCode(row, unknown);
    put(row, Name, goods ? goods->name : QString(), code);
    put(row, Spec, goods ? goods->spec : QString());
    if (unknown) {
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
    const auto rounded = [&](Column col, int decimals) {
        const std::optional<std::int64_t> value = number(text(row, col), decimals);
        if (value && text(row, col) != ::text(value, decimals)) put(row, col, ::text(value, decimals));
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

// --- Looks.

QString OrderGrid::hint() const {
    switch (grid_.Col()) {
        case Code:
            return u"输入货号后按回车,带出品名、规格、单位和单价"_s;
        case Name:
        case Spec:
            return u"由货号带出,不能修改"_s;
        case Unit:
            return u"由货号带出,可以修改"_s;
        case Quantity:
            return u"可以输入算式,例如 12*3+5;回车到单价"_s;
        case Price:
            return u"由货号带出,可以修改,也可以输入算式"_s;
        case Amount:
            return u"数量 × 单价,自动计算到分"_s;
        case Warehouse:
            return u"输入仓库;新行沿用上一行"_s;
        case Delivery:
            return u"年-月-日;新行沿用上一行"_s;
        case Gift:
            return u"按空格键切换"_s;
        case Remark:
            return u"回车到下一行的货号"_s;
        default:
            return {};
    }
}

void OrderGrid::fitWidth(std::int32_t width) {
    std::int32_t others = grid_.Grid().VerticalBarShown() ? CellGrid::VerticalBarWidth : 0;
    for (std::int32_t c = 0; c < Remark; ++c) others += grid_.ColWidth(c);
    // The control's layout counts columns as too wide when they leave less than 60 twips beside them.
    const std::int32_t rest = std::max(Plan[Remark].width * 2 / 3, width - others - 90);
    if (rest == grid_.ColWidth(Remark)) return;
    grid_.ColWidth(Remark, rest);
    grid_.Grid_Sum().ColWidth(Remark, rest);  // otherwise it follows with the next layout only
}
