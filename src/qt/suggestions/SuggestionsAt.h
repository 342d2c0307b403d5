// The list of suggestions that one owner of text boxes has.
#pragma once

#include <QPointer>
#include <optional>
#include <utility>

#include "qt/suggestions/SuggestionBox.h"

namespace kxVsGrid::qt {

/// Made when it is first needed, in the window that the text box stands in then, which may end it.
class SuggestionsAt {
  public:
    explicit SuggestionsAt(SuggestionBox::Acts acts) : acts_(std::move(acts)) {}
    ~SuggestionsAt() { end(); }
    SuggestionsAt(const SuggestionsAt&) = delete;
    SuggestionsAt& operator=(const SuggestionsAt&) = delete;

    void show(QWidget& editor, const SuggestionView& view);
    bool shown() const { return box_ && !box_->isHidden(); }
    /// What stands in a row.
    const Suggestion* at(std::size_t index) const;
    /// The first row with that; nothing when there is none.
    std::optional<std::size_t> find(const Suggestion& suggestion) const;
    /// For good. It may be in the middle of a press.
    void end();

  private:
    SuggestionBox::Acts acts_;
    QPointer<SuggestionBox> box_;
};
}  // namespace kxVsGrid::qt
