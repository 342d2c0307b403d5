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

void fillColumns(kxGrid& grid, std::int32_t rows, std::int32_t cols) {
    const Texts& texts = Texts::instance();
    for (std::int32_t c = 0; c < cols; ++c) {
        for (std::int32_t r = 0; r < rows;) {
            const auto block = texts.block(r, c, rows - r);
            grid.Fill(c + HeaderCols, r + HeaderRows, block, texts.tagBlock(r, c, rows - r));
            r += static_cast<std::int32_t>(block.size());
        }
    }
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

void fillColumns(LeanModel& model, std::int32_t rows, std::int32_t cols) {
    const Texts& texts = Texts::instance();
    model.refillColumns(rows, cols, [&](std::int32_t c, LeanModel::Cell* cell) {
        for (std::int32_t r = 0; r < rows;) {
            const auto block = texts.qtBlock(r, c, rows - r);
            const auto tags = texts.qtTagBlock(r, c, rows - r);
            for (std::size_t i = 0; i < block.size(); ++i, cell += cols) {
                cell->text = block[i];
                cell->tag = tags[i];
            }
            r += static_cast<std::int32_t>(block.size());
        }
    });
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
