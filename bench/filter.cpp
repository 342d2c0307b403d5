// Showing the rows of a long table that have one of some texts in a column, and showing all again.
#include <QSet>
#include <QSortFilterProxyModel>
#include <string>
#include <vector>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"

namespace kxbench {
namespace {

constexpr std::int32_t Rows = 1'000'000;
constexpr std::int32_t Cols = 3;
constexpr std::int32_t Filtered = 1;  ///< the data column
constexpr std::int32_t Distinct = 1000;

std::string textOf(std::int32_t row) {
    return "customer " + std::to_string(static_cast<std::int64_t>(row) * 7919 % Distinct);
}

/// Every second one of the texts that there are.
std::vector<std::string> shownTexts() {
    std::vector<std::string> texts;
    for (std::int32_t row = 0; row < Distinct; row += 2) texts.push_back(textOf(row));
    return texts;
}

struct FilteredWidget : OnWidget {
    std::vector<std::string> texts = shownTexts();
    FilteredWidget() {
        leavePlain(grid, Cols);
        setRows(grid, Rows);
        for (std::int32_t row = 0; row < Rows; ++row)
            grid.Grid().Text(row + HeaderRows, Filtered + HeaderCols, textOf(row));
    }
    void filter() { grid.Filters().Show(Filtered + HeaderCols, texts); }
    void showAll() { grid.Filters().ShowAll(); }
};

/// What is written by hand for a list of texts.
class TextFilter : public QSortFilterProxyModel {
  public:
    QSet<QString> texts;
    /// Filtering anew where the model is, it would take rows out stretch by stretch: minutes for a million of them.
    void filter(bool on) {
        QAbstractItemModel* const model = sourceModel();
        setSourceModel(nullptr);
        on_ = on;
        setSourceModel(model);
    }

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
        return !on_ || texts.contains(sourceModel()->index(row, Filtered, parent).data().toString());
    }

  private:
    bool on_ = false;
};

struct FilteredLean {
    LeanModel model;
    TextFilter proxy;
    QTableView view;
    FilteredLean() {
        model.refill(Rows, Cols, [](int row, int col, LeanModel::Cell& cell) {
            if (col == Filtered) cell.text = QString::fromStdString(textOf(row));
        });
        for (const std::string& text : shownTexts()) proxy.texts.insert(QString::fromStdString(text));
        proxy.setSourceModel(&model);
        view.setModel(&proxy);
    }
    void filter() { proxy.filter(true); }
    void showAll() { proxy.filter(false); }
};

template <class Contestant>
void add(const std::string& who) {
    measure("filter/" + who, 1, 5, [](benchmark::State& state) {
        Contestant& contestant = Shared<Contestant>::get();
        for (auto _ : state) {
            state.SetIterationTime(seconds([&] { contestant.filter(); }));
            contestant.showAll();
        }
    });
    measure("filter/" + who + "_all", 1, 5, [](benchmark::State& state) {
        Contestant& contestant = Shared<Contestant>::get();
        for (auto _ : state) {
            contestant.filter();
            state.SetIterationTime(seconds([&] { contestant.showAll(); }));
        }
    });
}
}  // namespace

void planFilter(Plan& plan) {
    add<FilteredWidget>("widget");
    add<FilteredLean>("lean");
    const std::string rows =
        " 1,000,000 rows by one text column, beside a proxy that is set anew over the lean model";
    plan.push_back({"filter",
                    {{"filter" + rows, "filter/widget", "filter/lean", Limit::Ratio, 1, Show::Milliseconds},
                     {"show all of" + rows, "filter/widget_all", "filter/lean_all", Limit::Ratio, 1,
                      Show::Milliseconds}},
                    [] {
                        Shared<FilteredWidget>::release();
                        Shared<FilteredLean>::release();
                    }});
}
}  // namespace kxbench
