#include "changes/DraftLine.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "support/Checksum.h"

namespace kxVsGrid::changes {
namespace {

constexpr std::size_t ChecksumDigits = 8;

void appendNumber(std::string& out, std::int64_t number) {
    char digits[24];
    out.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

void appendChecksum(std::string& out, std::uint32_t sum) {
    constexpr const char* Digits = "0123456789abcdef";
    for (int shift = 28; shift >= 0; shift -= 4) out += Digits[(sum >> shift) & 0xF];
}

constexpr std::uint64_t HeaderNumber = 1;

std::uint32_t checksumOf(std::uint64_t number, std::string_view digits, std::string_view fields,
                         std::uint32_t header) {
    const std::uint32_t before = number == HeaderNumber ? 0 : header;
    return support::checksum(fields, support::checksum(" ", support::checksum(digits, before)));
}

template <class Number>
bool readAll(std::string_view text, Number& number, int base = 10) {
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end;
}
}  // namespace

void appendField(std::string& fields, std::string_view text) {
    fields += '\t';
    for (const char c : text) {
        switch (c) {
            case '\\':
                fields += "\\\\";
                break;
            case '\t':
                fields += "\\t";
                break;
            case '\n':
                fields += "\\n";
                break;
            default:
                fields += c;
        }
    }
}

void appendField(std::string& fields, std::int64_t number) {
    fields += '\t';
    appendNumber(fields, number);
}

void appendLine(std::string& out, DraftPlace& place, std::string_view fields) {
    const std::uint64_t number = place.number + 1;
    std::string digits;
    appendNumber(digits, static_cast<std::int64_t>(number));
    const std::uint32_t sum = checksumOf(number, digits, fields, place.checksum);
    out += digits;
    out += ' ';
    appendChecksum(out, sum);
    out += ' ';
    out += fields;
    out += '\n';
    place.number = number;
    if (number == HeaderNumber) place.checksum = sum;
}

std::optional<DraftLine> readLine(std::string_view line, std::uint32_t header) {
    const std::size_t space = line.find(' ');
    if (space == std::string_view::npos || line.size() < space + 1 + ChecksumDigits + 1) return {};
    const std::string_view number = line.substr(0, space);
    const std::string_view sum = line.substr(space + 1, ChecksumDigits);
    const std::string_view fields = line.substr(space + 1 + ChecksumDigits + 1);
    if (line[space + 1 + ChecksumDigits] != ' ') return {};
    DraftLine read;
    if (!readAll(number, read.number) || !readAll(sum, read.checksum, 16)) return {};
    if (read.checksum != checksumOf(read.number, number, fields, header)) return {};
    read.fields = fields;
    return read;
}

bool isTornHeader(std::string_view bytes) {
    if (!bytes.empty() && bytes.front() == '\n') bytes.remove_prefix(1);
    if (bytes.find('\n') != std::string_view::npos) return false;
    constexpr std::string_view Begin = "1 ######## B\t";
    const auto fits = [](char is, char wanted) {
        return wanted == '#' ? std::string_view("0123456789abcdef").find(is) != std::string_view::npos
                             : is == wanted;
    };
    const std::string_view begin = bytes.substr(0, Begin.size());
    return std::equal(begin.begin(), begin.end(), Begin.begin(), fits);
}

std::string_view FieldReader::raw() {
    if (!more_) {
        good_ = false;
        return {};
    }
    const std::size_t tab = rest_.find('\t');
    const std::string_view field = rest_.substr(0, tab);
    more_ = tab != std::string_view::npos;
    if (more_) rest_.remove_prefix(tab + 1);
    return field;
}

std::string_view FieldReader::text() {
    const std::string_view field = raw();
    if (field.find('\\') == std::string_view::npos) return field;
    unescaped_.clear();
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] != '\\') {
            unescaped_ += field[i];
            continue;
        }
        const char next = ++i < field.size() ? field[i] : '\0';
        if (next == 't')
            unescaped_ += '\t';
        else if (next == 'n')
            unescaped_ += '\n';
        else if (next == '\\')
            unescaped_ += '\\';
        else
            good_ = false;
    }
    return unescaped_;
}

std::int32_t FieldReader::number(std::int32_t least, std::int32_t most) {
    std::int32_t value = 0;
    if (readAll(raw(), value) && value >= least && value <= most) return value;
    good_ = false;
    return 0;
}
}  // namespace kxVsGrid::changes
