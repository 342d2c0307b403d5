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
    go(-1);
    SuggestionAnswer answer = [life = std::weak_ptr(life_), request](std::vector<Suggestion> candidates) {
        const std::shared_ptr<Life> held = life.lock();
        if (held && held->choice) held->choice->answered(request, std::move(candidates));
    };
    const std::shared_ptr<Life> held = life_;
    try {
        asked({row, wanted, std::move(answer)});
    } catch (...) {
        if (held->choice && request == request_) close();
        throw;
    }
}

void SuggestionChoice::answered(std::uint64_t request, std::vector<Suggestion> candidates) {
    if (request != request_ || current_ >= 0) return;
    fresh_ = true;
    std::erase_if(candidates, [](const Suggestion& one) { return support::trim(one.text).empty(); });
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
    const bool leaves = current_ == 0 && steps < 0;
    const std::ptrdiff_t wanted = leaves         ? -1
                                  : current_ < 0 ? 0
                                                 : std::clamp<std::ptrdiff_t>(current_ + steps, 0, last);
    if (leaves) fresh_ = false;
    go(wanted);
    return true;
}

bool SuggestionChoice::point(std::size_t index) {
    if (index >= candidates_.size()) return false;
    go(static_cast<std::ptrdiff_t>(index));
    return true;
}

void SuggestionChoice::go(std::ptrdiff_t wanted) {
    if (std::exchange(current_, wanted) != wanted) changed_();
}

std::optional<Suggestion> SuggestionChoice::chosen(By key, std::string_view text) const {
    if (current_ >= 0) return candidates_[static_cast<std::size_t>(current_)];
    const bool only = fresh_ && candidates_.size() == 1;
    return key == By::Enter && only && !same(text) ? std::optional(candidates_.front()) : std::nullopt;
}

std::optional<Suggestion> SuggestionChoice::same(std::string_view text) const {
    const std::string_view wanted = support::trim(text);
    const auto found = std::find_if(candidates_.begin(), candidates_.end(),
                                    [wanted](const Suggestion& one) { return one.text == wanted; });
    return found == candidates_.end() ? std::nullopt : std::optional(*found);
}

std::optional<Suggestion> SuggestionChoice::at(std::size_t index) const {
    return index < candidates_.size() ? std::optional(candidates_[index]) : std::nullopt;
}
}  // namespace kxVsGrid::suggest
