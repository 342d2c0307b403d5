// 商品资料: a table of an SQLite file, shown and edited as it is.
//
//     sql_table [FILE]
#include <QApplication>
#include <QSqlError>
#include <cstdio>

#include "GoodsWindow.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QSqlDatabase database = QSqlDatabase::addDatabase("QSQLITE");
    database.setDatabaseName(application.arguments().value(1, ":memory:"));
    if (!sql_table::openGoods(database)) {
        std::fprintf(stderr, "%s\n", qPrintable(database.lastError().text()));
        return 1;
    }
    sql_table::GoodsWindow window(database);
    window.show();
    return QApplication::exec();
}
