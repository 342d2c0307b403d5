// Appending rows one by one to an empty table.
#include <memory>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"

namespace kxbench {
namespace {

constexpr int Rows = 10'000;
constexpr std::int32_t Cols = 10;

struct AppendWidget : OnWidget {
    AppendWidget() { define(grid, Cols); }
    void append() { grid.Rows(grid.Rows() + 1); }
};
struct AppendLean : OnLean {
    AppendLean() { model.resize(0, Cols); }
    void append() { model.insertRows(model.rowCount(), 1); }
};
struct AppendStandard : OnStandardModel {
    AppendStandard() {
        model.setColumnCount(Cols);
        view.setModel(&model);
    }
    void append() { model.insertRow(model.rowCount()); }
};
struct AppendTableWidget {
    QTableWidget table;
    AppendTableWidget() { table.setColumnCount(Cols); }
    void append() { table.insertRow(table.rowCount()); }
};

template <class Contestant>
void add(const std::string& name) {
    measure(name, 1, 9, [](benchmark::State& state) {
        for (auto _ : state) {
            auto contestant = std::make_unique<Contestant>();
            state.SetIterationTime(seconds([&] {
                for (int i = 0; i < Rows; ++i) contestant->append();
            }));
        }
    });
}
}  // namespace

void planAppend(Plan& plan) {
    add<AppendWidget>("append/widget");
    add<AppendLean>("append/lean");
    add<AppendStandard>("append/QStandardItemModel");
    add<AppendTableWidget>("append/QTableWidget");
    const std::string work = "append 10,000 rows one by one, beside ";
    plan.push_back(
        {"append",
         {{work + "the lean model", "append/widget", "append/lean", Limit::Ratio, 1, Show::Milliseconds},
          {work + "QStandardItemModel", "append/widget", "append/QStandardItemModel", Limit::None, 0,
           Show::Milliseconds},
          {work + "QTableWidget", "append/widget", "append/QTableWidget", Limit::None, 0,
           Show::Milliseconds}},
         {}});
}
}  // namespace kxbench
