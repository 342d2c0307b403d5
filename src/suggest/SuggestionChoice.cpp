#include "suggest/SuggestionChoice.h"

#include <algorithm>
#include <utility>

#include "support/Text.h"

namespace kxVsGrid::suggest {

/// What answers hold of the choice, which may go before they come.
struct SuggestionChoice::Life {
    SuggestionChoice* choice;
};

SuggestionChoice::SuggestionChoice(std::function<void()> changed)
    : changed_(std::move(changed)), life_(std::make_shared<Life>(Life{this})) {}

SuggestionChoice::~SuggestionChoice() {
    life_->choice = nullptr;
}

void SuggestionChoice::typed(const SuggestionSource& source, std::int32_t row, std::string_view text) {
    const std::string wanted(support::trim(text));
    const SuggestionSource asked = source;  // it may put another one
    if (!asked || dismissed_ || wanted.empty()) return close();
    const std::uint64_t request = ++request_;
    fresh_ = false;
    if (std::exchange(current_, -1) >= 0) changed_();
    SuggestionAnswer answer = [life = std::weak_ptr(life_), request](std::vector<Suggestion> candidates) {
        const std::shared_ptr<Life> held = life.lock();
        if (held && held->choice) held->choice->answered(request, std::move(candidates));
    };
    const std::shared_ptr<Life> held = life_;
    try {
        asked({row, wanted, std::move(answer)});
    } catch (...) {
        if (held->choice) close();
        throw;
    }
}

void SuggestionChoice::answered(std::uint64_t request, std::vector<Suggestion> candidates) {
    if (request != request_ || current_ >= 0) return;
    fresh_ = true;
    show(std::move(candidates));
}

void SuggestionChoice::show(std::vector<Suggestion> candidates) {
    if (candidates.empty() && candidates_.empty()) return;
    candidates_ = std::move(candidates);
    current_ = -1;
    changed_();
}

void SuggestionChoice::close() {
    ++request_;
    fresh_ = false;
    show({});
}

bool SuggestionChoice::dismiss() {
    if (!shown()) return false;
    dismissed_ = true;
    close();
    return true;
}

void SuggestionChoice::begin() {
    dismissed_ = false;
    close();
}

bool SuggestionChoice::move(std::ptrdiff_t steps) {
    if (!shown() || (current_ < 0 && steps < 0)) return false;
    const auto last = static_cast<std::ptrdiff_t>(candidates_.size()) - 1;
    const std::ptrdiff_t wanted = current_ < 0 ? 0 : std::clamp<std::ptrdiff_t>(current_ + steps, 0, last);
    if (std::exchange(current_, wanted) != wanted) changed_();
    return true;
}

std::optional<Suggestion> SuggestionChoice::chosen(By key, std::string_view text) const {
    if (current_ >= 0) return candidates_[static_cast<std::size_t>(current_)];
    if (key != By::Enter || !fresh_ || candidates_.size() != 1) return std::nullopt;
    const Suggestion& only = candidates_.front();
    return only.text == support::trim(text) ? std::nullopt : std::optional(only);
}

std::optional<Suggestion> SuggestionChoice::at(std::size_t index) const {
    return index < candidates_.size() ? std::optional(candidates_[index]) : std::nullopt;
}
}  // namespace kxVsGrid::suggest
