// A clerk at a column (1) that suggests while he types; what is said of it is seen at the desk.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "kit/ClerkTest.h"
#include "kxVsGrid/Suggestions.h"

namespace kxVsGrid::testing {

template <class DeskType>
class SuggestionTestAt : public ClerkAt<DeskType> {
  protected:
    using Texts = std::vector<std::string>;

    void suggest(SuggestionSource source) { this->grid.Options(1).suggest(std::move(source)); }
    /// Whatever is typed, these are suggested.
    void suggestAlways(std::vector<Suggestion> suggestions) {
        suggest([suggestions](const SuggestionRequest& request) { request.answer(suggestions); });
    }
    /// Questions wait until the test answers them.
    void suggestLater() {
        suggest([this](const SuggestionRequest& request) {
            asked.push_back(request.text);
            answers.push_back(request.answer);
        });
    }
    Texts shown() { return this->desk.suggestions().texts; }
    std::ptrdiff_t place() { return this->desk.suggestions().current; }

    Texts asked;
    std::vector<SuggestionAnswer> answers;
};

using SuggestionTest = SuggestionTestAt<headless::Desk>;
}  // namespace kxVsGrid::testing
