// A field for choosing a customer by keyboard: any part of code, name or pinyin initials finds him.
//
// While the clerk types, those who may be meant stand in a list under the field. The list is part of the same
// window and never has the keyboard: every key reaches the field itself, so that a clerk who types ahead ends
// where a slow one does. Down and Up choose in the list; Enter takes the chosen one, else the only customer
// that is meant, else offers those that may be. Tab takes in the same way. Esc closes the list.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <vector>

#include "Catalogue.h"

class QListView;
class QModelIndex;
class QStandardItemModel;

class CustomerBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit CustomerBox(QWidget* parent = nullptr);
    ~CustomerBox() override;

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
    void mousePressEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    /// Takes the text for a customer where it can only mean one.
    void resolve();
    void enter();
    const Customer* meant() const;

    /// Shows who may be meant by a text; all customers for an empty one. Nobody is chosen yet.
    void offer(const QString& text);
    /// Offers where nothing stands open, and goes so many rows down.
    void choose(int step);
    /// Puts the chosen customer into the field; False when none is chosen.
    bool takeChosen();
    void take(const QModelIndex& entry);
    void closeList();
    void placeList();
    bool listShown() const;

    std::vector<Customer> customers_;
    QStandardItemModel* offered_;
    QPointer<QListView> list_;  ///< belongs to the window, above its other parts
};
