#include "kxVsGrid/qt/GridModel.h"

#include <QColor>
#include <utility>

#include "qt/model/GridFollower.h"
#include "qt/model/Moments.h"
#include "support/CurrentError.h"
#include "support/Numbers.h"

namespace kxVsGrid::qt {
namespace {

QString inQt(const std::string& text) {
    return QString::fromStdString(text);
}

Qt::Alignment alignmentOf(mEmflexAlign alignment) {
    // Nine of them go down the left, the middle and the right; the others follow the content.
    constexpr Qt::Alignment Across[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    constexpr Qt::Alignment Down[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    const auto at = static_cast<std::size_t>(alignment);
    return at < 9 ? Across[at / 3] | Down[at % 3] : Qt::AlignLeft | Qt::AlignVCenter;
}

bool isChecked(const CellGrid& cells, std::int32_t row, std::int32_t col) {
    return support::leadingNumber(cells.Text(row, col)) != 0;
}

/// An empty cell has no value, of whatever type its column is.
QVariant valueOf(const CellGrid& cells, std::int32_t row, std::int32_t col) {
    const std::string text = cells.Text(row, col);
    switch (cells.ColDataType(col)) {
        case flexDTBoolean:
            return isChecked(cells, row, col);
        case flexDTDouble:
            return text.empty() ? QVariant() : QVariant(support::leadingNumber(text));
        case flexDTDate:
            if (const QDateTime moment = momentOf(text); !moment.isNull()) return moment;
            return {};
        default:
            return inQt(text);
    }
}

QVariant cellData(const kxGrid& grid, std::int32_t row, std::int32_t col, int role) {
    const CellGrid& cells = grid.Grid();
    const bool boolean = cells.ColDataType(col) == flexDTBoolean;
    switch (role) {
        case Qt::DisplayRole:
            return boolean ? QVariant() : inQt(cells.DisplayText(row, col));
        case Qt::EditRole:
            return boolean ? QVariant(isChecked(cells, row, col)) : inQt(cells.Text(row, col));
        case Qt::CheckStateRole:
            if (!boolean) return {};
            return isChecked(cells, row, col) ? Qt::Checked : Qt::Unchecked;
        case Qt::TextAlignmentRole:
            return QVariant(alignmentOf(cells.ColAlignment(col)));
        case Qt::ToolTipRole: {
            const CellMark* const mark = grid.Mark(row, col);
            return mark ? QVariant(inQt(mark->text)) : QVariant();
        }
        case GridModel::TagRole:
            return inQt(cells.Data(row, col));
        case GridModel::ValueRole:
            return valueOf(cells, row, col);
        default:
            return {};
    }
}
}  // namespace

GridModel::GridModel(kxGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), follower_(std::make_shared<Follower>(*this, grid)) {}

GridModel::~GridModel() {
    follower_->leave();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : follower_->rows();
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : follower_->cols();
}

bool GridModel::isOurs(const QModelIndex& index) const {
    return index.isValid() && index.model() == this && index.row() < rowCount() &&
           index.column() < columnCount();
}

std::int32_t GridModel::gridRow(const QModelIndex& index) const {
    return isOurs(index) ? follower_->gridRow(index.row()) : -1;
}

std::int32_t GridModel::gridCol(const QModelIndex& index) const {
    return isOurs(index) ? follower_->gridCol(index.column()) : -1;
}

QModelIndex GridModel::indexAt(std::int32_t row, std::int32_t col) const {
    return index(follower_->modelRow(row), col - follower_->gridCol(0));
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    kxGrid* const grid = follower_->grid();
    const std::int32_t row = gridRow(index);
    const std::int32_t col = gridCol(index);
    if (!grid || row < 0 || col < 0 || col >= grid->Cols()) return {};
    if (role == RowIdRole) return static_cast<qulonglong>(grid->Grid().IdOf(row));
    return cellData(std::as_const(*grid), row, col, role);
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const kxGrid* const grid = follower_->grid();
    if (!grid || role != Qt::DisplayRole || section < 0) return {};
    const bool columns = orientation == Qt::Horizontal;
    const std::int32_t row = columns ? grid->FixedRows() - 1 : follower_->gridRow(section);
    const std::int32_t col = columns ? follower_->gridCol(section) : 0;
    if (row < 0 || col >= grid->Cols() || (!columns && grid->FixedCols() == 0)) return {};
    return inQt(grid->Grid().DisplayText(row, col));
}

/// What a listener of CellLocked throws locks the cell.
Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const kxGrid* const grid = follower_->grid();
    const std::int32_t row = gridRow(index);
    const std::int32_t col = gridCol(index);
    if (!grid || row < 0 || col < 0) return flags;
    try {
        if (!grid->cellEditable(row, col)) return flags;
    } catch (...) {
        return flags;
    }
    const bool boolean = grid->Grid().ColDataType(col) == flexDTBoolean;
    return flags | (boolean ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    const std::shared_ptr<Follower> follower = follower_;
    kxGrid* const grid = follower->grid();
    const std::int32_t row = gridRow(index);
    const std::int32_t col = gridCol(index);
    if (!grid || row < 0 || col >= grid->Cols()) return false;
    const bool boolean = grid->Grid().ColDataType(col) == flexDTBoolean;
    if (role != Qt::EditRole && !(role == Qt::CheckStateRole && boolean)) return false;
    const QString text = boolean ? (value.toBool() ? u"1"_qs : u"0"_qs) : value.toString();
    const QPersistentModelIndex there(index);
    std::string reason;
    try {
        reason = grid->Enter(row, col, text.toStdString());
    } catch (...) {
        reason = support::currentError();  // Qt's event loop lets no exception through
    }
    if (!reason.empty() && follower->grid()) Q_EMIT refused(there, inQt(reason));
    return reason.empty();
}

QHash<int, QByteArray> GridModel::roleNames() const {
    QHash<int, QByteArray> names = QAbstractTableModel::roleNames();
    names[TagRole] = "tag";
    names[ValueRole] = "value";
    names[RowIdRole] = "rowId";
    return names;
}

void GridModel::flush() {
    follower_->flush();
}
}  // namespace kxVsGrid::qt
