// The data cells of a grid as a Qt model: a table view, a proxy that sorts, a chart beside the grid shows what stands
// there and follows each step.
//
//     auto* model = new kxVsGrid::qt::GridModel(widget->grid(), this);
//     auto* sorted = new QSortFilterProxyModel(this);
//     sorted->setSourceModel(model);
//     sorted->setSortRole(kxVsGrid::qt::GridModel::ValueRole);  // numbers by value
//     view->setModel(sorted);
//
// Rows and columns are the data cells' alone, from 0: row 0 of the model is the first row below the headings.
// The grid keeps the data; the model copies nothing. What one step changes is told when the step ends, its cells
// as one range, which may hold others too; what code writes outside of steps is told when the event loop runs, or
// by flush(). Until then the model has the rows that it had, in their order, with the texts of now.
//
// The grid should outlive the model; a model without one has no rows any more, and says so when it is asked next.
#pragma once

#include <QAbstractTableModel>
#include <memory>

#ifndef Q_MOC_RUN  // whose scanner knows no names beyond ASCII
#include "kxVsGrid/kxGrid.h"
#endif

namespace kxVsGrid::qt {

class GridModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    /// Beside Qt's own: DisplayRole is what the cell shows, EditRole its text as it is stored (the number of a format's
    /// "1,234.50" is "1234.5"), CheckStateRole the state of a check box, ToolTipRole the text of a mark.
    enum Role {
        TagRole = Qt::UserRole,  ///< the tag, a QString
        ValueRole,  ///< double, QDateTime or bool by the column's type, none of an empty cell; else text
        RowIdRole   ///< the RowId of the row, a qulonglong, which stays with it wherever it goes
    };

    explicit GridModel(kxGrid& grid, QObject* parent = nullptr);
    ~GridModel() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Cells that the clerk may change can be edited here, too.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    /// EditRole and CheckStateRole, as kxGrid::Enter: with all checks, as one step. False for what is refused, which
    /// refused() tells of.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QHash<int, QByteArray> roleNames() const override;

    /// Where a cell is in the grid's own numbers; -1 for one whose row has gone since.
    std::int32_t gridRow(const QModelIndex& index) const;
    std::int32_t gridCol(const QModelIndex& index) const;
    /// Of a cell of the grid, headings included; invalid for those.
    QModelIndex indexAt(std::int32_t row, std::int32_t col) const;

    /// Tells now what has changed outside of steps.
    void flush();

  Q_SIGNALS:
    /// The reason, in words for the clerk.
    void refused(const QModelIndex& index, const QString& reason);

  private:
    bool isOurs(const QModelIndex& index) const;

    class Follower;
    friend class Follower;
    std::shared_ptr<Follower> follower_;  // a call of it may be underway when the model goes
};
}  // namespace kxVsGrid::qt
