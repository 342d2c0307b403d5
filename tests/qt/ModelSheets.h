// Models in a grid, for tests: a desk with a sheet, a database in memory.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QStandardItemModel>
#include <QString>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "kit/WhenOpen.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/qt/ModelSheet.h"

namespace kxVsGrid::qt::testing {

/// What a cell has for a value.
inline std::string cellOf(const QVariant& value) {
    if (value.isNull()) return {};
    if (value.metaType().id() == QMetaType::Bool) return value.toBool() ? "1" : "0";
    return value.toString().toStdString();
}

/// Compares each text of a model with the grid that shows it, fetched or not.
inline std::string differenceOf(const ModelSheet& sheet, const QAbstractItemModel& model, kxGrid& grid) {
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column) {
            const QModelIndex index = model.index(row, column);
            const std::int32_t at = sheet.gridRow(index);
            if (at < 0) return "row " + std::to_string(row) + " of the model has no row in the grid";
            const std::string shown = grid.Grid().Text(at, sheet.gridCol(index));
            const std::string held = cellOf(index.data(Qt::EditRole));
            if (shown != held)
                return "row " + std::to_string(row) + ", column " + std::to_string(column) +
                       ": the grid has " + shown + ", the model " + held;
        }
    return {};
}

/// A grid on a machine without a window; its sheet is made by show().
class SheetDesk : public ::testing::Test {
  protected:
    SheetDesk() { desk.focusGrid(); }

    ModelSheet& show(QAbstractItemModel& model) {
        // The tester itself fetches while it is told of rows that are being fetched, and then complains about it.
        if (!model.canFetchMore({}))
            tester = std::make_unique<QAbstractItemModelTester>(
                &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
        sheet = std::make_unique<ModelSheet>(grid, model);
        QObject::connect(
            sheet.get(), &ModelSheet::refused, sheet.get(), [this](int row, int col, const QString& why) {
                refusals.push_back(std::to_string(row) + "," + std::to_string(col) + " " + why.toStdString());
            });
        return *sheet;
    }
    void type(std::int32_t row, std::int32_t col, std::string_view text) {
        grid.Grid().Select(row, col);
        if (text.empty())
            desk.run(Command::ClearCells);
        else
            desk.type(text).press(Key::Enter);
    }
    void leave() { grid.Grid().Select(grid.FixedRows() == grid.Row() ? grid.Rows() - 1 : 1, grid.Col()); }
    std::string text(std::int32_t row, std::int32_t col) { return grid.Grid().Text(row, col); }
    std::string markOf(std::int32_t row, std::int32_t col) {
        const CellMark* const mark = grid.Mark(row, col);
        return mark ? mark->text : std::string();
    }
    /// The texts of a column, row after row, the spare one too.
    std::string column(std::int32_t col) {
        std::string texts;
        for (std::int32_t row = 1; row < grid.Rows(); ++row) texts += (row > 1 ? "|" : "") + text(row, col);
        return texts;
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    std::vector<std::string> refusals;
    std::unique_ptr<QAbstractItemModelTester> tester;
    std::unique_ptr<ModelSheet> sheet;
};

/// Rows of code, quantity, paid.
inline std::unique_ptr<QStandardItemModel> standardGoods(int rows) {
    auto model = std::make_unique<QStandardItemModel>(rows, 3);
    model->setHorizontalHeaderLabels({"code", "quantity", "paid"});
    for (int row = 0; row < rows; ++row) {
        model->setData(model->index(row, 0), QString("A%1").arg(row + 1));
        model->setData(model->index(row, 1), (row + 1) * 10);
        model->setData(model->index(row, 2), row % 2 == 0);
    }
    return model;
}
inline std::string columnOf(const QAbstractItemModel& model, int column) {
    std::string texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts += (row > 0 ? "|" : "") + model.index(row, column).data(Qt::EditRole).toString().toStdString();
    return texts;
}

/// A table of goods in SQLite, gone with this.
class GoodsTable {
  public:
    explicit GoodsTable(int rows = 3) : database_(open()) {
        run("CREATE TABLE goods (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE CHECK (code <> 'bad'),"
            " name TEXT, price REAL CHECK (price >= 0), arrived TEXT)");
        run("BEGIN");
        for (int row = 1; row <= rows; ++row)
            run(QString("INSERT INTO goods VALUES (%1, 'A%1', 'name %1', %1.5, '2026-11-0%2')")
                    .arg(row)
                    .arg(row % 9 + 1));
        run("COMMIT");
    }
    ~GoodsTable() {
        const QString name = database_.connectionName();
        database_ = {};
        QSqlDatabase::removeDatabase(name);
    }
    GoodsTable(const GoodsTable&) = delete;
    GoodsTable& operator=(const GoodsTable&) = delete;

    void run(const QString& statement) {
        QSqlQuery query(database_);
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
    }
    std::string ask(const QString& statement) {
        QSqlQuery query(database_);
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
        std::string all;
        bool first = true;
        while (query.next())
            all += (first ? "" : "|") + query.value(0).toString().toStdString(), first = false;
        return all;
    }
    std::unique_ptr<QSqlTableModel> model(QSqlTableModel::EditStrategy strategy) {
        auto model = std::make_unique<QSqlTableModel>(nullptr, database_);
        model->setTable("goods");
        model->setEditStrategy(strategy);
        EXPECT_TRUE(model->select());
        return model;
    }

  private:
    static QSqlDatabase open() {
        static int count = 0;
        QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE", QString("goods %1").arg(++count));
        database.setDatabaseName(":memory:");
        EXPECT_TRUE(database.open());
        return database;
    }
    QSqlDatabase database_;
};
}  // namespace kxVsGrid::qt::testing
