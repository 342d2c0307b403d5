#include "suggest/SuggestionIndex.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace kxVsGrid::suggest {
namespace {

// Neither byte is part of any UTF-8.
constexpr char EndMark = '\xFF';
constexpr char InPlaceOfAnEndMark = '\xFE';

char foldedByte(char byte) {
    if (byte >= 'A' && byte <= 'Z') return static_cast<char>(byte - 'A' + 'a');
    return byte == EndMark ? InPlaceOfAnEndMark : byte;
}

std::string folded(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), foldedByte);
    return result;
}

constexpr std::size_t KeyBytes = 8;

/// The first bytes as a number, the first one highest.
std::uint64_t keyOf(std::string_view text) {
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < KeyBytes; ++i)
        key = key << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return key;
}

std::string_view behindKey(std::string_view text) {
    return text.substr(std::min(KeyBytes, text.size()));
}

/// The bits of a key that so many bytes fill.
std::uint64_t maskOf(std::size_t bytes) {
    if (bytes == 0) return 0;
    return bytes >= KeyBytes ? ~std::uint64_t{0} : ~std::uint64_t{0} << (KeyBytes - bytes) * 8;
}

std::uint32_t hashOf(std::string_view text) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>{}(text));
}

/// The first number from `from` on that is `wanted` in the bits of the mask; a block of them is compared by a
/// loop without branches.
template <class Number>
std::size_t nextOf(const std::vector<Number>& numbers, std::size_t from, Number wanted, Number mask) {
    constexpr std::size_t AtOnce = 64;
    const std::size_t size = numbers.size();
    while (from < size) {
        const bool whole = size - from >= AtOnce;
        if (whole && (numbers[from] & mask) != wanted) {
            const Number* const block = numbers.data() + from;
            Number fits = 0;
            for (std::size_t i = 0; i < AtOnce; ++i) fits |= static_cast<Number>((block[i] & mask) == wanted);
            if (fits == 0) {
                from += AtOnce;
                continue;
            }
        }
        const std::size_t stop = whole ? from + AtOnce : size;
        for (; from < stop; ++from)
            if ((numbers[from] & mask) == wanted) return from;
    }
    return size;
}
}  // namespace

/// The candidates that are answered, best first.
struct SuggestionIndex::Answer {
    std::vector<Id> ids;
    std::size_t most;
    bool full() const { return ids.size() >= most; }
    void take(Id id) {
        if (!full()) ids.push_back(id);
    }
};

// --- Candidates

void SuggestionIndex::add(const Suggestion& candidate, std::span<const std::string_view> names) {
    const std::size_t foldedBefore = folded_.size();
    const std::size_t plainBefore = plain_.size();
    const std::size_t before = places_.size();
    const std::size_t namesBefore = owners_.size();
    try {
        append(candidate, names);
    } catch (...) {
        folded_.resize(foldedBefore);
        plain_.resize(plainBefore);
        places_.resize(before);
        textKeys_.resize(before);
        moreOfTexts_.resize(before);
        hashes_.resize(before);
        nameKeys_.resize(namesBefore);
        owners_.resize(namesBefore);
        throw;
    }
    for (std::size_t i = foldedBefore; i < folded_.size(); ++i)
        ++counts_[static_cast<unsigned char>(folded_[i])];
}

void SuggestionIndex::append(const Suggestion& candidate, std::span<const std::string_view> names) {
    const auto id = static_cast<Id>(places_.size());
    const auto bytes = [](const std::string& text) { return static_cast<std::uint32_t>(text.size()); };
    const std::string text = folded(candidate.text);
    textKeys_.push_back(keyOf(text));
    moreOfTexts_.push_back(keyOf(behindKey(text)));
    hashes_.push_back(hashOf(text));
    places_.push_back(
        {folded_.size(), plain_.size(), bytes(candidate.text), bytes(candidate.tag), bytes(candidate.note)});
    plain_.append(candidate.text).append(candidate.tag).append(candidate.note);
    folded_.append(text).push_back(EndMark);
    for (const std::string_view given : names) {
        const std::string name = folded(given);
        owners_.push_back(id);
        nameKeys_.push_back(keyOf(name));
        folded_.append(name).push_back(EndMark);
    }
}

void SuggestionIndex::clear() {
    *this = SuggestionIndex();
}

/// Its text and names, without the last end mark.
std::string_view SuggestionIndex::recordOf(Id id) const {
    const std::size_t start = places_[id].folded;
    const std::size_t stop =
        id + std::size_t{1} < places_.size() ? places_[id + std::size_t{1}].folded : folded_.size();
    return std::string_view(folded_).substr(start, stop - start - 1);
}

SuggestionIndex::Id SuggestionIndex::ownerOf(std::size_t byte) const {
    const auto after =
        std::upper_bound(places_.begin(), places_.end(), byte,
                         [](std::size_t place, const Place& one) { return place < one.folded; });
    return static_cast<Id>(after - places_.begin() - 1);
}

bool SuggestionIndex::textIs(Id id, std::string_view folded) const {
    return places_[id].text == folded.size() && recordOf(id).starts_with(folded);
}

bool SuggestionIndex::textBegins(Id id) const {
    return recordOf(id).starts_with(looking_.text);
}

