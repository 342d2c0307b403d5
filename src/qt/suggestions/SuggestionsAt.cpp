#include "qt/suggestions/SuggestionsAt.h"

namespace kxVsGrid::qt {

void SuggestionsAt::show(QWidget& editor, const SuggestionView& view) {
    if (view.candidates.empty()) {
        if (box_) box_->putAway();
        return;
    }
    if (box_ && box_->parentWidget() != editor.window()) end();
    if (!box_) box_ = new SuggestionBox(*editor.window(), acts_);
    box_->showAt(editor, view);
}

const Suggestion* SuggestionsAt::at(std::size_t index) const {
    return shown() && index < static_cast<std::size_t>(box_->rows().rowCount()) ? &box_->rows().at(index)
                                                                                : nullptr;
}

std::optional<std::size_t> SuggestionsAt::find(const Suggestion& suggestion) const {
    for (std::size_t index = 0; const Suggestion* candidate = at(index); ++index)
        if (*candidate == suggestion) return index;
    return std::nullopt;
}

void SuggestionsAt::end() {
    if (!box_) return;
    box_->forget();
    box_->putAway();
    box_->deleteLater();
    box_ = nullptr;
}
}  // namespace kxVsGrid::qt
