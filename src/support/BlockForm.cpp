#include "support/BlockForm.h"

#include <charconv>
#include <iterator>
#include <limits>

#include "support/Checksum.h"

namespace kxVsGrid::support {
namespace {

constexpr std::string_view FirstLine = "kxVsGrid block 1\n";
constexpr std::size_t ChecksumDigits = 8;

/// Most numbers are lengths of short texts.
void appendNumber(std::string& out, std::uint64_t number) {
    char digits[24];
    char* end = digits;
    if (number < 10)
        *end++ = static_cast<char>('0' + number);
    else
        end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    *end++ = ':';
    out.append(digits, end);
}

void appendText(std::string& out, std::string_view text) {
    appendNumber(out, text.size());
    out += text;
}

std::string checksumDigits(std::string_view bytes) {
    constexpr const char* Digits = "0123456789abcdef";
    const std::uint32_t sum = checksum(bytes);
    std::string digits;
    for (int shift = 28; shift >= 0; shift -= 4) digits += Digits[(sum >> shift) & 0xF];
    return digits;
}

// A number as it is written, without further zeros before it. `number` is touched by success alone.
bool takeNumber(std::string_view& rest, std::uint64_t most, std::uint64_t& number) {
    std::uint64_t read = 0;
    const auto end = std::from_chars(rest.data(), rest.data() + rest.size(), read);
    const auto digits = static_cast<std::size_t>(end.ptr - rest.data());
    if (end.ec != std::errc() || read > most || (digits > 1 && rest.front() == '0')) return false;
    if (digits == rest.size() || rest[digits] != ':') return false;
    rest.remove_prefix(digits + 1);
    number = read;
    return true;
}

bool takeText(std::string_view& rest, std::string_view& text) {
    std::uint64_t size = 0;
    if (!takeNumber(rest, std::numeric_limits<std::size_t>::max(), size) || size > rest.size()) return false;
    text = rest.substr(0, static_cast<std::size_t>(size));
    rest.remove_prefix(text.size());
    return true;
}

bool takeCell(std::string_view& rest, std::string_view& text, std::string_view& tag) {
    return takeText(rest, text) && takeText(rest, tag);
}

// What the checksum at the end is that of; nothing when it is not.
std::optional<std::string_view> checkedBytes(std::string_view bytes) {
    if (bytes.size() < FirstLine.size() + ChecksumDigits || !bytes.starts_with(FirstLine)) return {};
    const std::string_view checked = bytes.substr(0, bytes.size() - ChecksumDigits);
    if (checksumDigits(checked) != bytes.substr(checked.size())) return {};
    return checked;
}

}  // namespace

// --- Writing

BlockWriter::BlockWriter(std::string& out, std::string_view grid, const std::vector<BlockColumn>& columns)
    : out_(out), start_(out.size()) {
    out_ += FirstLine;
    appendText(out_, grid);
    appendNumber(out_, columns.size());
    for (const BlockColumn& column : columns) {
        appendNumber(out_, static_cast<std::uint64_t>(column.index));
        appendText(out_, column.name);
    }
}

void BlockWriter::cell(std::string_view text, std::string_view tag) {
    appendText(out_, text);
    appendText(out_, tag);
}

void BlockWriter::finish() {
    out_ += checksumDigits(std::string_view(out_).substr(start_));
}

// --- Reading

std::optional<BlockReader> BlockReader::open(std::string_view bytes) {
    const auto checked = checkedBytes(bytes);
    if (!checked) return {};
    BlockReader reader;
    reader.rest_ = checked->substr(FirstLine.size());
    if (!reader.readHead() || !reader.countRows()) return {};
    return reader;
}

bool BlockReader::readHead() {
    constexpr auto Most = static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max());
    std::uint64_t columns = 0;
    if (!takeText(rest_, grid_) || !takeNumber(rest_, Most, columns)) return false;
    // Each is believed when it is there: room for all of them is not made on their number's word.
    for (std::uint64_t column = 0; column < columns; ++column) {
        std::uint64_t index = 0;
        std::string_view name;
        if (!takeNumber(rest_, Most, index) || !takeText(rest_, name)) return false;
        columns_.push_back({static_cast<std::int32_t>(index), std::string(name)});
    }
    return columns > 0;
}

bool BlockReader::countRows() {
    std::string_view rest = rest_;
    std::size_t cells = 0;
    for (std::string_view text, tag; !rest.empty(); ++cells)
        if (!takeCell(rest, text, tag)) return false;
    rows_ = static_cast<std::int64_t>(cells / columns_.size());
    return cells > 0 && cells % columns_.size() == 0;
}

bool BlockReader::next() {
    text_ = tag_ = {};
    if (!takeCell(rest_, text_, tag_)) return false;
    const bool beginsRow = row_ < 0 || col_ + 1 == static_cast<std::int32_t>(columns_.size());
    row_ += beginsRow ? 1 : 0;
    col_ = beginsRow ? 0 : col_ + 1;
    return true;
}
}  // namespace kxVsGrid::support
