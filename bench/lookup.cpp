// Help over many records: what a key in the search box costs, whatever it makes of the text, and how long the
// list takes to open. Three fields are searched: code, name, initials. The peers are what a Qt programmer
// takes for a search box: a completer per field, and a filter over the same model.
#include <QCompleter>
#include <QRegularExpression>
#include <QSortFilterProxyModel>
#include <array>
#include <string>
#include <utility>

#include "Contestants.h"
#include "Goods.h"
#include "Measure.h"
#include "Plan.h"
#include "Typing.h"
#include "dialogs/LookupForm.h"
#include "kxVsGrid/HelpExchange.h"
#include "kxVsGrid/HelpTable.h"

namespace kxbench {
namespace {

using namespace kxVsGrid;

constexpr std::int32_t HundredThousand = 100'000;
constexpr std::int32_t Million = 1'000'000;
constexpr int Fields = 3;

/// What is typed: another text of its kind at every turn, since a completer keeps what it found before.
const Typing Typings[] = {
    {"letter", "one letter",
     [](std::int32_t, std::int32_t turn) {
         static constexpr std::string_view Letters = "SqzbksdylmABCDEFGHIJKLMNOPQRTUVWXYZacefghijnoprtuvwx";
         return std::string(1, Letters[static_cast<std::size_t>(turn) % Letters.size()]);
     }},
    {"early", "a code of the first rows",
     [](std::int32_t, std::int32_t turn) { return goodOf(10 + turn % 100).code; }},
    {"late", "a code of the last rows",
     [](std::int32_t rows, std::int32_t turn) { return goodOf(rows - 1 - turn % 20'000).code; }},
    {"long", "a whole name of the last rows",
     [](std::int32_t rows, std::int32_t turn) { return goodOf(rows - 1 - turn % 20'000).name; }},
    {"nothing", "what nothing starts with",
     [](std::int32_t, std::int32_t turn) { return (turn % 2 ? "SKU-24-x" : "z8") + std::to_string(turn); }},
};

// --- Ours

/// A window that does its idle work when it is told to.
class Window : public FormWindow {
  public:
    void changed(const FormControl&) override {}
    void giveFocus(const FormControl&) override {}
    void close() override {}
    void whenIdle(std::function<bool()> slice) override { slice_ = std::move(slice); }
    void work() {
        while (slice_ && slice_()) {
        }
        slice_ = nullptr;
    }

  private:
    std::function<bool()> slice_;
};

template <std::int32_t Rows>
struct Answer {
    Variant info;
    Variant data;
    Answer() {
        HelpTable table("货号");
        table.field("code", "货号").field("name", "品名", 3000).field("initials", "简码");
        table.result("code", "name").search({"code", "name", "initials"});
        info = table.GridInfo();
        Table records(1, Rows, 0, Fields - 1);
        for (std::int32_t row = 0; row < Rows; ++row) {
            const Good good = goodOf(row);
            records.at(row + 1, 0) = good.code;
            records.at(row + 1, 1) = good.name;
            records.at(row + 1, 2) = good.initials;
        }
        data = records;
    }
    void give() const {
        HelpExchange::shared() = {};
        HelpExchange::shared().GridInfo = info;
        HelpExchange::shared().GridData = data;
    }
};

template <std::int32_t Rows, bool Built>
struct Dialog {
    dialogs::LookupForm lookup{TextMetrics::fixed()};
    Form& form = lookup;
    Window window;
    Dialog() {
        Shared<Answer<Rows>>::get().give();
        form.open(window);
        if (Built) window.work();
    }
    ~Dialog() { form.closed(); }
    void type(const std::string& text) { form.edit(form.control("CodeText"), text, 0, 0); }
};

// --- Peers

/// A model of three columns that hands out texts, as a program's own list does.
class GoodsModel : public QAbstractTableModel {
  public:
    explicit GoodsModel(std::int32_t rows) {
        texts_.reserve(static_cast<std::size_t>(rows) * Fields);
        for (std::int32_t row = 0; row < rows; ++row) {
            const Good good = goodOf(row);
            for (const std::string& text : {good.code, good.name, good.initials})
                texts_.push_back(QString::fromStdString(text));
        }
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(texts_.size() / Fields);
    }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : Fields; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::EditRole) return {};
        return texts_[static_cast<std::size_t>(index.row()) * Fields +
                      static_cast<std::size_t>(index.column())];
    }

  private:
    std::vector<QString> texts_;
};

/// One completer per field; the codes come in order, so theirs may search by halving.
template <std::int32_t Rows>
struct Completers {
    GoodsModel model{Rows};
    std::array<QCompleter, Fields> completers;
    Completers() {
        for (int field = 0; field < Fields; ++field) {
            QCompleter& completer = completers[static_cast<std::size_t>(field)];
            completer.setModel(&model);
            completer.setCompletionColumn(field);
            completer.setCaseSensitivity(Qt::CaseSensitive);
            completer.setModelSorting(field == 0 ? QCompleter::CaseSensitivelySortedModel
                                                 : QCompleter::UnsortedModel);
        }
    }
    void type(const std::string& text) {
        const QString typed = QString::fromStdString(text);
        for (QCompleter& completer : completers) {
            completer.setCompletionPrefix(typed);
            benchmark::DoNotOptimize(completer.currentIndex().row());
        }
    }
};

/// Hides the rows of which no field starts with the text.
template <std::int32_t Rows>
struct Filter {
    GoodsModel model{Rows};
    QSortFilterProxyModel proxy;
    Filter() {
        proxy.setSourceModel(&model);
        proxy.setFilterKeyColumn(-1);
    }
    void type(const std::string& text) {
        proxy.setFilterRegularExpression(
            QRegularExpression("^" + QRegularExpression::escape(QString::fromStdString(text))));
        benchmark::DoNotOptimize(proxy.rowCount());
    }
};

// --- The plan

/// From the host's answer to the filled list.
template <std::int32_t Rows>
void addOpening(const std::string& name, int repetitions) {
    measure(name, 1, repetitions, [](benchmark::State& state) {
        for (auto _ : state) {
            const Answer<Rows>& answer = Shared<Answer<Rows>>::get();
            returnFreedMemory();
            std::unique_ptr<Dialog<Rows, false>> dialog;
            state.SetIterationTime(seconds([&] {
                answer.give();
                dialog = std::make_unique<Dialog<Rows, false>>();
            }));
            if (dialog->form.control("CzxsGrid").grid->Rows() != Rows + 1) state.SkipWithError("not filled");
        }
    });
}

template <std::int32_t Rows>
void releaseAll() {
    Shared<Dialog<Rows, true>>::release();
    Shared<Dialog<Rows, false>>::release();
    Shared<Completers<Rows>>::release();
    Shared<Filter<Rows>>::release();
    Shared<Answer<Rows>>::release();
    HelpExchange::shared() = {};
}

template <std::int32_t Rows>
Group planOf(const std::string& name, const std::string& count, double limit) {
    const bool many = Rows > HundredThousand;
    addTyping<Dialog<Rows, true>>(Typings, name, "ours", Rows, 1000, 9);
    addTyping<Completers<Rows>>(Typings, name, "completer", Rows, many ? 2 : 10, 3);
    addTyping<Filter<Rows>>(Typings, name, "filter", Rows, many ? 1 : 4, 3);
    Group group{name, {}, releaseAll<Rows>};
    for (const Typing& typing : Typings) {
        const std::string work = "a key in the search box, " + count + " records, " + typing.work;
        const std::string typed = name + "/" + typing.name + "_";
        group.lines.push_back({work + ", beside QCompleter", typed + "ours", typed + "completer",
                               Limit::Seconds, limit, Show::Milliseconds});
        group.lines.push_back({work + ", beside a filter proxy", typed + "ours", typed + "filter",
                               Limit::Seconds, limit, Show::Milliseconds});
    }
    return group;
}

/// What is done before the index stands.
template <std::int32_t Rows>
void addBeginning(Group& group, const std::string& count) {
    constexpr double MostScanning = 0.3e-3;
    constexpr double MostOpening = 0.15;
    addTyping<Dialog<Rows, false>>(Typings, group.name, "scan", Rows, 100, 9);
    for (const Typing& typing : Typings)
        group.lines.push_back({"the same before the index stands, " + count + " records, " + typing.work,
                               group.name + "/" + typing.name + "_scan", "", Limit::Seconds, MostScanning,
                               Show::Milliseconds});
    addOpening<Rows>(group.name + "/open", 9);
    group.lines.push_back({"help over " + count + " records, from the host's answer to the filled list",
                           group.name + "/open", "", Limit::Seconds, MostOpening, Show::Milliseconds});
}
}  // namespace

void planLookup(Plan& plan) {
    plan.push_back(planOf<HundredThousand>("lookup_100k", "100,000", 0.02e-3));
    addBeginning<HundredThousand>(plan.back(), "100,000");
    plan.push_back(planOf<Million>("lookup_1m", "1,000,000", 0.05e-3));
}
}  // namespace kxbench
