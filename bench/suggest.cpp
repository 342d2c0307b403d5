// Suggestions over many candidates: what a key costs in an open editor, from the text that it makes to the list
// that is shown for it. Ours is the whole way through a grid without a window; the text, the name and the
// initials of each candidate are looked through. The peer is what a Qt programmer takes: a completer that
// matches anywhere in one line per candidate, with its popup, of which nothing is painted either.
#include <QCompleter>
#include <QLineEdit>
#include <QStringListModel>
#include <algorithm>
#include <memory>
#include <string>

#include "Contestants.h"
#include "Goods.h"
#include "Measure.h"
#include "Plan.h"
#include "Typing.h"
#include "kxVsGrid/Suggestions.h"

namespace kxbench {
namespace {

using namespace kxVsGrid;

constexpr std::int32_t HundredThousand = 100'000;
constexpr std::int32_t Million = 1'000'000;

/// A good of the last twentieth, another one at every turn.
Good late(std::int32_t rows, std::int32_t turn) {
    return goodOf(rows - 1 - turn * 7919 % (rows / 20));
}

const Typing Typings[] = {
    {"letter", "one letter",
     [](std::int32_t, std::int32_t turn) {
         static constexpr std::string_view Letters = "sqzbkdylm0123456789";
         return std::string(1, Letters[static_cast<std::size_t>(turn) % Letters.size()]);
     }},
    {"code", "most of a code",
     [](std::int32_t rows, std::int32_t turn) { return late(rows, turn).code.substr(0, 12); }},
    {"digits", "the last digits of a code",
     [](std::int32_t rows, std::int32_t turn) { return late(rows, turn).code.substr(9); }},
    {"syllables", "four syllables of a name",
     [](std::int32_t rows, std::int32_t turn) { return late(rows, turn).name.substr(3, 12); }},
    {"initials", "four initials, in capitals",
     [](std::int32_t rows, std::int32_t turn) {
         std::string initials = late(rows, turn).initials.substr(1);
         for (char& letter : initials) letter = static_cast<char>(letter - 'a' + 'A');
         return initials;
     }},
    {"nothing", "what nothing holds",
     [](std::int32_t, std::int32_t turn) { return "24-z" + std::to_string(turn); }},
};

template <std::int32_t Rows>
struct SuggestingGrid : OnDesk {
    SuggestionList list;
    SuggestingGrid() {
        for (std::int32_t row = 0; row < Rows; ++row) {
            const Good good = goodOf(row);
            list.add({good.code, good.name, good.name}, {good.name, good.initials});
        }
        grid.Options(1).suggest(list);
        grid.ReDraw(true);
        desk.focusGrid();
        desk.press(Key::Space);
    }
    void type(const std::string& text) { grid.input()->edited(text, text.size(), 0); }
    bool shows() const { return !desk.suggestions().texts.empty(); }
};

template <std::int32_t Rows>
struct CompletedLine {
    QStringListModel model;
    QLineEdit line;
    QCompleter completer;
    CompletedLine() {
        QStringList lines;
        lines.reserve(Rows);
        for (std::int32_t row = 0; row < Rows; ++row) {
            const Good good = goodOf(row);
            lines.append(QString::fromStdString(good.code + "  " + good.name + "  " + good.initials));
        }
        model.setStringList(lines);
        completer.setModel(&model);
        completer.setFilterMode(Qt::MatchContains);
        completer.setCaseSensitivity(Qt::CaseInsensitive);
        completer.setWidget(&line);
        line.show();
    }
    void type(const std::string& text) {
        completer.setCompletionPrefix(QString::fromStdString(text));
        completer.complete();
    }
};

/// A code is keyed whole, key by key: what the dearest of its keys costs.
template <std::int32_t Rows>
void addCode(const std::string& name) {
    measure(name, 20, 9, [turn = std::make_shared<std::int32_t>(0)](benchmark::State& state) {
        auto& contestant = Shared<SuggestingGrid<Rows>>::get();
        for (auto _ : state) {
            const std::string code = late(Rows, ++*turn).code;
            double dearest = 0;
            for (std::size_t keys = 1; keys <= code.size(); ++keys)
                dearest = std::max(dearest, seconds([&] { contestant.type(code.substr(0, keys)); }));
            state.SetIterationTime(dearest);
            if (!contestant.shows()) state.SkipWithError("nothing was suggested");
        }
    });
}

template <std::int32_t Rows>
Group planOf(const std::string& name, const std::string& count, double limit) {
    const bool many = Rows > HundredThousand;
    addTyping<SuggestingGrid<Rows>>(Typings, name, "ours", Rows, many ? 50 : 200, 9);
    addTyping<CompletedLine<Rows>>(Typings, name, "completer", Rows, many ? 1 : 5, 3);
    addCode<Rows>(name + "/keys");
    Group group{name, {}, [] {
                    Shared<SuggestingGrid<Rows>>::release();
                    Shared<CompletedLine<Rows>>::release();
                }};
    for (const Typing& typing : Typings)
        group.lines.push_back(
            {"a key with suggestions, " + count + " candidates, " + typing.work + ", beside QCompleter",
             name + "/" + typing.name + "_ours", name + "/" + typing.name + "_completer", Limit::Seconds,
             limit, Show::Milliseconds});
    group.lines.push_back({"the dearest key of a whole code, " + count + " candidates", name + "/keys", "",
                           Limit::Seconds, limit, Show::Milliseconds});
    return group;
}
}  // namespace

void planSuggest(Plan& plan) {
    plan.push_back(planOf<HundredThousand>("suggest_100k", "100,000", 1.6e-3));
    plan.push_back(planOf<Million>("suggest_1m", "1,000,000", 16e-3));
}
}  // namespace kxbench
