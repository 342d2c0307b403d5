#include "kxVsGrid/Suggestions.h"

#include <algorithm>

#include "support/Text.h"

namespace kxVsGrid {

struct SuggestionList::Index {
    struct Candidate {
        Suggestion suggestion;
        std::vector<std::string> names;
    };
    std::vector<Candidate> candidates;
};

SuggestionList::SuggestionList() : index_(std::make_shared<Index>()) {}

void SuggestionList::add(Suggestion candidate, std::span<const std::string_view> names) {
    Index::Candidate& added = index_->candidates.emplace_back(Index::Candidate{std::move(candidate), {}});
    added.names.assign(names.begin(), names.end());
}

void SuggestionList::add(Suggestion candidate, std::initializer_list<std::string_view> names) {
    add(std::move(candidate), std::span(names.begin(), names.size()));
}

void SuggestionList::clear() {
    index_->candidates.clear();
}

std::size_t SuggestionList::size() const {
    return index_->candidates.size();
}

std::vector<Suggestion> SuggestionList::match(std::string_view typed, std::size_t most) const {
    std::vector<Suggestion> found;
    for (const Index::Candidate& one : index_->candidates) {
        if (found.size() >= most) break;
        const auto holds = [typed](std::string_view text) {
            return text.find(typed) != std::string_view::npos;
        };
        if (holds(one.suggestion.text) || std::any_of(one.names.begin(), one.names.end(), holds))
            found.push_back(one.suggestion);
    }
    return found;
}

void SuggestionList::operator()(const SuggestionRequest& request) const {
    request.answer(match(request.text));
}
}  // namespace kxVsGrid
