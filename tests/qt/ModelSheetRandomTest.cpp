// Random acts on both sides of a model in a grid, against a plain table.
#include <QSortFilterProxyModel>
#include <array>

#include "ModelMirror.h"
#include "ModelSheets.h"
#include "kit/Random.h"
#include "kxVsGrid/qt/GridModel.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxVsGrid::qt::testing {
namespace {

/// Rows of texts of one kind, so that each act makes sense in each column.
class RandomSheet : public SheetDesk, public ::testing::WithParamInterface<int> {
  protected:
    static constexpr int Columns = 3;
    RandomSheet() {
        model.setHorizontalHeaderLabels({"a", "b", "c"});
        for (int row = 0; row < 8; ++row) model.appendRow(newRow());
        proxy.setSourceModel(&model);
        proxy.setSortRole(Qt::EditRole);
        proxy.sort(1);
        show(model);
        other = std::make_unique<ModelSheet>(second.grid(), proxy);
        for (std::int32_t col = 1; col <= Columns; ++col) grid.Options(col).sortable(true);
    }
    ~RandomSheet() override {
        other.reset();
        sheet.reset();
        tester.reset();
    }
    QList<QStandardItem*> newRow() {
        QList<QStandardItem*> row;
        for (int column = 0; column < Columns; ++column) row << new QStandardItem(anyText());
        return row;
    }
    QString anyText() { return "t" + QString::number(dice.between(0, 99)); }
    std::int32_t anyRow() {
        return static_cast<std::int32_t>(dice.between(grid.FixedRows(), grid.Rows() - 1));
    }
    std::int32_t anyCol() { return static_cast<std::int32_t>(dice.between(1, Columns)); }
    int modelRow() { return static_cast<int>(dice.between(0, std::max(0, model.rowCount() - 1))); }

    void command() {
        constexpr std::array Some{Command::SortUp,    Command::SortDown,   Command::Undo,
                                  Command::Undo,      Command::Redo,       Command::InsertRow,
                                  Command::Copy,      Command::Paste,      Command::DuplicateRow,
                                  Command::FillDown,  Command::ClearCells, Command::Cut,
                                  Command::MoveRowUp, Command::AppendRow,  Command::DeleteRows};
        grid.Grid().Select(anyRow(), anyCol());
        if (dice.oneIn(2)) grid.Grid().SelectRange(grid.Row(), grid.Col(), anyRow(), anyCol());
        if (dice.oneIn(4)) grid.Grid().SelectRows(anyRow(), anyRow());
        desk.run(Some[static_cast<std::size_t>(dice.between(0, std::ssize(Some) - 1))]);
    }
    void inModel() {
        switch (dice.between(0, 8)) {
            case 0:
                return model.insertRow(modelRow(), newRow());
            case 1:
                if (model.rowCount() > 2) model.removeRow(modelRow());
                return;
            case 2:
                return model.appendRow(newRow());
            case 3:
                return model.sort(static_cast<int>(dice.between(0, 2)));
            case 4:
                if (dice.oneIn(8)) return reset();
                [[fallthrough]];
            case 5: {
                const auto row = model.takeRow(modelRow());
                return model.insertRow(modelRow(), row);
            }
            case 6:
                if (model.rowCount() > 6) model.removeRows(modelRow() / 2, 3);
                return;
            default:
                if (model.rowCount() > 0)
                    model.setData(model.index(modelRow(), static_cast<int>(dice.between(0, 2))), anyText());
        }
    }
    void reset() {
        model.clear();
        model.setHorizontalHeaderLabels({"a", "b", "c"});
        for (int row = 0; row < 5; ++row) model.appendRow(newRow());
    }
    void act() {
        switch (dice.between(0, 5)) {
            case 0:
                return type(anyRow(), anyCol(), anyText().toStdString());
            case 1:
            case 2:
                return command();
            case 3:
                grid.SetCell(anyRow(), anyCol(), anyText().toStdString());
                return;
            case 4:
                second.grid().Enter(static_cast<std::int32_t>(dice.between(1, second.grid().Rows() - 1)),
                                    anyCol(), anyText().toStdString());
                return;
            default:
                return inModel();
        }
    }
    /// What each grid shows of its model, and nothing else but rows that the model has not got.
    std::string difference(const ModelSheet& one, const QAbstractItemModel& of, kxGrid& in) {
        std::string found = differenceOf(one, of, in);
        int bound = 0;
        for (std::int32_t row = in.FixedRows(); row < in.Rows(); ++row) {
            const QModelIndex index = one.indexAt(row, 1);
            if (!index.isValid()) continue;
            ++bound;
            if (one.gridRow(index) != row) found += " row " + std::to_string(row) + " is taken twice";
        }
        if (bound != of.rowCount()) found += " there are rows of none";
        return found;
    }

