#include "OrderSuggestions.h"

#include "Initials.h"
#include "OrderGrid.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
/// While the database fails, nothing is suggested: what is typed is looked up again, which says why it fails.
void read(bool& done, const std::function<void()>& work) {
    if (done) return;
    try {
        work();
        done = true;
    } catch (const DatabaseError&) {
    }
}
}  // namespace

OrderSuggestions::OrderSuggestions(kxGrid& grid, Services services)
    : grid_(grid), services_(std::move(services)) {
    // Some thousand records are read in the time of one key; from then on they are searched in memory.
    grid_.Options(OrderGrid::Code).suggest([this](const SuggestionRequest& request) {
        read(goodsRead_, [this] { readGoods(); });
        goods_(request);
    });
    grid_.Options(OrderGrid::Warehouse).suggest([this](const SuggestionRequest& request) {
        read(warehousesRead_, [this] { readWarehouses(); });
        warehouses_(request);
    });
    SuggestionList units;
    for (const QString& unit : QString::fromUtf8(OrderGrid::Units).split(u'|'))
        units.add({unit.toStdString(), unit.toStdString(), {}}, {initialsOf(unit).toStdString()});
    grid_.Options(OrderGrid::Unit).suggest(units);
}

OrderSuggestions::~OrderSuggestions() {
    for (const OrderGrid::Column col : {OrderGrid::Code, OrderGrid::Unit, OrderGrid::Warehouse})
        grid_.Options(col).suggest({});
}

/// The initials in the record are those that the clerk knows, whoever wrote them there.
void OrderSuggestions::readGoods() {
    const std::vector<Goods> all = services_.goods();
    goods_.clear();
    for (const Goods& one : all) {
        const std::string name = one.name.toStdString();
        const std::string initials = one.pinyin.toStdString();
        goods_.add({one.code.toStdString(), name, (one.name + u"  "_s + one.spec).toStdString()},
                   {name, initials});
    }
}

void OrderSuggestions::readWarehouses() {
    const std::vector<CodeAndName> all = services_.warehouses();
    warehouses_.clear();
    for (const CodeAndName& one : all) {
        const std::string code = one.code.toStdString();
        const std::string initials = initialsOf(one.name).toStdString();
        warehouses_.add({one.name.toStdString(), code, code}, {code, initials});
    }
}
