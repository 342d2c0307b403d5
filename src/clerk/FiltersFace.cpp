// The face of the filters: checks what a host gives.
#include "clerk/ClerkContext.h"
#include "clerk/Filters.h"

namespace kxVsGrid {

bool Filters::Show(std::int32_t Col, const std::vector<std::string>& texts) {
    filters_.requireCol("Show", Col);
    return filters_.show(Col, texts);
}
bool Filters::ShowAll(std::int32_t Col) {
    filters_.requireCol("ShowAll", Col);
    return filters_.end(Col);
}
bool Filters::ShowAll() {
    return filters_.end();
}
bool Filters::On() const {
    return filters_.on();
}
bool Filters::On(std::int32_t Col) const {
    return filters_.on(Col);
}
std::vector<std::string> Filters::Shown(std::int32_t Col) const {
    return filters_.textsOf(Col);
}
std::int32_t Filters::HiddenRows() const {
    return filters_.hiddenRows();
}
}  // namespace kxVsGrid
