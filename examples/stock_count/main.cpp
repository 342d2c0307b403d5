// 库存盘点: a stock count of thousands of lines on an embedded database.
//
//     stock_count [FILE]
#include <QApplication>

#include "CountWindow.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QDate today = QDate::currentDate();
    stock_count::CountStore store(application.arguments().value(1, ":memory:"));
    stock_count::CountWindow window(store, {today.year(), today.month(), today.day()});
    window.show();
    if (!window.load()) return 1;
    return QApplication::exec();
}
