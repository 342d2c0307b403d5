#include <utility>

#include "clerk/find/Search.h"

namespace kxVsGrid {

const FindRule& Finder::Rule() const {
    return search_.rule();
}

void Finder::Rule(const FindRule& rule) {
    search_.rule(rule);
}

void Finder::End() {
    search_.end();
}

bool Finder::Underway() const {
    return search_.underway();
}

bool Finder::Work() {
    return search_.work();
}

void Finder::OnWork(std::function<void()> listener) {
    search_.onWork(std::move(listener));
}

FindState Finder::State() const {
    return search_.state();
}

bool Finder::Next() {
    return search_.go(true);
}

bool Finder::Previous() {
    return search_.go(false);
}

bool Finder::Replace(std::string_view with) {
    return search_.replace(with);
}

PasteReport Finder::ReplaceAll(std::string_view with) {
    return search_.replaceAll(with);
}
}  // namespace kxVsGrid
