// What the grid asks its host while it checks a typed text, and what the host checks before it saves.
#include "OrderGrid.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
/// The current cell and the part of the grid that is in view, put back at the end of a block.
class Place {
  public:
    explicit Place(kxGrid& grid)
        : grid_(grid.Grid()),
          row_(grid_.Row()),
          col_(grid_.Col()),
          top_(grid_.TopRow()),
          left_(grid_.LeftCol()) {}
    ~Place() {
        if (leaving_) return;
        grid_.Select(row_, col_);
        grid_.TopRow(top_);
        grid_.LeftCol(left_);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;

    /// The clerk goes where the grid stands now.
    void leave() { leaving_ = true; }

  private:
    CellGrid& grid_;
    std::int32_t row_;
    std::int32_t col_;
    std::int32_t top_;
    std::int32_t left_;
    bool leaving_ = false;
};

bool isHalfDay(const QString& text) {
    const QString half = text.section(u' ', 1);
    return QDate::fromString(text.section(u' ', 0, 0), Qt::ISODate).isValid() &&
           (half == u"上午" || half == u"下午");
}
}  // namespace

CodeAndName OrderGrid::confirm(const QString& query, const QString& codeField, const QString& nameField,
                               const QString& typed) {
    const bool isGoods = query == QString::fromUtf8(GoodsQuery);
    // An empty text is asked about like any other. A line without goods is a note; any name says yes to it.
    // Of the others the name becomes the text: a blank, which is taken away when the row is settled.
    if (typed.isEmpty()) return {{}, isGoods ? u"无货号"_s : u" "_s};
    try {
        if (query == QString::fromUtf8(UnitList)) return confirmUnit(typed, read(grid_.Row()).code);
        if (query == QString::fromUtf8(WarehouseQuery)) return confirmWarehouse(typed);
        return services_.find(query, codeField, nameField, typed).value_or(CodeAndName{});
    } catch (const DatabaseError&) {
        // Nobody knows: the clerk goes on, settleGoods says why, and the code is looked up again when saving.
        return {typed, typed};
    }
}

// By code or by name.
CodeAndName OrderGrid::confirmWarehouse(const QString& typed) {
    const QString query = QString::fromUtf8(WarehouseQuery);
    if (const auto coded = services_.find(query, u"code"_s, u"name"_s, typed.toUpper())) return *coded;
    const auto named = services_.find(query, u"name"_s, u"code"_s, typed);
    return named ? CodeAndName{named->name, named->code} : CodeAndName{};
}

// One of the list, or what the goods themselves are counted in.
CodeAndName OrderGrid::confirmUnit(const QString& typed, const QString& goods) {
    if (QString::fromUtf8(Units).split(u'|').contains(typed)) return {typed, typed};
    const std::optional<Goods> own = goods.isEmpty() ? std::nullopt : services_.goods(goods);
    return own && own->unit == typed ? CodeAndName{typed, typed} : CodeAndName{};
}

// Nobody knows while the database fails; then nothing is saved anyway.
bool OrderGrid::isListed(const OrderLine& line, Column col) {
    try {
        if (col == Unit) return !confirmUnit(line.unit, line.code).name.isEmpty();
        return confirmWarehouse(line.warehouse).name == line.warehouse;
    } catch (const DatabaseError&) {
        return true;
    }
}

bool OrderGrid::commit() {
    // Reading a cell commits what is being typed. What is refused stays in the editor, and a text that was
    // refused already is not checked again.
    grid_.ReadCell(grid_.Row(), grid_.Col());
    if (grid_.editorView().visible) return false;
    settleAll();
    return true;
}

/// Why the cell cannot be saved, beside the rules that the control itself applies. `listed`, of both columns,
/// is asked for once.
QString OrderGrid::faultOf(std::int32_t row, const OrderLine& line, Column col, ListedTexts& listed) {
    const QString why = whyUnsavable(line, col, text(row, col));
    const QString value = col == Unit ? line.unit : col == Warehouse ? line.warehouse : QString();
    if (!why.isEmpty() || value.isEmpty() || line.isEmpty()) return why;
    // Goods may have units of their own.
    const QString key = caption(col) + value + (col == Unit ? line.code : QString());
    if (listed.contains(key)) return {};
    if (!isListed(line, col)) return u"“%1”不在%2列表中"_s.arg(value, caption(col));
    listed.insert(key);
    return {};
}

QString OrderGrid::ruleBroken(Column col) {
    return col == Quantity ? u"不能为零"_s : u"不能为空"_s;
}

std::optional<OrderGrid::Problem> OrderGrid::firstProblem() {
    Place place(grid_);
    ListedTexts listed;
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row) {
        OrderLine line = read(row);
        for (int c = grid_.FixedCols(); c < ColumnCount; ++c) {
            const auto col = static_cast<Column>(c);
            const QString where =
                u"第 %1 行的%2"_s.arg(QString::number(row - grid_.FixedRows() + 1), caption(col));
            const QString why = faultOf(row, line, col, listed);
            if (!why.isEmpty()) return Problem{row, col, where + why, false};
            if (!breaksRule(line, col)) continue;
            // The control applies the column's rule to its current cell, and tells the clerk. A row that
            // becomes the current one gets its default texts; they may be what was missing.
            select(row, col);
            if (grid_.IsValid()) {
                line = read(row);
                continue;
            }
            place.leave();
            return Problem{row, col, where + ruleBroken(col), true};
        }
    }
    return std::nullopt;
}

// A line without goods but with a remark is a note: it needs neither quantity nor warehouse. Only cells that
// are led to are visited: looking at an order must not fill it.
bool OrderGrid::breaksRule(const OrderLine& line, Column col) {
    if (line.code.isEmpty()) return false;
    return (col == Quantity && line.quantity.value_or(0) == 0) ||
           (col == Warehouse && line.warehouse.isEmpty());
}

// Fills and copies of the control put texts into cells that nobody has checked. Dates and times of a line
// that says nothing are not kept; one with a quantity and neither goods nor a remark is nobody's intention.
QString OrderGrid::whyUnsavable(const OrderLine& line, Column col, const QString& text) {
    const bool note = line.code.isEmpty() && !line.remark.isEmpty();
    if (col == Code && line.code.isEmpty() && !note && !line.isEmpty())
        return u"没有填写:没有货号的行要有备注,否则请删除这一行"_s;
    const bool dropped = line.isEmpty() && (col == Delivery || col == Slot || col == Entered);
    if (text.isEmpty() || dropped) return {};
    const auto unless = [&](bool good, const char16_t* why) {
        return good ? QString() : u"“%1”%2"_s.arg(text, QString::fromUtf16(why));
    };
    switch (col) {
        case Code:
            return unless(!line.name.isEmpty(), u"没有在商品目录中查到");
        case Quantity:
            if (line.quantity && line.price) return unless(line.amount.has_value(), u"乘以单价太大,无法保存");
            return unless(line.quantity.has_value(), u"太大,无法保存");
        case Price:
            return unless(line.price.has_value(), u"太大,无法保存");
        case Delivery:
            return unless(line.delivery.isValid(), u"不是日期");
        case Slot:
            return unless(isHalfDay(line.slot), u"不是日期加上午或下午");
        case Entered:
            return unless(line.entered.isValid(), u"不是日期加时间");
        default:
            return {};
    }
}
