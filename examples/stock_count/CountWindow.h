// The window 库存盘点.
#pragma once

#include <QCloseEvent>
#include <QDate>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>

#include "CountSheet.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace stock_count {
class CountWindow : public QMainWindow {
  public:
    CountWindow(CountStore& store, const Date& today)
        : widget_(new kxVsGrid::qt::kxGridWidget(this)), count_(widget_->grid(), store, today) {
        using kxVsGrid::Command;
        setWindowTitle("库存盘点[*]");
        setCentralWidget(widget_);
        resize(1280, 640);

        QToolBar* bar = addToolBar("盘点");
        QAction* save = bar->addAction("保存(&S)", QKeySequence::Save, this, [this] { this->save(); });
        for (const Command command : {Command::Undo, Command::Redo, Command::Find, Command::DeleteRows})
            bar->addAction(widget_->action(command));
        statusBar()->addWidget(message_, 1);

        save->setEnabled(false);
        modified_ = count_.sheet().onModified([this, save](bool modified) {
            setWindowModified(modified);
            save->setEnabled(modified);
            if (modified) message_->clear();
        });
        connect(widget_, &kxVsGrid::qt::kxGridWidget::handlerFailed, message_, &QLabel::setText);
    }

    /// False when the clerk has ended it.
    bool load() {
        QProgressDialog progress("正在读取盘点单…", "取消", 0, 0, this);
        progress.setWindowModality(Qt::WindowModal);
        const bool loaded = count_.load([&](std::size_t done, std::size_t total) {
            progress.setMaximum(static_cast<int>(total));
            progress.setValue(static_cast<int>(done));
            return !progress.wasCanceled();
        });
        widget_->setFocus();
        message_->setText(loaded ? "已读取" : "已取消读取");
        return loaded;
    }

    bool save() {
        const std::string why = count_.save();
        message_->setText(why.empty() ? "已保存" : QString::fromStdString("没有保存：" + why));
        return why.empty();
    }

    CountSheet& count() { return count_; }
    QString message() const { return message_->text(); }

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (!count_.sheet().commit()) return event->ignore();
        if (!count_.sheet().modified()) return;
        QMessageBox box(QMessageBox::Question, "库存盘点", "盘点结果还没有保存。", QMessageBox::NoButton,
                        this);
        const auto* save = box.addButton("保存", QMessageBox::AcceptRole);
        const auto* discard = box.addButton("不保存", QMessageBox::DestructiveRole);
        box.addButton("取消", QMessageBox::RejectRole);
        box.exec();
        const bool leaves = box.clickedButton() == discard || (box.clickedButton() == save && this->save());
        event->setAccepted(leaves);
    }

  private:
    kxVsGrid::qt::kxGridWidget* widget_;
    CountSheet count_;
    QLabel* message_ = new QLabel(this);
    kxVsGrid::ScopedConnection modified_;
};
}  // namespace stock_count
