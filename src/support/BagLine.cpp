#include "support/BagLine.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "support/Text.h"

namespace kxVsGrid::support {
namespace {

constexpr char Hex[] = "0123456789ABCDEF";
constexpr char32_t InvalidUtf8 = 0xFFFD;
constexpr std::string_view ReplacementCharacter = "\xEF\xBF\xBD";

[[noreturn]] void bad(const std::string& what) {
    throw BadBagLine(what);
}

// --- Writing

bool isPlain(unsigned char c) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return letter || (c >= '0' && c <= '9') || c == '_' || c == '.';
}

void appendByte(std::string& out, char byte) {
    const auto value = static_cast<unsigned char>(byte);
    out += "\\x";
    out += Hex[value >> 4];
    out += Hex[value & 15];
}

/// One character of a text, escaped where it would not come back.
void appendCharacter(std::string& out, std::string_view character) {
    const char first = character.front();
    if (character.size() > 1 || static_cast<unsigned char>(first) >= 0x80) {
        const bool valid = firstCodePoint(character) != InvalidUtf8 || character == ReplacementCharacter;
        if (valid) {
            out += character;
        } else {
            for (const char byte : character) appendByte(out, byte);
        }
        return;
    }
    switch (first) {
        case '\\':
        case '"':
            out += '\\';
            out += first;
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(first) < ' ' || first == 0x7F)
                appendByte(out, first);
            else
                out += first;
    }
}

std::string quoted(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    out += '"';
    while (!text.empty()) {
        const std::string_view character = text.substr(0, byteOfCharacter(text, 1));
        appendCharacter(out, character);
        text.remove_prefix(character.size());
    }
    out += '"';
    return out;
}

/// Chinese letters need no quotes: the settings' own names have some.
bool isPlainLetter(std::string_view character) {
    constexpr char32_t FirstAfterTheIdeographicSpace = 0x3001;
    constexpr char32_t LastCompatibilityIdeograph = 0xFAFF;
    const char32_t codePoint = firstCodePoint(character);
    if (codePoint < 0x80) return isPlain(static_cast<unsigned char>(codePoint));
    return codePoint >= FirstAfterTheIdeographicSpace && codePoint <= LastCompatibilityIdeograph;
}

std::string nameText(std::string_view name) {
    if (name.empty()) return "\"\"";
    for (std::string_view rest = name; !rest.empty(); rest.remove_prefix(byteOfCharacter(rest, 1)))
        if (!isPlainLetter(rest)) return quoted(name);
    return std::string(name);
}

