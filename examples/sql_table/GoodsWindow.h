// The window 商品资料: a QSqlTableModel in a grid. Each row is stored when the clerk leaves it.
#pragma once

#include <QCloseEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlTableModel>
#include <QStatusBar>
#include <QToolBar>

#include "kxVsGrid/qt/ModelSheet.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace sql_table {

/// Opens the database; one without the table gets it, with sample goods. False when that fails: lastError() says why.
inline bool openGoods(QSqlDatabase& database, int samples = 2000) {
    if (!database.open()) return false;
    if (database.tables().contains("goods")) return true;
    QSqlQuery query(database);
    database.transaction();
    const bool made = query.exec(
        "CREATE TABLE goods (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL, unit "
        "TEXT,"
        " price REAL CHECK (price >= 0), stock REAL NOT NULL DEFAULT 0, arrived TEXT, sold INTEGER, remark "
        "TEXT)");
    const char* const names[] = {"六角螺栓", "无缝钢管", "深沟球轴承", "三角带", "电焊条", "密封垫圈"};
    const char* const units[] = {"个", "米", "套", "条", "公斤", "片"};
    query.prepare("INSERT INTO goods VALUES (NULL, ?, ?, ?, ?, ?, ?, ?, NULL)");
    bool done = made;
    for (int i = 0; i < samples && done; ++i) {
        query.addBindValue(QString::number(100'001 + i));
        query.addBindValue(QString("%1 M%2×%3").arg(names[i % 6]).arg(4 + i / 6 % 20).arg(10 + i / 120 * 5));
        query.addBindValue(units[i % 6]);
        query.addBindValue((120 + i * 37 % 9'000) / 100.0);
        query.addBindValue(5 + i * 13 % 400);
        query.addBindValue(
            QString("2026-%1-%2").arg(1 + i % 10, 2, 10, QChar('0')).arg(1 + i % 28, 2, 10, QChar('0')));
        query.addBindValue(i % 5 != 0);
        done = query.exec();
    }
    return done ? database.commit() : (database.rollback(), false);
}

class GoodsWindow : public QMainWindow {
  public:
    explicit GoodsWindow(const QSqlDatabase& database) : goods_(nullptr, database) {
        setWindowTitle("商品资料");
        setCentralWidget(widget_);
        resize(1100, 600);

        goods_.setTable("goods");
        goods_.setEditStrategy(QSqlTableModel::OnRowChange);
        goods_.select();
        sheet_ = new kxVsGrid::qt::ModelSheet(widget_->grid(), goods_, this);
        sheet_->setReason([this] { return goods_.lastError().databaseText(); });
        sheet_->column("id").hidden();
        sheet_->column("code").caption("货号").width("100000000").required();
        sheet_->column("name").caption("品名").stretch().required();
        sheet_->column("unit").caption("单位").width("公斤公");
        sheet_->column("price").caption("单价").decimals(2);
        sheet_->column("stock").caption("库存").decimals(3).total();
        sheet_->column("arrived").caption("到货日期").date();
        sheet_->column("sold").caption("在售").flag();
        sheet_->column("remark").caption("备注").width("备注备注备注").limit(40);

        using kxVsGrid::Command;
        QToolBar* bar = addToolBar("商品");
        for (const Command command : {Command::Undo, Command::Redo, Command::Find, Command::DeleteRows})
            bar->addAction(widget_->action(command));
        statusBar()->addWidget(message_, 1);
        connect(sheet_, &kxVsGrid::qt::ModelSheet::refused, this,
                [this](int, int, const QString& why) { message_->setText("没有保存：" + why); });
        connect(&goods_, &QAbstractItemModel::dataChanged, message_, &QLabel::clear);
        connect(widget_, &kxVsGrid::qt::kxGridWidget::handlerFailed, message_, &QLabel::setText);
        widget_->setFocus();
    }

    kxVsGrid::kxGrid& grid() { return widget_->grid(); }
    kxVsGrid::qt::ModelSheet& sheet() { return *sheet_; }
    QString message() const { return message_->text(); }

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (sheet_->submit()) return;
        const auto answer = QMessageBox::question(this, windowTitle(), "有的行没有保存。放弃这些行吗？");
        event->setAccepted(answer == QMessageBox::Yes);
    }

  private:
    QSqlTableModel goods_;
    kxVsGrid::qt::kxGridWidget* widget_ = new kxVsGrid::qt::kxGridWidget(this);
    kxVsGrid::qt::ModelSheet* sheet_ = nullptr;
    QLabel* message_ = new QLabel(this);
};
}  // namespace sql_table
