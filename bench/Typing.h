// A key in a search box or an editor, measured for texts of several kinds.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "Contestants.h"
#include "Measure.h"

namespace kxbench {

/// What stands in the box after the key: another text of its kind at every turn, so that nothing is left of the
/// text before.
struct Typing {
    const char* name;
    const char* work;
    std::string (*text)(std::int32_t rows, std::int32_t turn);
};

template <class Contestant>
void addTyping(std::span<const Typing> typings, const std::string& group, const char* who, std::int32_t rows,
               int iterations, int repetitions) {
    for (const Typing& typing : typings)
        measure(group + "/" + typing.name + "_" + who, iterations, repetitions,
                [typing, rows, turn = std::make_shared<std::int32_t>(0)](benchmark::State& state) {
                    Contestant& contestant = Shared<Contestant>::get();
                    for (auto _ : state) {
                        const std::string text = typing.text(rows, ++*turn);
                        state.SetIterationTime(seconds([&] { contestant.type(text); }));
                    }
                });
}
}  // namespace kxbench
