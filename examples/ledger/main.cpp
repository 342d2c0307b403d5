// 记账凭证: the voucher of a month on an embedded database.
//
//     ledger [FILE]
#include <QApplication>
#include <QDate>

#include "VoucherWindow.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QDate day = QDate::currentDate();
    const ledger::Date today{day.year(), day.month(), day.day()};
    ledger::VoucherStore store(application.arguments().value(1, ":memory:"), today);
    ledger::VoucherWindow window(store, ledger::monthOf(today));
    window.show();
    return QApplication::exec();
}
