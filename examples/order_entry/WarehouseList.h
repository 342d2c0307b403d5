// A small list of the warehouses, shown at a cell.
#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "Catalogue.h"

class QListWidget;

class WarehouseList : public QDialog {
    Q_OBJECT

  public:
    /// Begins on the first warehouse whose code or name starts with what was typed.
    WarehouseList(const std::vector<CodeAndName>& warehouses, const QString& typed,
                  QWidget* parent = nullptr);

    /// The left top corner, on the screen; a list that would not be wholly visible moves.
    void place(const QPoint& corner);
    /// The one that the clerk took.
    std::optional<CodeAndName> chosen() const;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    std::vector<CodeAndName> warehouses_;
    QListWidget* list_;
};
