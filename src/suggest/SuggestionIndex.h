// Candidates in the order in which they were added, and the way from what was typed to the best of them.
//
// Texts and names stand one after the other in one stretch of bytes, in lower case, so that words inside are
// found by reading it once. In front of it stand numbers: the first bytes of each text and of each name,
// by which beginnings are found, and a hash of each text, by which the exact one is found. All of them are
// read in the order of adding and no further than the answer needs. A clerk's next text mostly is the last one
// and a character more: what was found for that one is looked through again, and reading goes on where it
// had stopped. Nothing is sorted, so that nothing has to be kept in order as candidates come.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Suggestions.h"
#include "suggest/Needle.h"

namespace kxVsGrid::suggest {

class SuggestionIndex {
  public:
    /// All or nothing, should the memory not suffice.
    void add(const Suggestion& candidate, std::span<const std::string_view> names);
    void clear();
    std::size_t size() const { return places_.size(); }

    std::vector<Suggestion> match(std::string_view typed, std::size_t most);

  private:
    using Id = std::uint32_t;
    using Key = std::uint64_t;
    /// Where a candidate stands.
    struct Place {
        std::size_t folded;  ///< what it is found by: the text and each name, an end mark behind each
        std::size_t plain;   ///< what is answered: text, tag and note
        std::uint32_t text;  ///< bytes of each
        std::uint32_t tag;
        std::uint32_t note;
    };
    /// What was found for the text that was looked for last, in the order of adding.
    struct Found {
        std::vector<Id> ids;
        std::size_t read = 0;  ///< so much has been looked at
    };
    struct Looking {
        std::string text;
        Found texts;   ///< candidates whose text begins with it; `read` counts texts
        Found names;   ///< those that have a name that does; `read` counts names
        Found inside;  ///< those that hold it anywhere; `read` counts bytes
    };
    struct Answer;

    void append(const Suggestion& candidate, std::span<const std::string_view> names);
    std::string_view recordOf(Id id) const;
    Id ownerOf(std::size_t byte) const;
    bool textIs(Id id, std::string_view folded) const;
    bool textBegins(Id id) const;
    bool nameBegins(Id id) const;
    Suggestion suggestionOf(Id id) const;

    void lookFor(std::string folded);
    std::size_t nextText(std::size_t from) const;
    void takeExact(Answer& answer) const;
    void takeTexts(Answer& answer);
    void takeNames(Answer& answer);
    void takeInside(Answer& answer);

    std::string folded_;
    std::string plain_;
    std::vector<Place> places_;
    std::vector<Key> textKeys_;
    std::vector<Key> moreOfTexts_;       ///< the next eight bytes, for codes that all begin alike
    std::vector<std::uint32_t> hashes_;  ///< of texts
    std::vector<Key> nameKeys_;
    std::vector<Id> owners_;  ///< of names
    ByteCounts counts_{};     ///< in folded_
    Looking looking_;
};
}  // namespace kxVsGrid::suggest
