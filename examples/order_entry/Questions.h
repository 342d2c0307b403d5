// What the window asks and tells the clerk in boxes. A test puts its own answers in this place.
#pragma once

#include <QPoint>
#include <QString>
#include <optional>
#include <vector>

#include "Catalogue.h"

class OrderStore;
class QWidget;

class Questions {
  public:
    enum class Leave { Save, Discard, Stay };

    virtual ~Questions() = default;
    /// There is unsaved work: what shall become of it?
    virtual Leave unsavedWork(QWidget* parent, const QString& what);
    virtual bool confirm(QWidget* parent, const QString& text, const QString& yes);
    /// Something did not work.
    virtual void problem(QWidget* parent, const QString& text);
    virtual void information(QWidget* parent, const QString& title, const QString& text);
    /// The order to open, or nothing. Throws DatabaseError.
    virtual std::optional<qint64> chooseOrder(QWidget* parent, const OrderStore& store);
    /// Changes the goods of a code, or takes new ones into the catalogue; answers the code of what was
    /// stored, empty when the clerk gave up. Throws DatabaseError.
    virtual QString editGoods(QWidget* parent, Catalogue& catalogue, const QString& code);
    /// The warehouse that the clerk takes out of a list at a place of the screen, or nothing.
    virtual std::optional<CodeAndName> chooseWarehouse(QWidget* parent,
                                                       const std::vector<CodeAndName>& warehouses,
                                                       const QString& typed, const QPoint& corner);
};
