// What it costs to keep track of changes: filling a table that is recorded and logged, a large step with its
// undo and redo, and the memory of many small ones.
#include <QUndoCommand>
#include <QUndoStack>
#include <memory>
#include <stdexcept>
#include <string>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "Texts.h"

namespace kxbench {
namespace {

constexpr std::int32_t Cols = 10;

// --- Filling

constexpr std::int32_t FilledRows = 200'000;

struct FillBare : OnDesk {
    FillBare() {
        leavePlain(grid, Cols);
        setRows(grid, FilledRows);
    }
    void fill() { fillCells(grid, FilledRows, Cols); }
};

/// All of it is one step, and all of it is logged.
struct FillRecorded : FillBare {
    void fill() {
        auto step = grid.Step("fill");
        FillBare::fill();
        step.close();
        if (!grid.History().CanUndo() || grid.Changes().empty())
            throw std::runtime_error("the fill was not recorded");
    }
    FillRecorded() { grid.Changes().Saved(); }
};

template <class Contestant>
void addFill(const std::string& name) {
    measure(name, 1, 9, [](benchmark::State& state) {
        for (auto _ : state) {
            returnFreedMemory();
            auto contestant = std::make_unique<Contestant>();
            state.SetIterationTime(seconds([&] { contestant->fill(); }));
        }
    });
}

// --- A step of many cells

constexpr std::int32_t StepRows = 10'000;

/// The texts of the row below: each cell had another one.
template <class Write>
void rewrite(Write write) {
    const Texts& texts = Texts::instance();
    for (std::int32_t r = 0; r < StepRows; ++r)
        for (std::int32_t c = 0; c < Cols; ++c) write(r, c, texts.utf8(r + 1, c), texts.text(r + 1, c));
}

struct StepDesk : OnDesk {
    StepDesk() {
        leavePlain(grid, Cols);
        setRows(grid, StepRows);
        fillCells(grid, StepRows, Cols);
    }
    void record() {
        auto step = grid.Step("rewrite");
        rewrite([this](std::int32_t r, std::int32_t c, std::string_view text, const QString&) {
            grid.Grid().Text(r + HeaderRows, c + HeaderCols, text);
        });
        step.close();
    }
    void undo() { went(grid.History().Undo()); }
    void redo() { went(grid.History().Redo()); }
    static void went(bool done) {
        if (!done) throw std::runtime_error("there was nothing to go back to");
    }
};

/// What the manual of the peer suggests: a command for each cell, a macro around them.
class SetText : public QUndoCommand {
  public:
    SetText(LeanModel& model, int row, int col, QString after)
        : model_(model), row_(row), col_(col), after_(std::move(after)) {
        before_ = model.data(model.index(row, col)).toString();
    }
    void undo() override { model_.setData(model_.index(row_, col_), before_); }
    void redo() override { model_.setData(model_.index(row_, col_), after_); }

  private:
    LeanModel& model_;
    int row_;
    int col_;
    QString before_;
    QString after_;
};

struct StepStack : OnLean {
    QUndoStack stack;
    StepStack() {
        model.resize(StepRows, Cols);
        fillCells(model, StepRows, Cols);
    }
    void record() {
        stack.beginMacro("rewrite");
        rewrite([this](std::int32_t r, std::int32_t c, std::string_view, const QString& text) {
            stack.push(new SetText(model, r, c, text));
        });
        stack.endMacro();
    }
    void undo() { stack.undo(); }
    void redo() { stack.redo(); }
};

template <class Contestant>
void addStep(const std::string& name) {
    const auto add = [&](const char* what, auto prepare, auto work) {
        measure(name + what, 1, 9, [=](benchmark::State& state) {
            for (auto _ : state) {
                auto contestant = std::make_unique<Contestant>();
                prepare(*contestant);
                state.SetIterationTime(seconds([&] { work(*contestant); }));
            }
        });
    };
    add(
        "_record", [](Contestant&) {}, [](Contestant& on) { on.record(); });
    add(
        "_undo", [](Contestant& on) { on.record(); }, [](Contestant& on) { on.undo(); });
    add(
        "_redo", [](Contestant& on) { on.record(), on.undo(); }, [](Contestant& on) { on.redo(); });
}

// --- Many small steps

constexpr std::int32_t TypedSteps = 10'000;

/// Numbers of five digits, from the first row down.
struct TypedDesk : OnDesk {
    TypedDesk() {
        leavePlain(grid, Cols);
        setRows(grid, TypedSteps + 1);
        desk.focusGrid();
        grid.History().Enabled(false);
        type(10'000);
        grid.History().Enabled(true);
    }
    void type(std::int32_t from) {
        for (std::int32_t r = 0; r < TypedSteps; ++r) {
            grid.Grid().Select(r + HeaderRows, HeaderCols);
            desk.type(std::to_string(from + r)).press(kxVsGrid::Key::Enter);
        }
    }
    void run() {
        type(30'000);
        if (!grid.History().CanUndo()) throw std::runtime_error("nothing was recorded");
    }
};

struct TypedStack : OnLean {
    QUndoStack stack;
    TypedStack() {
        model.resize(TypedSteps, Cols);
        for (int r = 0; r < TypedSteps; ++r) model.setData(model.index(r, 0), QString::number(10'000 + r));
    }
    void run() {
        for (int r = 0; r < TypedSteps; ++r)
            stack.push(new SetText(model, r, 0, QString::number(30'000 + r)));
    }
};

template <class Contestant>
void addTyped(const std::string& name) {
    measure(name, 1, 3, [](benchmark::State& state) {
        for (auto _ : state) {
            auto contestant = std::make_unique<Contestant>();
            const std::size_t before = heapInUse();
            state.SetIterationTime(seconds([&] { contestant->run(); }));
            state.counters[BytesPerCell] = static_cast<double>(heapInUse() - before) / TypedSteps;
        }
    });
}
}  // namespace

void planHistory(Plan& plan) {
    Group fill{"history_fill", {}, {}};
    addFill<FillRecorded>("history_fill/recorded");
    addFill<FillBare>("history_fill/bare");
    fill.lines.push_back({"fill 200,000 x 10 as a step, with the log of changes, beside the bare fill",
                          "history_fill/recorded", "history_fill/bare", Limit::Ratio, 1.6,
                          Show::Milliseconds});
    plan.push_back(fill);

    Group step{"history_step", {}, {}};
    addStep<StepDesk>("history_step/desk");
    addStep<StepStack>("history_step/QUndoStack");
    for (const std::string what : {"record", "undo", "redo"})
        step.lines.push_back({"a step of 100,000 cells: " + what + ", beside QUndoStack",
                              "history_step/desk_" + what, "history_step/QUndoStack_" + what, Limit::Ratio, 1,
                              Show::Milliseconds});
    plan.push_back(step);

    Group typed{"history_typed", {}, {}};
    addTyped<TypedDesk>("history_typed/desk");
    addTyped<TypedStack>("history_typed/QUndoStack");
    typed.lines.push_back({"memory of 10,000 typed steps, a cell each, beside QUndoStack",
                           "history_typed/desk", "history_typed/QUndoStack", Limit::None, 0,
                           Show::BytesPerCell});
    plan.push_back(typed);
}
}  // namespace kxbench
