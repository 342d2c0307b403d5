// The list of orders: search, sort by a header, choose one, open it.
#pragma once

#include <QCollator>
#include <QDialog>
#include <optional>
#include <vector>

#include "OrderStore.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

class OrderListDialog : public QDialog {
    Q_OBJECT

  public:
    /// Throws DatabaseError when the list cannot be read.
    explicit OrderListDialog(const OrderStore& store, QWidget* parent = nullptr);

    std::optional<qint64> chosen() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOut();
    void search();
    void arrange();
    void rearrange();
    void fill();
    bool comesBefore(const OrderSummary& one, const OrderSummary& other, int column) const;

    const OrderStore& store_;
    std::vector<OrderSummary> found_;   ///< newest first
    std::vector<OrderSummary> listed_;  ///< the same as they stand in the list
    QCollator collator_;
    QLineEdit* text_;
    QTableWidget* table_;
    QLabel* count_;
    QPushButton* open_;
};
