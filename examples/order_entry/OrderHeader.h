// The head of an order: number, date, customer. Enter goes from field to field and on to the lines; the wheel
// changes nothing in a field that does not have the keyboard.
#pragma once

#include <QDate>
#include <QWidget>

#include "CustomerBox.h"
#include "Order.h"

class QDateEdit;
class QLabel;
class QLineEdit;

class OrderHeader : public QWidget {
    Q_OBJECT

  public:
    explicit OrderHeader(QWidget* parent = nullptr);

    void setCustomers(const std::vector<Customer>& customers) { customer_->setCustomers(customers); }
    /// Shows an order's head without reporting a change.
    void show(const Order& order);
    void showNumber(const QString& number);
    /// The fields can be read and copied from, not changed.
    void setReadOnly(bool readOnly);
    /// Writes the fields into an order.
    void read(Order& order) const;
    /// Something was typed for a customer that names none.
    bool customerUnclear() const;
    QString customerTyped() const;
    /// Shows a text that names no customer, without reporting a change.
    void showTyped(const QString& customer);
    QString number() const;
    QDate date() const;

    enum class Field { Number, Date, Customer };
    void focus(Field field);
    /// To the customer, behind what has been typed there.
    void goOnTyping();
    /// In the order of Tab.
    QWidget* lastField() const { return customer_; }

  signals:
    void changed();
    void dateChanged(const QDate& date);
    /// Enter in the last field.
    void done();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    void showContact();

    QLineEdit* number_;
    QDateEdit* date_;
    CustomerBox* customer_;
    QLabel* contact_;
};
