#include "support/TableText.h"

#include <algorithm>
#include <array>

#include "support/Text.h"

namespace kxVsGrid::support {
namespace {

constexpr std::string_view ByteOrderMark = "\uFEFF";
constexpr char Quote = '"';

// What makes a byte worth a look.
enum Kind : unsigned char { Separator = 1, Nul = 2, NotAscii = 4 };

constexpr std::array<unsigned char, 256> Kinds = [] {
    std::array<unsigned char, 256> kinds{};
    for (std::size_t byte = 0x80; byte < kinds.size(); ++byte) kinds[byte] = NotAscii;
    kinds['\t'] = kinds['\n'] = kinds['\r'] = Separator;
    kinds[0] = Nul;
    return kinds;
}();

unsigned kindOf(char c) {
    return Kinds[static_cast<unsigned char>(c)];
}

unsigned kindsOf(std::string_view text) {
    unsigned kinds = 0;
    for (const char c : text) kinds |= kindOf(c);
    return kinds;
}

bool isText(std::string_view text, unsigned kinds) {
    return (kinds & Nul) == 0 && ((kinds & NotAscii) == 0 || validBytes(text) == text.size());
}

std::string asText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    appendValid(text, bytes);
    std::erase(text, '\0');
    return text;
}

// The quote that ends the cell whose text begins at `at`; npos when none does. It is looked for in vain once at
// most: then all further quotes stand in pairs, and whatever a pair begins, that or one right behind it ends.
std::size_t closingQuote(std::string_view text, std::size_t at) {
    while (true) {
        const std::size_t quote = text.find(Quote, at);
        if (quote == std::string_view::npos) return quote;
        if (quote + 1 == text.size() || text[quote + 1] != Quote) return quote;
        at = quote + 2;
    }
}

// A quote in it is followed by another one. A NUL between the halves of a line end leaves them two.
void appendUnquoted(std::string& out, std::string_view quoted) {
    for (std::size_t at = 0; at < quoted.size(); ++at) {
        const char c = quoted[at];
        if (c == '\0') continue;
        if (c == Quote || (c == '\r' && quoted.substr(at, 2) == "\r\n")) ++at;
        out += c == '\r' ? '\n' : c;
    }
}

void appendQuoted(std::string& out, std::string_view text) {
    out += Quote;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == Quote) out += Quote;
        if (text.substr(at, 2) == "\r\n") ++at;
        out += c == '\r' ? '\n' : c;
    }
    out += Quote;
}

}  // namespace

// --- Reading

TableReader::TableReader(std::string_view text) : text_(text) {
    if (text_.starts_with(ByteOrderMark)) text_.remove_prefix(ByteOrderMark.size());
    while (text_.ends_with('\0')) text_.remove_suffix(1);
}

bool TableReader::next() {
    quoted_ = bare_ = {};
    bareKinds_ = 0;
    if (endsRow_ && at_ == text_.size()) return false;
    row_ += endsRow_ ? 1 : 0;
    col_ = endsRow_ ? 0 : col_ + 1;
    readQuotes();
    readBare();
    endsRow_ = at_ == text_.size() || text_[at_] != '\t';
    if (at_ < text_.size()) at_ += text_.substr(at_, 2) == "\r\n" ? 2 : 1;
    return true;
}

void TableReader::readQuotes() {
    if (at_ == text_.size() || text_[at_] != Quote) return;
    const std::size_t closing = closingQuote(text_, at_ + 1);
    if (closing == std::string_view::npos) return;
    quoted_ = text_.substr(at_ + 1, closing - at_ - 1);
    at_ = closing + 1;
}

void TableReader::readBare() {
    const char* const start = text_.data() + at_;
    const char* const end = text_.data() + text_.size();
    const char* here = start;
    unsigned kinds = 0;
    for (; here != end; ++here) {
        const unsigned kind = kindOf(*here);
        if (kind == Separator) break;
        kinds |= kind;
    }
    bare_ = {start, static_cast<std::size_t>(here - start)};
    bareKinds_ = kinds;
    at_ += bare_.size();
}

std::string_view TableReader::text() {
    const bool bareIsText = isText(bare_, bareKinds_);
    if (quoted_.empty() && bareIsText) return bare_;
    const bool quotedIsText = isText(quoted_, kindsOf(quoted_));
    if (bare_.empty() && quotedIsText && quoted_.find(Quote) == std::string_view::npos &&
        quoted_.find('\r') == std::string_view::npos)
        return quoted_;
    // Each part by itself: bytes that a quote or a NUL keeps apart make no character.
    cleaned_.clear();
    if (validBytes(quoted_) == quoted_.size()) {
        appendUnquoted(cleaned_, quoted_);
    } else {
        std::string valid;
        appendValid(valid, quoted_);
        appendUnquoted(cleaned_, valid);
    }
    if (bareIsText)
        cleaned_ += bare_;
    else
        cleaned_ += asText(bare_);
    return cleaned_;
}

TableShape tableShape(std::string_view text) {
    TableShape shape;
    for (TableReader reader(text); reader.next();) {
        shape.rows = reader.row() + 1;
        shape.cols = std::max(shape.cols, reader.col() + 1);
    }
    return shape;
}

// --- Writing

void TableWriter::beginRow() {
    if (anyRow_) out_ += '\n';
    rowStart_ = out_.size();
}

void TableWriter::cell(std::string_view text) {
    if (rowOpen_)
        out_ += '\t';
    else
        beginRow();
    rowOpen_ = true;
    const unsigned kinds = kindsOf(text);
    if (isText(text, kinds))
        write(text, kinds);
    else
        write(asText(text), kinds);
}

void TableWriter::write(std::string_view valid, unsigned kinds) {
    // A byte order mark at the start of the table would be taken for one.
    if ((kinds & Separator) != 0 || valid.starts_with(Quote) || valid.starts_with(ByteOrderMark))
        appendQuoted(out_, valid);
    else
        out_ += valid;
}

void TableWriter::endRow() {
    if (!rowOpen_) beginRow();
    rowOpen_ = false;
    anyRow_ = true;
    emptyRow_ = out_.size() == rowStart_;
}

void TableWriter::finish() {
    if (rowOpen_) endRow();
    if (anyRow_ && emptyRow_) out_ += '\n';
}
}  // namespace kxVsGrid::support
