// A field for choosing a customer by keyboard: any part of code, name or pinyin initials finds him.
//
// While the clerk types, those who may be meant are suggested under the field, with the keys that the cells of a
// grid have. Enter takes the chosen one, else the only customer that is meant, else offers those that may be; Down
// offers them where no list is shown. A customer who is meant is also taken when the keyboard leaves.
#pragma once

#include <vector>

#include "Catalogue.h"
#include "kxVsGrid/qt/SuggestingLineEdit.h"

class CustomerBox : public kxVsGrid::qt::SuggestingLineEdit {
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
    void customerAccepted();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    /// Takes the text for a customer where it can only mean one.
    void resolve();
    void enter();
    const Customer* meant() const;
    /// Those who may be meant by a text; all customers for an empty one.
    std::vector<kxVsGrid::Suggestion> matches(const QString& text) const;
    void offerThoseMeant();

    std::vector<Customer> customers_;
};
