// A box that changes goods of the catalogue, or takes new ones into it.
//
// The wheel over a field that does not have the keyboard changes nothing.
#pragma once

#include <QDialog>

#include "Catalogue.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

class GoodsEditor : public QDialog {
    Q_OBJECT

  public:
    /// Shows the goods of this code; new ones when there are none. Another code in the field makes new goods
    /// of them. Throws DatabaseError.
    explicit GoodsEditor(Catalogue& catalogue, const QString& code = {}, QWidget* parent = nullptr);

    /// Stored already when the box was accepted; incomplete ones keep it open and say what is missing.
    void accept() override;
    /// The code of what was stored.
    QString stored() const { return stored_; }

  private:
    void layOut();
    void fillIn(const Goods& goods);
    void startNew();
    void showWhetherNew();
    bool isNew() const;
    /// Nothing when a field is faulty: it has the keyboard then.
    std::optional<Goods> read();
    void refuse(QWidget* field, const QString& why);

    Catalogue& catalogue_;
    QString changing_;  ///< the code of the goods that were there; empty: none
    QString stored_;
    QLineEdit* code_;
    QLineEdit* name_;
    QLineEdit* initials_;
    QLineEdit* spec_;
    QComboBox* unit_;
    QLineEdit* price_;
    QLabel* message_;
    QPushButton* new_;
};
