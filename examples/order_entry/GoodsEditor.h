// A box that takes new goods into the catalogue.
#pragma once

#include <QDialog>

#include "Catalogue.h"

class QComboBox;
class QLabel;
class QLineEdit;

class GoodsEditor : public QDialog {
    Q_OBJECT

  public:
    explicit GoodsEditor(Catalogue& catalogue, QWidget* parent = nullptr);

    /// Stored already when the box was accepted; incomplete ones keep it open and say what is missing.
    void accept() override;

  private:
    void layOut();
    /// Nothing when a field is faulty: it has the keyboard then.
    std::optional<Goods> read();
    void refuse(QWidget* field, const QString& why);

    Catalogue& catalogue_;
    QLineEdit* code_;
    QLineEdit* name_;
    QLineEdit* initials_;
    QLineEdit* spec_;
    QComboBox* unit_;
    QLineEdit* price_;
    QLabel* message_;
};
