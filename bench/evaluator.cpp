// The arithmetic that a clerk types: each time a new text, so reading it counts.
#include <fparser.hh>

#include <cmath>
#include <stdexcept>

#include "Measure.h"
#include "Plan.h"
#include "kxVsGrid/mbasTxt.h"

namespace kxbench {
namespace {

constexpr int PerIteration = 2000;
constexpr int Iterations = 10;
constexpr int Repetitions = 15;

double ours(const std::string& text) {
    double value = 0;
    kxVsGrid::bEvaluateExp(text, value);
    return value;
}

template <class Evaluate>
void add(const std::string& name, const std::string& text, Evaluate evaluate) {
    measure(name, Iterations, Repetitions, [text, evaluate](benchmark::State& state) mutable {
        for (auto _ : state) {
            state.SetIterationTime(seconds([&] {
                for (int i = 0; i < PerIteration; ++i) benchmark::DoNotOptimize(evaluate(text));
            }));
        }
        state.counters[Items] = PerIteration;
    });
}

void addGroup(Plan& plan, const std::string& name, const std::string& work, const std::string& text) {
    // One parser for all texts, so that making it costs nothing.
    auto theirs = [parser = FunctionParser()](const std::string& expression) mutable {
        parser.Parse(expression, "");
        return parser.Eval(nullptr);
    };
    if (std::abs(ours(text) - theirs(text)) > 1e-9)
        throw std::logic_error("the evaluators disagree on " + text);
    add(name + "/bEvaluateExp", text, ours);
    add(name + "/fparser", text, theirs);
    plan.push_back({name,
                    {{"evaluator, " + work + ", beside fparser", name + "/bEvaluateExp", name + "/fparser",
                      Limit::Speed, 2, Show::MillionsPerSecond}},
                    {}});
}

std::string longSum() {
    std::string text = "1.5";
    for (int i = 1; i < 30; ++i) text += "+" + std::to_string(i * 37 % 101) + "." + std::to_string(i % 10);
    return text;
}
}  // namespace

void planEvaluator(Plan& plan) {
    addGroup(plan, "evaluate_short", "`12*3+4.5`", "12*3+4.5");
    addGroup(plan, "evaluate_groups", "`(2+3)*(4-1)/7`", "(2+3)*(4-1)/7");
    addGroup(plan, "evaluate_sum", "a sum of 30 terms", longSum());
}
}  // namespace kxbench
