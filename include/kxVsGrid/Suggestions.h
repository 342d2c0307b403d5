// Suggestions while a clerk types: a list under the text box, from which a few keys take what would take many.
//
//     kxVsGrid::SuggestionList goods;
//     goods.add({"100001", "六角螺栓", "六角螺栓  M8×40"}, {"六角螺栓", "ljls"});
//     goods.add({"100002", "无缝钢管", "无缝钢管  DN25"}, {"无缝钢管", "wfgg"});
//     grid.Options(1).suggest(goods);
//
// A source is asked for each text that the clerk types, and answers at once or later:
//
//     grid.Options(1).suggest([&](const kxVsGrid::SuggestionRequest& request) {
//         server.find(request.text, [answer = request.answer](auto found) { answer(std::move(found)); });
//     });
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kxVsGrid {

/// What the clerk may have meant.
struct Suggestion {
    /// Takes the place of what was typed, and is committed and checked as if it were typed; the most characters
    /// of the column do not cut it. Line ends become blanks where the editor has one line. A blank one is not
    /// shown.
    std::string text;
    std::string tag = {};   ///< goes with it, where the check of the column does not put another one
    std::string note = {};  ///< stands beside the text in the list: a name, a size
    friend bool operator==(const Suggestion&, const Suggestion&) = default;
};

/// The candidates for one text, best first. It may be called at once or later, from the thread that asked; once
/// the text, the cell or the control is another or gone it does nothing, and neither does it once the clerk has
/// moved into the list that stands there. Called again, the later answer takes the place of the earlier one.
using SuggestionAnswer = std::function<void(std::vector<Suggestion>)>;

struct SuggestionRequest {
    std::int32_t row = -1;  ///< zero-based; -1 outside of a grid
    std::string text;       ///< trimmed; never empty
    SuggestionAnswer answer;
};

/// It may do anything, as a listener may. Whatever it throws is the host's fault and is reported as a
/// listener's; the clerk's text stays, without suggestions.
using SuggestionSource = std::function<void(const SuggestionRequest&)>;

/// A source that holds its candidates in memory and finds them by the beginning of their text, by a word
/// inside, or by other names that they have, initials for instance. Copies share the candidates, and are used
/// from one thread at a time.
///
/// Nothing is prepared before the first key: adding costs under a microsecond. What is typed is found by reading
/// what was not read for the text before, if that one has only grown: mostly well below a millisecond, at most
/// some 8 ms among 1,000,000 candidates. Memory: about 60 bytes a candidate and 13 a name; beside that the text
/// twice, tag, note and names once. While it grows it may hold as much again in reserve.
class SuggestionList {
  public:
    /// So many are answered at most, best first: the exact text, then texts that begin with what was typed,
    /// then other names that do, then texts and names that contain it; each group in the order of adding.
    static constexpr std::size_t MostAnswered = 100;

    SuggestionList();
    /// `names` are what it is found by beside its text, in whatever case.
    void add(const Suggestion& candidate, std::span<const std::string_view> names);
    void add(const Suggestion& candidate, std::initializer_list<std::string_view> names = {});
    void clear();
    std::size_t size() const;

    /// The letters A to Z match in both cases. A candidate is answered once, whatever it is found by; an empty
    /// text is the beginning of all.
    std::vector<Suggestion> match(std::string_view typed, std::size_t most = MostAnswered) const;
    /// As a source.
    void operator()(const SuggestionRequest& request) const;

  private:
    struct Index;
    std::shared_ptr<Index> index_;
};

/// The list as it has to be shown: under the text box, or above it where there is no room; it takes neither
/// keys nor the keyboard.
struct SuggestionView {
    std::span<const Suggestion> candidates;  ///< none: no list is shown; valid until the next view
    std::ptrdiff_t current = -1;             ///< the one that the clerk has moved to; -1: none
};
}  // namespace kxVsGrid
