// The window 记账凭证.
#pragma once

#include <QCloseEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>

#include "VoucherSheet.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace ledger {
class VoucherWindow : public QMainWindow {
  public:
    VoucherWindow(VoucherStore& store, const Date& month)
        : widget_(new kxVsGrid::qt::kxGridWidget(this)), voucher_(widget_->grid(), store) {
        using kxVsGrid::Command;
        setWindowTitle(QString("记账凭证 %1 年 %2 月[*]").arg(month.year).arg(month.month));
        setCentralWidget(widget_);
        resize(960, 480);

        QToolBar* bar = addToolBar("凭证");
        QAction* save = bar->addAction("保存(&S)", QKeySequence::Save, this, [this] { this->save(); });
        bar->addAction("复制上月凭证", this, [this] { copyMonthBefore(); });
        for (const Command command :
             {Command::Undo, Command::Redo, Command::MoveRowUp, Command::MoveRowDown, Command::DeleteRows})
            bar->addAction(widget_->action(command));
        statusBar()->addWidget(message_, 1);
        statusBar()->addPermanentWidget(difference_);

        save->setEnabled(false);
        modified_ = voucher_.sheet().onModified([this, save](bool modified) {
            setWindowModified(modified);
            save->setEnabled(modified);
        });
        changed_ = voucher_.sheet().onChanged([this] { showDifference(); });
        connect(widget_, &kxVsGrid::qt::kxGridWidget::handlerFailed, message_, &QLabel::setText);
        voucher_.open(month);
        widget_->setFocus();
    }

    bool save() {
        const std::string why = voucher_.save();
        message_->setText(why.empty() ? "已保存" : QString::fromStdString("没有保存：" + why));
        return why.empty();
    }
    void copyMonthBefore() {
        if (!voucher_.sheet().commit()) return;
        try {
            message_->setText(voucher_.copyMonthBefore() ? "已复制上月凭证" : "上月没有凭证");
        } catch (const DatabaseError& error) {
            message_->setText(QString::fromStdString(std::string("没有复制：") + error.what()));
        }
    }

    VoucherSheet& voucher() { return voucher_; }
    QString message() const { return message_->text(); }
    QString difference() const { return difference_->text(); }

  protected:
    void closeEvent(QCloseEvent* event) override {
        if (!voucher_.sheet().commit()) return event->ignore();
        if (!voucher_.sheet().modified()) return;
        QMessageBox box(QMessageBox::Question, "记账凭证", "凭证还没有保存。", QMessageBox::NoButton, this);
        const auto* save = box.addButton("保存", QMessageBox::AcceptRole);
        const auto* discard = box.addButton("不保存", QMessageBox::DestructiveRole);
        box.addButton("取消", QMessageBox::RejectRole);
        box.exec();
        const bool leaves = box.clickedButton() == discard || (box.clickedButton() == save && this->save());
        event->setAccepted(leaves);
    }

  private:
    void showDifference() {
        const Decimal difference = voucher_.difference();
        difference_->setText(difference == 0 ? "借贷平衡"
                                             : QString::fromStdString("差额 " + difference.text(2)));
    }

    kxVsGrid::qt::kxGridWidget* widget_;
    VoucherSheet voucher_;
    QLabel* message_ = new QLabel(this);
    QLabel* difference_ = new QLabel(this);
    kxVsGrid::ScopedConnection modified_, changed_;
};
}  // namespace ledger
