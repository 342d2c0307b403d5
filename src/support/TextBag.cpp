#include "kxVsGrid/TextBag.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "support/BagLine.h"

namespace kxVsGrid {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Title = "kxVsGrid settings 1";
constexpr std::string_view TitleStart = "kxVsGrid settings ";
constexpr std::string_view End = "end";

/// Takes the lines of a text one after the other, without their ends.
class Lines {
  public:
    explicit Lines(std::string_view text) : rest_(text) {
        if (rest_.starts_with(ByteOrderMark)) rest_.remove_prefix(ByteOrderMark.size());
    }
    /// Nothing after the last one. Empty lines and comments are skipped.
    std::optional<std::string_view> next() {
        while (!rest_.empty()) {
            const std::string_view line = take();
            const bool blank = line.find_first_not_of(" \t") == std::string_view::npos;
            if (!blank && !line.starts_with('#')) return line;
        }
        return std::nullopt;
    }
    std::size_t number() const { return number_; }
    /// The line given last has its end: without one, nobody can tell whether it is whole.
    bool ended() const { return ended_; }

  private:
    std::string_view take() {
        const std::size_t size = std::min(rest_.find('\n'), rest_.size());
        std::string_view line = rest_.substr(0, size);
        ended_ = size < rest_.size();
        rest_.remove_prefix(std::min(size + 1, rest_.size()));
        ++number_;
        if (line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

    std::string_view rest_;
    std::size_t number_ = 0;
    bool ended_ = false;
};

constexpr const char* CutOff = "the settings are cut off: \"end\" is missing";

void readTitle(Lines& lines) {
    const std::optional<std::string_view> line = lines.next();
    if (line == Title) return;
    if (line && line->starts_with(TitleStart))
        throw support::BadBagLine("version " + std::string(line->substr(TitleStart.size(), 40)) +
                                  " of the format is unknown");
    throw support::BadBagLine("these are no settings: \"" + std::string(Title) + "\" is missing");
}

void readValues(Lines& lines, MemoryBag& values) {
    for (;;) {
        const std::optional<std::string_view> text = lines.next();
        if (!text) throw support::BadBagLine(CutOff);
        if (*text == End) break;
        if (!lines.ended()) throw support::BadBagLine(CutOff);
        support::BagLine line = support::readBagLine(*text);
        if (values.find(line.name) != nullptr)
            throw support::BadBagLine("\"" + line.name + "\" stands there a second time");
        values.Write(line.name, line.value);
    }
    if (lines.next()) throw support::BadBagLine("something stands after \"end\"");
}
}  // namespace

TextBag::TextBag(std::string_view text, std::string_view source) {
    Lines lines(text);
    try {
        readTitle(lines);
        readValues(lines, values_);
    } catch (const support::BadBagLine& error) {
        damage_ = std::string(source) + ", line " + std::to_string(lines.number()) + ": " + error.what();
    }
}

Variant TextBag::Read(std::string_view name, const Variant& fallback) {
    if (const Variant* value = values_.find(name)) return *value;
    if (!damage_.empty()) throw BagError(damage_);
    return fallback;
}

void TextBag::Write(std::string_view name, const Variant& value, const Variant& fallback) {
    if (value == fallback)
        values_.erase(name);
    else
        Write(name, value);
}

void TextBag::Write(std::string_view name, const Variant& value) {
    if (value.isArray())
        throw BagError("\"" + std::string(name) + "\" is an array, which no settings text can hold");
    values_.Write(name, value);
}

void TextBag::clear() {
    values_.clear();
    damage_.clear();
}

std::string TextBag::text() const {
    if (!damage_.empty()) throw BagError(damage_);
    std::string text(Title);
    text += '\n';
    for (const MemoryBag::Entry& entry : values_.entries()) {
        text += support::bagLineText(entry.name, entry.value);
        text += '\n';
    }
    text += End;
    text += '\n';
    return text;
}
}  // namespace kxVsGrid
