#include "LeanModel.h"

#include <QColor>

namespace kxbench {

void LeanModel::allocate(int rows, int cols) {
    rows_ = rows;
    cols_ = cols;
    cells_.resize(place(rows, 0));
}

void LeanModel::resize(int rows, int cols) {
    beginResetModel();
    cells_.clear();
    allocate(rows, cols);
    endResetModel();
}

Qt::ItemFlags LeanModel::flags(const QModelIndex&) const {
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable;
}

QVariant LeanModel::data(const QModelIndex& index, int role) const {
    const Cell& cell = at(index.row(), index.column());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return cell.text;
        case TagRole:
            return cell.tag;
        case Qt::TextAlignmentRole:
            return cell.alignment ? QVariant(cell.alignment) : QVariant();
        case Qt::ForegroundRole:
            return cell.foreColorSet ? QColor(cell.foreColor) : QVariant();
        case Qt::BackgroundRole:
            return cell.backColorSet ? QColor(cell.backColor) : QVariant();
        default:
            return {};
    }
}

bool LeanModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    Cell& cell = at(index.row(), index.column());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            cell.text = value.toString();
            break;
        case TagRole:
            cell.tag = value.toString();
            break;
        case Qt::TextAlignmentRole:
            cell.alignment = value.toInt();
            break;
        default:
            return false;
    }
    emit dataChanged(index, index, {role});
    return true;
}

bool LeanModel::insertRows(int row, int count, const QModelIndex& parent) {
    beginInsertRows(parent, row, row + count - 1);
    const std::size_t cells = static_cast<std::size_t>(count) * static_cast<std::size_t>(cols_);
    cells_.insert(cells_.begin() + static_cast<std::ptrdiff_t>(place(row, 0)), cells, Cell{});
    rows_ += count;
    endInsertRows();
    return true;
}

bool LeanModel::removeRows(int row, int count, const QModelIndex& parent) {
    beginRemoveRows(parent, row, row + count - 1);
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(place(row, 0));
    cells_.erase(first, first + static_cast<std::ptrdiff_t>(place(count, 0)));
    rows_ -= count;
    endRemoveRows();
    return true;
}
}  // namespace kxbench
