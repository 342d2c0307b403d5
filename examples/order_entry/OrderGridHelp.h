// The help that the order's columns offer with F2 or the small button of the open editor. Knows no window:
// the control shows lists and calendars itself, and asks here for what they contain; what the host shows of
// its own is a service.
#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "Catalogue.h"
#ifndef Q_MOC_RUN  // moc reads no Chinese identifiers
#include "kxVsGrid/kxGrid.h"
#endif

class OrderGridHelp {
  public:
    struct Services {
        /// All goods, in the order of the list. May throw DatabaseError.
        std::function<std::vector<Goods>()> goods;
        /// The clerk changes the goods of a code, or enters new ones; answers the code of what was stored,
        /// empty when he gave up. May throw DatabaseError.
        std::function<QString(const QString& code)> editGoods;
        /// The clerk chooses a warehouse in a list at this place, twips of the screen; `typed` is the text of
        /// the cell. May throw DatabaseError.
        std::function<std::optional<CodeAndName>(std::int32_t x, std::int32_t y, const QString& typed)>
            chooseWarehouse;
        /// Something did not work.
        std::function<void(const QString& why)> failed;
    };

    /// The grid must outlive this, and have the columns of OrderGrid.
    OrderGridHelp(kxVsGrid::kxGrid& grid, Services services);
    OrderGridHelp(const OrderGridHelp&) = delete;
    OrderGridHelp& operator=(const OrderGridHelp&) = delete;

  private:
    void setUpColumns();
    void connectEvents();
    void offerGoods(kxVsGrid::Variant& Grid_code, kxVsGrid::Variant& GridInfo, kxVsGrid::Variant& GridData);
    void editGoods(kxVsGrid::Variant& GridData);
    void chooseWarehouse(std::int32_t x, std::int32_t y, std::string& name, kxVsGrid::Variant& code);

    kxVsGrid::kxGrid& grid_;
    Services services_;
    std::vector<kxVsGrid::ScopedConnection> connections_;
};
