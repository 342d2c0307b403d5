#include "kxVsGrid/Suggestions.h"
#include "suggest/SuggestionIndex.h"

namespace kxVsGrid {

struct SuggestionList::Index : suggest::SuggestionIndex {};

SuggestionList::SuggestionList() : index_(std::make_shared<Index>()) {}

void SuggestionList::add(const Suggestion& candidate, std::span<const std::string_view> names) {
    index_->add(candidate, names);
}

void SuggestionList::add(const Suggestion& candidate, std::initializer_list<std::string_view> names) {
    index_->add(candidate, std::span(names.begin(), names.size()));
}

void SuggestionList::clear() {
    index_->clear();
}

std::size_t SuggestionList::size() const {
    return index_->size();
}

std::vector<Suggestion> SuggestionList::match(std::string_view typed, std::size_t most) const {
    return index_->match(typed, most);
}

void SuggestionList::operator()(const SuggestionRequest& request) const {
    request.answer(match(request.text));
}
}  // namespace kxVsGrid
