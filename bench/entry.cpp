// One entry, key by key, each key painted: a typed key that opens the editor, five more, Enter.
#include <QApplication>
#include <QTemporaryDir>
#include <QTest>
#include <stdexcept>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "Stage.h"
#include "kxVsGrid/qt/DraftFile.h"

namespace kxbench {
namespace {

constexpr std::int32_t Rows = 1'000;
constexpr std::int32_t Col = FirstSummed;
constexpr int EntriesPerRepetition = 5;
constexpr int Repetitions = 31;

struct EntryWidget : OnWidget {
    EntryWidget() {
        define(grid, ShownCols);
        setRows(grid, Rows);
        fillCells(grid, Rows, ShownCols);
        show(widget);
    }
    QWidget& window() { return widget; }
    void select(std::int32_t row) { grid.Grid().Select(row + HeaderRows, Col + HeaderCols); }
    QString text(std::int32_t row) {
        return QString::fromStdString(grid.ReadCell(row + HeaderRows, Col + HeaderCols, true));
    }
};

/// Each entry is written to the disk as it is committed.
struct EntryDrafted : EntryWidget {
    QTemporaryDir folder;
    kxVsGrid::qt::DraftFile draft{widget, folder.path()};
    EntryDrafted() {
        draft.begin("order", "1");
        settle();
    }
};

struct EntryLean : OnLean {
    EntryLean() {
        model.resize(Rows, ShownCols);
        fillCells(model, Rows, ShownCols);
        show(view);
    }
    QWidget& window() { return view; }
    void select(std::int32_t row) { view.setCurrentIndex(model.index(row, Col)); }
    QString text(std::int32_t row) { return model.data(model.index(row, Col)).toString(); }
};

struct EntryTableWidget {
    QTableWidget table;
    EntryTableWidget() {
        table.setRowCount(Rows);
        table.setColumnCount(ShownCols);
        fillCells(table, Rows, ShownCols);
        show(table);
    }
    QWidget& window() { return table; }
    void select(std::int32_t row) { table.setCurrentCell(row, Col); }
    QString text(std::int32_t row) { return table.item(row, Col)->text(); }
};

/// Whoever has the keyboard gets the key; what it changes is painted.
void press(char key, const PaintCount& paints) {
    QWidget* const focused = QApplication::focusWidget();
    if (!focused) throw std::runtime_error("nobody has the keyboard");
    const int before = paints.count();
    if (key == '\r')
        QTest::keyClick(focused, Qt::Key_Return);
    else
        QTest::keyClick(focused, key);
    settle();
    if (paints.count() == before) throw std::runtime_error("a key was not painted");
}

/// The next entry: a row in view, and six digits that the cell does not have yet.
struct Entry {
    std::int32_t row;
    QByteArray digits;
};
Entry nextEntry() {
    static int number = 100'000;
    number += 13;
    return {3 + number % 30, QByteArray::number(number)};
}

/// What is done with each entry once its row is the current one.
template <class Contestant, class Work>
void addEntries(const std::string& name, Work work) {
    measure(name, EntriesPerRepetition, Repetitions, [work](benchmark::State& state) {
        Contestant& shown = Shared<Contestant>::get();
        activate(shown.window());
        const PaintCount paints(shown.window());
        for (auto _ : state) {
            const Entry entry = nextEntry();
            shown.select(entry.row);
            settle();
            work(state, shown, entry, paints);
        }
    });
}

template <class Contestant>
void addEntry(const std::string& name) {
    addEntries<Contestant>(
        name, [](benchmark::State& state, Contestant& shown, const Entry& entry, const PaintCount& paints) {
            state.SetIterationTime(seconds([&] {
                for (const char key : entry.digits) press(key, paints);
                press('\r', paints);
            }));
            if (shown.text(entry.row) != entry.digits) state.SkipWithError("the entry did not arrive");
        });
}

/// The first key alone; the rest of the entry is dropped.
template <class Contestant>
void addOpeningKey(const std::string& name) {
    addEntries<Contestant>(
        name, [](benchmark::State& state, Contestant&, const Entry& entry, const PaintCount& paints) {
            QWidget* const closed = QApplication::focusWidget();
            state.SetIterationTime(seconds([&] { press(entry.digits[0], paints); }));
            if (QApplication::focusWidget() == closed) state.SkipWithError("no editor was opened");
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            settle();
        });
}

void releaseAll() {
    Shared<EntryWidget>::release();
    Shared<EntryDrafted>::release();
    Shared<EntryLean>::release();
    Shared<EntryTableWidget>::release();
}
}  // namespace

void planEntry(Plan& plan) {
    addEntry<EntryWidget>("entry/widget");
    addEntry<EntryDrafted>("entry/drafted");
    addEntry<EntryLean>("entry/lean");
    addEntry<EntryTableWidget>("entry/QTableWidget");
    addOpeningKey<EntryWidget>("entry/widget_opening_key");
    addOpeningKey<EntryLean>("entry/lean_opening_key");
    const std::string work = "one entry painted: a key that opens the editor, five more, Enter; beside ";
    plan.push_back(
        {"entry",
         {{work + "the table view", "entry/widget", "entry/lean", Limit::Ratio, 0.4, Show::Milliseconds},
          {work + "QTableWidget", "entry/widget", "entry/QTableWidget", Limit::None, 0, Show::Milliseconds},
          {work + "the same without: with a draft on the disk", "entry/drafted", "entry/widget", Limit::Ratio,
           1.1, Show::Milliseconds},
          {"the opening key alone, beside the table view", "entry/widget_opening_key",
           "entry/lean_opening_key", Limit::None, 0, Show::Milliseconds}},
         releaseAll});
}
}  // namespace kxbench
