// Rows sorted by a column, as a clerk's command does it: texts read, rows moved with all that belongs to them, the
// step kept for undo. One peer is what a Qt programmer puts over his model; the other is the bare sorting of keys
// that somebody else has made already.
#include <QSortFilterProxyModel>
#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Contestants.h"
#include "Goods.h"
#include "Measure.h"
#include "Plan.h"

namespace kxbench {
namespace {

using namespace kxVsGrid;

constexpr std::int32_t Rows = 1'000'000;
constexpr std::int32_t Cols = 10;
constexpr std::int32_t Names = 20'000;

enum class By { Number, Date, Text };
struct Sorted {
    By by;
    const char* name;
    const char* work;
    std::int32_t col;  ///< of the data
};
constexpr Sorted Kinds[] = {{By::Number, "number", "number", 5},
                            {By::Date, "date", "date", 7},
                            {By::Text, "text", "Chinese text", 1}};

/// Rows in no order, the same in every run.
std::uint32_t mixed(std::int32_t row) {
    auto bits = static_cast<std::uint32_t>(row);
    for (const std::uint32_t factor : {0x85EB'CA6BU, 0xC2B2'AE35U}) bits = (bits ^ (bits >> 16)) * factor;
    return bits ^ (bits >> 16);
}

double numberOf(std::int32_t row) {
    return static_cast<double>(mixed(row) % 10'000'000) / 100;
}
std::int64_t dayOf(std::int32_t row) {
    return mixed(row) % 10'000;
}

std::string textOf(By by, std::int32_t row) {
    char text[32];
    switch (by) {
        case By::Number:
            std::snprintf(text, sizeof text, "%.2f", numberOf(row));
            return text;
        case By::Date: {
            const auto day = static_cast<int>(dayOf(row));
            std::snprintf(text, sizeof text, "%04d-%02d-%02d", 2000 + day / 366, day % 366 / 31 + 1,
                          day % 31 % 28 + 1);
            return text;
        }
        default:
            return goodOf(static_cast<std::int32_t>(mixed(row) % Names)).name;
    }
}

struct SortedGrid : OnWidget {
    SortedGrid() {
        define(grid, Cols);
        setRows(grid, Rows);
        fillCells(grid, Rows, Cols);
        for (const Sorted& kind : Kinds) {
            const std::int32_t col = kind.col + HeaderCols;
            grid.Options(col).sortable(true);
            for (std::int32_t row = 0; row < Rows; ++row)
                grid.Grid().Text(row + HeaderRows, col, textOf(kind.by, row));
        }
    }
};

/// A proxy as it is written for a column of numbers in a model of texts. Dates of ISO 8601 are in order as texts.
class NumberProxy : public QSortFilterProxyModel {
  public:
    bool byNumber = false;

  protected:
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
        if (!byNumber) return QSortFilterProxyModel::lessThan(left, right);
        return left.data().toString().toDouble() < right.data().toString().toDouble();
    }
};

struct SortedProxy : OnLean {
    NumberProxy proxy;
    SortedProxy() {
        model.resize(Rows, Cols);
        fillCells(model, Rows, Cols);
        for (const Sorted& kind : Kinds)
            for (std::int32_t row = 0; row < Rows; ++row)
                model.setData(model.index(row, kind.col), QString::fromStdString(textOf(kind.by, row)));
        proxy.setSourceModel(&model);
        view.setModel(&proxy);
    }
};

void addOurs(const Sorted& kind) {
    measure(std::string("sort_1m/") + kind.name + "_ours", 1, 5, [kind](benchmark::State& state) {
        SortedGrid& on = Shared<SortedGrid>::get();
        on.grid.Grid().Select(HeaderRows, kind.col + HeaderCols);
        for (auto _ : state) {
            bool done = false;
            state.SetIterationTime(seconds([&] { done = on.grid.Run(Command::SortUp); }));
            if (!done || !on.grid.Run(Command::Undo)) state.SkipWithError("was not sorted");
        }
    });
}

void addProxy(const Sorted& kind) {
    measure(std::string("sort_1m/") + kind.name + "_proxy", 1, 3, [kind](benchmark::State& state) {
        SortedProxy& on = Shared<SortedProxy>::get();
        on.proxy.byNumber = kind.by == By::Number;
        on.proxy.setSortLocaleAware(kind.by == By::Text);
        for (auto _ : state) {
            state.SetIterationTime(seconds([&] { on.proxy.sort(kind.col); }));
            on.proxy.sort(-1);
        }
    });
}

/// Numbers by value, dates by day; the place of each name among all names, as if they had been sorted before.
template <class Key, class KeyOf>
void addKeys(const Sorted& kind, KeyOf keyOf) {
    measure(std::string("sort_1m/") + kind.name + "_keys", 1, 5, [keyOf](benchmark::State& state) {
        std::vector<std::pair<Key, std::int32_t>> keys;
        keys.reserve(Rows);
        for (std::int32_t row = 0; row < Rows; ++row) keys.emplace_back(keyOf(row), row);
        for (auto _ : state) {
            state.SetIterationTime(seconds([&] {
                std::stable_sort(keys.begin(), keys.end(),
                                 [](const auto& a, const auto& b) { return a.first < b.first; });
            }));
        }
        benchmark::DoNotOptimize(keys.data());
    });
}
}  // namespace

void planSort(Plan& plan) {
    Group group{"sort_1m", {}, [] {
                    Shared<SortedGrid>::release();
                    Shared<SortedProxy>::release();
                }};
    for (const Sorted& kind : Kinds) {
        addOurs(kind);
        addProxy(kind);
        const std::string name = std::string("sort_1m/") + kind.name;
        const std::string work = std::string("sort 1,000,000 x 10 by ") + kind.work;
        group.lines.push_back({work + ", beside QSortFilterProxyModel over the lean model", name + "_ours",
                               name + "_proxy", Limit::Ratio, 0.2, Show::Milliseconds});
        group.lines.push_back({work + ", beside std::stable_sort of ready keys", name + "_ours",
                               name + "_keys", Limit::Ratio, 3, Show::Milliseconds});
    }
    addKeys<double>(Kinds[0], numberOf);
    addKeys<std::int64_t>(Kinds[1], dayOf);
    addKeys<std::uint32_t>(Kinds[2], [](std::int32_t row) { return mixed(row) % Names; });
    plan.push_back(std::move(group));
}
}  // namespace kxbench
