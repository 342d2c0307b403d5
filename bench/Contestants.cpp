#include "Contestants.h"

#include "Texts.h"

namespace kxbench {
namespace {

using namespace kxVsGrid;

mEmDataType typeOf(std::int32_t col) {
    switch (kindOf(col)) {
        case Kind::Quantity:
        case Kind::Price:
        case Kind::Amount:
            return flexDTDouble;
        case Kind::Date:
            return flexDTDate;
        default:
            return flexDTString;
    }
}
static_assert(kindOf(FirstSummed) == Kind::Quantity && kindOf(SecondSummed) == Kind::Amount);
}  // namespace

void leavePlain(kxGrid& grid, std::int32_t cols) {
    grid.Cols(cols + HeaderCols);
}

void define(kxGrid& grid, std::int32_t cols) {
    grid.Cols(cols + HeaderCols);
    for (std::int32_t c = 0; c < cols; ++c)
        grid.VsCtrl(static_cast<std::int16_t>(c + HeaderCols))->iType(typeOf(c));
    for (const std::int32_t c : {FirstSummed, SecondSummed})
        grid.VsCtrl(static_cast<std::int16_t>(c + HeaderCols))->b是否合计数据(true);
    grid.SumRow(true);
    grid.ReDraw(true);
}

void setRows(kxGrid& grid, std::int32_t rows) {
    grid.Rows(rows + HeaderRows);
}

void fillCells(kxGrid& grid, std::int32_t rows, std::int32_t cols) {
    const Texts& texts = Texts::instance();
    for (std::int32_t r = 0; r < rows; ++r)
        for (std::int32_t c = 0; c < cols; ++c)
            grid.SetCell(r + HeaderRows, c + HeaderCols, texts.utf8(r, c), texts.utf8Tag(r, c));
}

void fillCells(LeanModel& model, std::int32_t rows, std::int32_t cols) {
    const Texts& texts = Texts::instance();
    for (std::int32_t r = 0; r < rows; ++r) {
        for (std::int32_t c = 0; c < cols; ++c) {
            const QModelIndex index = model.index(r, c);
            model.setData(index, texts.text(r, c));
            model.setData(index, texts.tag(r, c), LeanModel::TagRole);
        }
    }
}

void fillCells(QStandardItemModel& model, std::int32_t rows, std::int32_t cols) {
    const Texts& texts = Texts::instance();
    for (std::int32_t r = 0; r < rows; ++r) {
        QList<QStandardItem*> items;
        items.reserve(cols);
        for (std::int32_t c = 0; c < cols; ++c) {
            items.push_back(new QStandardItem(texts.text(r, c)));
            items.back()->setData(texts.tag(r, c), LeanModel::TagRole);
        }
        model.appendRow(items);
    }
}

void fillCells(QTableWidget& table, std::int32_t rows, std::int32_t cols) {
    const Texts& texts = Texts::instance();
    for (std::int32_t r = 0; r < rows; ++r) {
        for (std::int32_t c = 0; c < cols; ++c) {
            auto* item = new QTableWidgetItem(texts.text(r, c));
            item->setData(LeanModel::TagRole, texts.tag(r, c));
            table.setItem(r, c, item);
        }
    }
}
}  // namespace kxbench
