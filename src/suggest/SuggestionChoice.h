// The list that stands open under one text box: what was suggested for its text, and where the clerk is in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Suggestions.h"

namespace kxVsGrid::suggest {

class SuggestionChoice {
  public:
    enum class By { Enter, Tab };

    /// `changed` hears whenever view() is another one.
    explicit SuggestionChoice(std::function<void()> changed);
    ~SuggestionChoice();
    SuggestionChoice(const SuggestionChoice&) = delete;
    SuggestionChoice& operator=(const SuggestionChoice&) = delete;

    /// The clerk has typed: asks for suggestions, unless the text is blank or the clerk has closed the list.
    /// What was suggested for the last text is shown until the answer comes, and is not chosen from unless the
    /// clerk moves into it. What the source throws goes on to the caller; the list is closed then.
    void typed(const SuggestionSource& source, std::int32_t row, std::string_view text);
    /// The list goes; the next text opens one again.
    void close();
    /// The same for a clerk who does not want it: none opens until begin(). False when none was shown.
    bool dismiss();
    /// Another text is about to be edited.
    void begin();

    bool shown() const { return !candidates_.empty(); }
    SuggestionView view() const { return {candidates_, current_}; }
    /// The clerk has moved to one of the candidates.
    bool entered() const { return current_ >= 0; }
    /// So many candidates down, or up when negative, no further than to the first and the last one; down from
    /// outside the list to its first one, and up from there out of it again. False, and nothing happens, when
    /// none is shown, or the clerk goes up without having gone down.
    bool move(std::ptrdiff_t steps);
    /// To one that was pressed. False when it is not there any more.
    bool point(std::size_t index);
    /// What the key takes in place of the text: the one that the clerk moved to; else nothing where the text
    /// is a candidate's already, or for Tab; else, for Enter, the only one, unless the clerk has been there and
    /// left it.
    std::optional<Suggestion> chosen(By key, std::string_view text) const;
    /// The first one that has the text, trimmed; byte by byte.
    std::optional<Suggestion> same(std::string_view text) const;
    /// One that was pressed; nothing when it is not there any more.
    std::optional<Suggestion> at(std::size_t index) const;

  private:
    struct Life;
    void answered(std::uint64_t request, std::vector<Suggestion> candidates);
    void show(std::vector<Suggestion> candidates);
    void go(std::ptrdiff_t wanted);

    std::function<void()> changed_;
    std::shared_ptr<Life> life_;
    std::uint64_t request_ = 0;
    std::vector<Suggestion> candidates_;
    std::ptrdiff_t current_ = -1;
    bool fresh_ = false;      ///< the candidates are those for the present text, and none was turned down
    bool dismissed_ = false;  ///< the clerk wants no list
};
}  // namespace kxVsGrid::suggest
