// How this host uses the grid: the columns of an order as those of a sheet, and what follows from what the clerk
// types. Knows no window, so it works on any control.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "Catalogue.h"
#include "Order.h"
#ifndef Q_MOC_RUN  // moc reads no Chinese identifiers
#include "kxVsGrid/qt/QtFields.h"
#include "kxVsGrid/sheet/Sheet.h"
#endif

class OrderGrid {
  public:
    /// What the grid's host needs of the world. Whatever looks something up may throw DatabaseError.
    struct Services {
        std::function<std::optional<Goods>(const QString& code)> goods;
        std::function<std::vector<Goods>()> allGoods;
        /// The clerk changes the goods of a code, or enters new ones; what was stored, nothing when he gave up.
        std::function<std::optional<Goods>(const QString& code)> editGoods;
        std::function<std::optional<CodeAndName>(const QString& codeOrName)> warehouse;
        std::function<std::vector<CodeAndName>()> warehouses;
        /// The clerk chooses one in a list at this place of the screen, in twips.
        std::function<std::optional<CodeAndName>(std::int32_t x, std::int32_t y, const QString& typed)>
            chooseWarehouse;
        std::function<QDateTime()> now;
        /// Whether a row with content may go, or several of which some have content; the text names them.
        std::function<bool(const QString& rows)> mayDelete;
        /// For the status line.
        std::function<void(const QString& text, bool warning)> say;
    };

    /// The grid must outlive this; sets up its columns.
    OrderGrid(kxVsGrid::kxGrid& grid, Services services);

    kxVsGrid::Sheet<OrderLine>& sheet() { return sheet_; }

    /// Another order. Each row that the clerk comes to gets the preset warehouse and this delivery date.
    void show(const std::vector<OrderLine>& lines, const QDate& delivery);
    /// Another delivery date for rows that the clerk comes to, and for those that say nothing yet.
    void presetDelivery(const QDate& delivery);
    /// What has become of the lines since they were shown or saved. What was undone has not changed.
    LineChanges unsaved() const;

  private:
    void setUpColumns();
    void setUpControl();
    void edited(OrderLine& line, const kxVsGrid::sheet::Edited& cell);
    bool mayDelete(const std::vector<std::int32_t>& rows);

    kxVsGrid::kxGrid& grid_;
    Services services_;
    kxVsGrid::Sheet<OrderLine> sheet_;
};
