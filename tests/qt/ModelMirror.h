// A plain table that follows a Qt model by its signals alone, as a view does.
#pragma once

#include <QAbstractItemModel>
#include <QStringList>
#include <vector>

namespace kxVsGrid::qt::testing {

class ModelMirror {
  public:
    using Table = std::vector<QStringList>;

    explicit ModelMirror(const QAbstractItemModel& model) : model_(model) {
        using Model = QAbstractItemModel;
        const auto follow = [&](auto signal, auto slot) { QObject::connect(&model, signal, &scope_, slot); };
        follow(&Model::dataChanged, [this](const QModelIndex& first, const QModelIndex& last) {
            ++told;
            for (int row = first.row(); row <= last.row(); ++row)
                for (int col = first.column(); col <= last.column(); ++col)
                    rows[static_cast<std::size_t>(row)][col] = text(row, col);
        });
        follow(&Model::rowsInserted, [this](const QModelIndex&, int first, int last) {
            ++told;
            for (int row = first; row <= last; ++row) rows.insert(rows.begin() + row, read(row));
        });
        follow(&Model::rowsRemoved, [this](const QModelIndex&, int first, int last) {
            ++told;
            rows.erase(rows.begin() + first, rows.begin() + last + 1);
        });
        follow(&Model::layoutAboutToBeChanged, [this] {
            places_.clear();
            for (int row = 0; row < model_.rowCount(); ++row) places_.emplace_back(model_.index(row, 0));
        });
        follow(&Model::layoutChanged, [this] {
            ++told;
            Table moved(rows.size());
            for (std::size_t row = 0; row < rows.size(); ++row)
                moved[static_cast<std::size_t>(places_[row].row())] = rows[row];
            rows = moved;
        });
        follow(&Model::modelReset, [this] {
            ++resets;
            readAll();
        });
        readAll();
    }

    Table now() const {
        Table table;
        for (int row = 0; row < model_.rowCount(); ++row) table.push_back(read(row));
        return table;
    }

    Table rows;
    int told = 0;  ///< signals but resets
    int resets = 0;

  private:
    QString text(int row, int col) const { return model_.index(row, col).data(Qt::EditRole).toString(); }
    QStringList read(int row) const {
        QStringList texts;
        for (int col = 0; col < model_.columnCount(); ++col) texts << text(row, col);
        return texts;
    }
    void readAll() { rows = now(); }

    const QAbstractItemModel& model_;
    std::vector<QPersistentModelIndex> places_;
    QObject scope_;
};
}  // namespace kxVsGrid::qt::testing