bool SuggestionIndex::nameBegins(Id id) const {
    const std::string_view record = recordOf(id);
    for (std::size_t end = places_[id].text; end < record.size(); end = record.find(EndMark, end + 1))
        if (record.substr(end + 1).starts_with(looking_.text)) return true;
    return false;
}

Suggestion SuggestionIndex::suggestionOf(Id id) const {
    const Place& place = places_[id];
    const std::size_t tag = place.plain + place.text;
    return {plain_.substr(place.plain, place.text), plain_.substr(tag, place.tag),
            plain_.substr(tag + place.tag, place.note)};
}

// --- Finding

std::vector<Suggestion> SuggestionIndex::match(std::string_view typed, std::size_t most) {
    Answer answer{{}, most};
    std::string text = folded(typed);
    const bool absent = !text.empty() && Needle(text, counts_).absent();
    if (most > 0 && !absent) {
        lookFor(std::move(text));
        takeExact(answer);
        takeTexts(answer);
        if (!looking_.text.empty()) {
            takeNames(answer);
            takeInside(answer);
        }
    }
    std::vector<Suggestion> suggestions;
    suggestions.reserve(answer.ids.size());
    for (const Id id : answer.ids) suggestions.push_back(suggestionOf(id));
    return suggestions;
}

/// What begins with the text, or holds it, is among what did so with the beginning of the text.
void SuggestionIndex::lookFor(std::string folded) {
    const bool grown = folded.starts_with(looking_.text);
    if (!grown) looking_ = {};
    looking_.text = std::move(folded);
    if (!grown) return;
    std::erase_if(looking_.texts.ids, [this](Id id) { return !textBegins(id); });
    std::erase_if(looking_.names.ids, [this](Id id) { return !nameBegins(id); });
    std::erase_if(looking_.inside.ids,
                  [this](Id id) { return recordOf(id).find(looking_.text) == std::string_view::npos; });
}

void SuggestionIndex::takeExact(Answer& answer) const {
    const std::uint32_t wanted = hashOf(looking_.text);
    for (std::size_t i = nextOf(hashes_, 0, wanted, ~std::uint32_t{0}); i < hashes_.size() && !answer.full();
         i = nextOf(hashes_, i + 1, wanted, ~std::uint32_t{0}))
        if (textIs(static_cast<Id>(i), looking_.text)) answer.take(static_cast<Id>(i));
}

/// The next text that may begin with what is looked for; its number is their count when there is none.
std::size_t SuggestionIndex::nextText(std::size_t from) const {
    const std::string_view text = looking_.text;
    const bool longer = text.size() > KeyBytes;
    const std::vector<Key>& keys = longer ? moreOfTexts_ : textKeys_;
    const std::string_view begin = longer ? behindKey(text) : text;
    const Key mask = maskOf(begin.size());
    return nextOf(keys, from, keyOf(begin) & mask, mask);
}

/// As many are looked for as would do if none was among the exact ones.
void SuggestionIndex::takeTexts(Answer& answer) {
    if (answer.full()) return;
    Found& found = looking_.texts;
    while (found.ids.size() < answer.most) {
        found.read = nextText(found.read);
        if (found.read == places_.size()) break;
        const auto id = static_cast<Id>(found.read++);
        if (textBegins(id)) found.ids.push_back(id);
    }
    for (const Id id : found.ids)
        if (!textIs(id, looking_.text)) answer.take(id);
}

void SuggestionIndex::takeNames(Answer& answer) {
    if (answer.full()) return;
    Found& found = looking_.names;
    const Key mask = maskOf(looking_.text.size());
    const Key wanted = keyOf(looking_.text) & mask;
    const auto isNew = [this](Id id) { return !textBegins(id); };
    auto missing = answer.most - answer.ids.size();
    missing -=
        std::min(missing, static_cast<std::size_t>(std::count_if(found.ids.begin(), found.ids.end(), isNew)));
    while (missing > 0 && found.read < nameKeys_.size()) {
        found.read = nextOf(nameKeys_, found.read, wanted, mask);
        if (found.read == nameKeys_.size()) break;
        const Id id = owners_[found.read++];
        const bool known = !found.ids.empty() && found.ids.back() == id;
        if (known || !nameBegins(id)) continue;
        found.ids.push_back(id);
        missing -= isNew(id);
    }
    for (const Id id : found.ids)
        if (isNew(id)) answer.take(id);
}

void SuggestionIndex::takeInside(Answer& answer) {
    if (answer.full()) return;
    Found& found = looking_.inside;
    const Needle needle(looking_.text, counts_);
    const auto isNew = [this](Id id) { return !textBegins(id) && !nameBegins(id); };
    auto missing = answer.most - answer.ids.size();
    missing -=
        std::min(missing, static_cast<std::size_t>(std::count_if(found.ids.begin(), found.ids.end(), isNew)));
    while (missing > 0) {
        const std::size_t at = needle.find(folded_, found.read);
        if (at == Needle::None) {
            found.read = folded_.size();
            break;
        }
        const Id id = ownerOf(at);
        found.read = places_[id].folded + recordOf(id).size() + 1;
        found.ids.push_back(id);
        missing -= isNew(id);
    }
    for (const Id id : found.ids)
        if (isNew(id)) answer.take(id);
}
}  // namespace kxVsGrid::suggest
