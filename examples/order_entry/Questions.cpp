#include "Questions.h"

#include <QMessageBox>
#include <QPushButton>

#include "GoodsEditor.h"
#include "OrderListDialog.h"
#include "WarehouseList.h"

using namespace Qt::StringLiterals;

Questions::Leave Questions::unsavedWork(QWidget* parent, const QString& what) {
    QMessageBox box(QMessageBox::Question, u"未保存的内容"_s, what + u"\n要保存吗?"_s, QMessageBox::NoButton,
                    parent);
    box.setTextFormat(Qt::PlainText);  // texts hold what the database holds
    QPushButton* save = box.addButton(u"保存(&S)"_s, QMessageBox::AcceptRole);
    QPushButton* discard = box.addButton(u"不保存(&D)"_s, QMessageBox::DestructiveRole);
    QPushButton* stay = box.addButton(u"取消(&C)"_s, QMessageBox::RejectRole);
    box.setDefaultButton(save);
    box.setEscapeButton(stay);
    box.exec();
    if (box.clickedButton() == save) return Leave::Save;
    return box.clickedButton() == discard ? Leave::Discard : Leave::Stay;
}

bool Questions::confirm(QWidget* parent, const QString& text, const QString& yes) {
    QMessageBox box(QMessageBox::Question, u"请确认"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* accept = box.addButton(yes, QMessageBox::AcceptRole);
    QPushButton* cancel = box.addButton(u"取消(&C)"_s, QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == accept;
}

void Questions::problem(QWidget* parent, const QString& text) {
    QMessageBox box(QMessageBox::Warning, u"销售订单录入"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.addButton(u"确定"_s, QMessageBox::AcceptRole);
    box.exec();
}

void Questions::information(QWidget* parent, const QString& title, const QString& text) {
    QMessageBox box(QMessageBox::Information, title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.addButton(u"确定"_s, QMessageBox::AcceptRole);
    box.exec();
}

std::optional<qint64> Questions::chooseOrder(QWidget* parent, const OrderStore& store) {
    OrderListDialog dialog(store, parent);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.chosen();
}

QString Questions::editGoods(QWidget* parent, Catalogue& catalogue, const QString& code) {
    GoodsEditor editor(catalogue, code, parent);
    return editor.exec() == QDialog::Accepted ? editor.stored() : QString();
}

std::optional<CodeAndName> Questions::chooseWarehouse(QWidget* parent,
                                                      const std::vector<CodeAndName>& warehouses,
                                                      const QString& typed, const QPoint& corner) {
    WarehouseList list(warehouses, typed, parent);
    list.place(corner);
    list.exec();
    return list.chosen();
}
