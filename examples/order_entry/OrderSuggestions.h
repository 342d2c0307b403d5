// What the columns of an order suggest while the clerk types: goods by code, name or initials, units, warehouses
// by code, name or initials.
#pragma once

#include <functional>
#include <vector>

#include "Catalogue.h"
#ifndef Q_MOC_RUN  // moc reads no Chinese identifiers
#include "kxVsGrid/kxGrid.h"
#endif

class OrderSuggestions {
  public:
    struct Services {
        /// All of them. May throw DatabaseError: then nothing is suggested, and they are asked for again with the
        /// next text.
        std::function<std::vector<Goods>()> goods;
        std::function<std::vector<CodeAndName>()> warehouses;
    };

    /// The grid must outlive this, and have the columns of OrderGrid.
    OrderSuggestions(kxVsGrid::kxGrid& grid, Services services);
    ~OrderSuggestions();
    OrderSuggestions(const OrderSuggestions&) = delete;
    OrderSuggestions& operator=(const OrderSuggestions&) = delete;

    /// There are other goods now, or the same ones with other particulars.
    void goodsChanged() { goodsRead_ = false; }

  private:
    void readGoods();
    void readWarehouses();

    kxVsGrid::kxGrid& grid_;
    Services services_;
    kxVsGrid::SuggestionList goods_;
    kxVsGrid::SuggestionList warehouses_;
    bool goodsRead_ = false;
    bool warehousesRead_ = false;
};
