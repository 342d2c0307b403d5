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

}  // namespace

// --- Reading

void Settings::read(PropertyBag& bag) {
    readGrid(bag);
    if (!grid_.flags.ReDraw) totals_.setUp();
    columns_.resize(grid_.main.Cols());
    for (std::int32_t col = 0; col < grid_.main.Cols(); ++col) readColumn(bag, col);
    if (grid_.flags.ReDraw) setUpGrid(grid_.main, columns_, clerkColumns_, totals_);
}

void Settings::readGrid(PropertyBag& bag) {
    static const auto readings = support::inOrderOfReading(gridProperties());
    for (const auto& [property, loading] : readings) {
        // The number of rows alone has no default of its own: as many as a grid has at least.
        const Variant& own = property->storage->fallback;
        const Variant fallback = own.isEmpty() ? grid_.main.FixedRows() + LoadedDataRows : own;
        loading.into(grid_, bag.Read(property->storage->asked, fallback));
    }
}

void Settings::readColumn(PropertyBag& bag, std::int32_t col) {
    static const auto readings = support::inOrderOfReading(columns::columnProperties());
    columns_.shared(col);  // created when there is none yet, also when its first value fails
    for (const auto& [property, loading] : readings) {
        const Variant value = bag.Read(columnKey(col, property->storage->asked), property->storage->fallback);
        loading.into(*columns_.shared(col), value);
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
        Settings(main, sums, columns, nullptr, flags, totals, layout).read(bag);
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
