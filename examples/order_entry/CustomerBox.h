// A field for choosing a customer by keyboard: any part of code, name or pinyin initials finds him.
//
// Enter takes the only customer that is meant, or offers those that may be; Down offers them as well.
#pragma once

#include <QLineEdit>
#include <vector>

#include "Catalogue.h"

class QStandardItemModel;

class CustomerBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit CustomerBox(QWidget* parent = nullptr);

    void setCustomers(const std::vector<Customer>& customers);
    /// 0 while the text names no customer.
    qint64 customerId() const;
    void setCustomerId(qint64 id);
    /// The chosen customer, or nullptr.
    const Customer* customer() const;
    /// Something was typed that is in no customer's code, name or initials.
    bool isHopeless() const;

  signals:
    void customerChanged();
    /// Enter, and the text names a customer.
    void accepted();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// Takes the text for a customer where it can only mean one.
    void resolve();
    void enter();
    void offer();
    const Customer* meant() const;

    std::vector<Customer> customers_;
    QStandardItemModel* model_;
};