template <class Number>
std::string shortest(Number value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

// --- Reading

class LineReader {
  public:
    explicit LineReader(std::string_view line) : rest_(line) {}

    void skipBlanks() {
        while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t')) rest_.remove_prefix(1);
    }
    bool atEnd() const { return rest_.empty(); }
    bool atQuote() const { return !rest_.empty() && rest_.front() == '"'; }
    bool take(char c) {
        if (rest_.empty() || rest_.front() != c) return false;
        rest_.remove_prefix(1);
        return true;
    }
    std::string_view word() {
        const std::string_view found = rest_.substr(0, std::min(rest_.find_first_of(" \t="), rest_.size()));
        rest_.remove_prefix(found.size());
        requireUtf8(found);
        return found;
    }
    std::string quotedText() {
        rest_.remove_prefix(1);
        std::string text;
        for (;;) {
            const std::size_t plain = std::min(rest_.find_first_of("\\\""), rest_.size());
            requireUtf8(rest_.substr(0, plain));
            text += rest_.substr(0, plain);
            rest_.remove_prefix(plain);
            if (rest_.empty()) bad("the text has no end");
            if (take('"')) return text;
            rest_.remove_prefix(1);
            text += escaped();
        }
    }

  private:
    char escaped() {
        if (rest_.empty()) bad("the text has no end");
        const char kind = rest_.front();
        rest_.remove_prefix(1);
        switch (kind) {
            case '\\':
            case '"':
                return kind;
            case 'n':
                return '\n';
            case 'r':
                return '\r';
            case 't':
                return '\t';
            case 'x':
                return byte();
            default:
                bad(std::string("there is no \\") + kind);
        }
    }
    char byte() {
        unsigned value = 0;
        const char* const begin = rest_.data();
        const char* const end = begin + std::min<std::size_t>(2, rest_.size());
        const auto read = std::from_chars(begin, end, value, 16);
        if (read.ptr != begin + 2 || read.ec != std::errc()) bad("\\x needs two hexadecimal digits");
        rest_.remove_prefix(2);
        return static_cast<char>(value);
    }
    static void requireUtf8(std::string_view text) {
        if (std::all_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
            return;
        while (!text.empty()) {
            const std::string_view character = text.substr(0, byteOfCharacter(text, 1));
            if (firstCodePoint(character) == InvalidUtf8 && character != ReplacementCharacter)
                bad("a text is not UTF-8");
            text.remove_prefix(character.size());
        }
    }

    std::string_view rest_;
};

template <class Integer>
Variant integer(std::string_view word, std::string_view type) {
    Integer value{};
    const auto read = std::from_chars(word.data(), word.data() + word.size(), value);
    if (read.ec != std::errc() || read.ptr != word.data() + word.size() || word.empty())
        bad("\"" + std::string(word.substr(0, 40)) + "\" is no " + std::string(type));
    return Variant(value);
}

Variant number(std::string_view word) {
    double value{};
    const auto read = std::from_chars(word.data(), word.data() + word.size(), value);
    if (read.ec != std::errc() || read.ptr != word.data() + word.size() || word.empty())
        bad("\"" + std::string(word.substr(0, 40)) + "\" is no Double");
    return Variant(value);
}

Variant readValue(LineReader& in, std::string_view type) {
    if (type == "Empty") return {};
    if (type == "Null") return Variant::null();
    in.skipBlanks();
    if (type == "Text") {
        if (!in.atQuote()) bad("a text stands in quotes");
        return Variant(in.quotedText());
    }
    const std::string_view word = in.word();
    if (type == "Int16") return integer<std::int16_t>(word, type);
    if (type == "Int32") return integer<std::int32_t>(word, type);
    if (type == "Double") return number(word);
    if (type != "Boolean") bad("\"" + std::string(type.substr(0, 40)) + "\" is no type");
    if (word != "True" && word != "False") bad("a Boolean is True or False");
    return Variant(word == "True");
}
}  // namespace

std::string bagLineText(std::string_view name, const Variant& value) {
    const std::string start = nameText(name) + " = ";
    switch (value.type()) {
        case Variant::Type::Empty:
            return start + "Empty";
        case Variant::Type::Null:
            return start + "Null";
        case Variant::Type::Boolean:
            return start + (value.toBoolean() ? "Boolean True" : "Boolean False");
        case Variant::Type::Int16:
            return start + "Int16 " + shortest(value.toInt16());
        case Variant::Type::Int32:
            return start + "Int32 " + shortest(value.toInt32());
        case Variant::Type::Double:
            return start + "Double " + shortest(value.toDouble());
        case Variant::Type::Text:
            return start + "Text " + quoted(value.toText());
        case Variant::Type::Array:
            break;
    }
    bad("\"" + std::string(name) + "\" is an array, which no settings text can hold");
}

BagLine readBagLine(std::string_view text) {
    LineReader in(text);
    in.skipBlanks();
    const bool quotedName = in.atQuote();
    BagLine line{quotedName ? in.quotedText() : std::string(in.word()), {}};
    if (!quotedName && line.name.empty()) bad("the name is missing");
    in.skipBlanks();
    if (!in.take('=')) bad("\"=\" is missing");
    in.skipBlanks();
    line.value = readValue(in, in.word());
    in.skipBlanks();
    if (!in.atEnd()) bad("something stands after the value");
    return line;
}
}  // namespace kxVsGrid::support