    kit::Random dice;
    QStandardItemModel model;
    QSortFilterProxyModel proxy;
    kxGridWidget second;
    std::unique_ptr<ModelSheet> other;
};

INSTANTIATE_TEST_SUITE_P(Runs, RandomSheet, ::testing::Range(0, 4));

TEST_P(RandomSheet, BothSidesAgreeAfterEachAct) {
    GridModel mirrored(grid);
    QSortFilterProxyModel sorted;
    sorted.setSourceModel(&mirrored);
    sorted.sort(1);
    ModelMirror mirror(sorted);
    ModelMirror modelMirror(model);
    for (int i = 0; i < 400; ++i) {
        if (dice.oneIn(4)) {
            const auto step = grid.Step("several");
            for (auto n = dice.between(1, 4); n > 0; --n) act();
        } else {
            act();
        }
        sheet->submit();
        other->submit();
        sheet->submit();
        ASSERT_EQ(difference(*sheet, model, grid), "") << "act " << i << "\n" << desk.ascii();
        ASSERT_EQ(difference(*other, proxy, second.grid()), "") << "act " << i;
        ASSERT_FALSE(sheet->hasUnsent());
        ASSERT_EQ(modelMirror.rows, modelMirror.now()) << "act " << i;
        mirrored.flush();
        ASSERT_EQ(mirror.rows, mirror.now()) << "act " << i;
        ASSERT_EQ(text(grid.Rows() - 1, 1), "") << "there is a row to key on in";
    }
}

/// The same on a table of a database, whose records keep their contents wherever they stand.
class RandomSqlSheet : public SheetDesk, public ::testing::WithParamInterface<int> {
  protected:
    RandomSqlSheet() {
        model = table.model(static_cast<QSqlTableModel::EditStrategy>(GetParam() % 3));
        show(*model);
    }
    ~RandomSqlSheet() override {
        sheet.reset();
        tester.reset();
        model.reset();
    }
    std::int32_t anyRow() { return static_cast<std::int32_t>(dice.between(1, grid.Rows() - 1)); }
    void act() {
        constexpr std::array Some{Command::Undo, Command::Undo, Command::Redo, Command::DeleteRows,
                                  Command::Paste};
        grid.Grid().Select(anyRow(), static_cast<std::int32_t>(dice.between(2, 3)));
        switch (dice.between(0, 4)) {
            case 0:
                desk.run(Some[static_cast<std::size_t>(dice.between(0, std::ssize(Some) - 1))]);
                return;
            case 1:
                desk.clipboard("C" + std::to_string(dice.between(0, 30)) + "\tn\nC" +
                               std::to_string(dice.between(0, 30)) + "\tm\n");
                desk.run(Command::Paste);
                return;
            case 2:
                if (model->rowCount() > 0)
                    model->setData(model->index(static_cast<int>(dice.between(0, model->rowCount() - 1)), 2),
                                   QString("m%1").arg(dice.between(0, 99)));
                model->submit();
                return;
            case 3:
                if (dice.oneIn(6) && !(model->editStrategy() == QSqlTableModel::OnManualSubmit)) {
                    sheet->submit();
                    model->select();
                } else if (dice.oneIn(3)) {
                    sheet->submit();
                    if (!model->submitAll()) model->revertAll();
                }
                return;
            default:
                type(anyRow(), 2, "C" + std::to_string(dice.between(0, 30)));
        }
    }
    kit::Random dice;
    GoodsTable table{6};
    std::unique_ptr<QSqlTableModel> model;
};

INSTANTIATE_TEST_SUITE_P(Runs, RandomSqlSheet, ::testing::Range(0, 6));

TEST_P(RandomSqlSheet, TheGridShowsTheModelAfterEachAct) {
    for (int i = 0; i < 400; ++i) {
        act();
        for (int row = 0; row < model->rowCount(); ++row) {
            const QModelIndex index = model->index(row, 1);
            const std::int32_t at = sheet->gridRow(index);
            if (at < 0) {
                ASSERT_FALSE(index.flags() & Qt::ItemIsEditable) << "act " << i << ": row " << row;
                continue;
            }
            ASSERT_EQ(sheet->indexAt(at, 2), index);
            for (int column = 0; column < model->columnCount(); ++column)
                ASSERT_EQ(text(at, column + 1), cellOf(model->index(row, column).data(Qt::EditRole)))
                    << "act " << i << ": row " << row << ", column " << column;
        }
        ASSERT_EQ(text(grid.Rows() - 1, 2), "");
    }
}
}  // namespace
}  // namespace kxVsGrid::qt::testing
