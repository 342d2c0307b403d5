// A box for choosing a customer by keyboard: any part of code, name or pinyin initials finds him.
#pragma once

#include <QComboBox>
#include <vector>

#include "Catalogue.h"

class CustomerBox : public QComboBox {
    Q_OBJECT

  public:
    explicit CustomerBox(QWidget* parent = nullptr);

    void setCustomers(const std::vector<Customer>& customers);
    /// 0 while the text names no customer.
    qint64 customerId() const;
    void setCustomerId(qint64 id);
    /// The chosen customer, or nullptr.
    const Customer* customer() const;
    /// Takes the text for a customer where it can only mean one.
    void resolve();

  signals:
    void customerChanged();

  private:
    int indexMeant() const;

    std::vector<Customer> customers_;
};
