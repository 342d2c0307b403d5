#include "grid/Settings.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "columns/ColumnProperties.h"
#include "grid/SetUp.h"
#include "kxVsGrid/StoredKeys.h"
#include "support/CurrentError.h"

namespace kxVsGrid::grid {
namespace {

constexpr std::int32_t LoadedDataRows = 5;

struct GridLoading {
    support::Loading<Loaded> loading;
    const support::Storage<Loaded>* storage;
};

const std::vector<GridLoading>& gridLoadings() {
    static const std::vector<GridLoading> loadings = [] {
        std::vector<GridLoading> all;
        for (const GridProperty& property : gridProperties()) {
            if (!property.storage) continue;
            for (const auto& loading : property.storage->loadings)
                all.push_back({loading, &*property.storage});
        }
        std::ranges::sort(all, {}, [](const GridLoading& l) { return l.loading.place; });
        return all;
    }();
    return loadings;
}
}  // namespace

// --- Reading

void Settings::read(PropertyBag& bag) {
    readGrid(bag);
    if (!grid_.flags.ReDraw) totals_.setUp();
    columns_.resize(grid_.main.Cols());
    for (std::int32_t col = 0; col < grid_.main.Cols(); ++col) readColumn(bag, col);
    if (grid_.flags.ReDraw) setUpGrid(grid_.main, columns_, totals_);
}

void Settings::readGrid(PropertyBag& bag) {
    for (const auto& [loading, storage] : gridLoadings()) {
        // The number of rows alone has no default of its own: as many as a grid has at least.
        const Variant fallback =
            storage->fallback.isEmpty() ? grid_.main.FixedRows() + LoadedDataRows : storage->fallback;
        loading.into(grid_, bag.Read(storage->asked, fallback));
    }
}

void Settings::readColumn(PropertyBag& bag, std::int32_t col) {
    columns_.shared(col);  // created when there is none yet, also when its first value fails
    for (const StoredKey& key : columnKeys()) {
        const Variant value = bag.Read(columnKey(col, key.read), key.fallback);
        columns_.shared(col)->Put(key.member, value);
    }
}

std::string readFault() {
    return "ReadProperError:" + support::currentError();
}

std::string faultOfReading(PropertyBag& bag) {
    CellGrid main;
    CellGrid sums;
    columns::ColumnArray columns;
    host::ControlFlags flags;
    totals::TotalRow totals(main, sums, columns);
    Layout layout(main, sums, totals);
    columns.resize(main.Cols());
    try {
        Settings(main, sums, columns, flags, totals, layout).read(bag);
        return {};
    } catch (...) {
        return readFault();
    }
}

// --- Writing

void Settings::write(PropertyBag& bag, kxGrid& control) {
    std::vector<Variant> values;  // all of them first: a bag may end the control
    for (const StoredKey& key : writtenGridKeys()) values.push_back(control.Get(key.member));
    auto value = values.begin();
    for (const StoredKey& key : writtenGridKeys()) {
        if (key.hasWriteDefault)
            bag.Write(key.written, *value++, key.fallback);
        else
            bag.Write(key.written, *value++);
    }
    for (std::int32_t col = 0; col < grid_.main.Cols(); ++col) writeColumn(bag, col);
}

void Settings::writeColumn(PropertyBag& bag, std::int32_t col) {
    for (const StoredKey& key : columnKeys())
        bag.Write(columnKey(col, key.written), columns_.at(col).Get(key.member).as(key.type), key.fallback);
}
}  // namespace kxVsGrid::grid
