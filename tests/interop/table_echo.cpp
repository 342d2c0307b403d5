// Reads tables from the standard input and tells what is in them, for a test that knows it from elsewhere. A text
// is its size in bytes, a colon and the bytes. In come texts, one behind the other; for each goes out one text
// for each cell, with the letter c before it, "r" behind each row, the table's shape as "s<rows> <cols> ", and
// the table as it is written again, with the letter w before it.
#include <cstddef>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

#include "support/TableText.h"

namespace {

using kxVsGrid::support::TableReader;
using kxVsGrid::support::TableShape;
using kxVsGrid::support::TableWriter;

void append(std::string& out, char letter, std::string_view text) {
    out += letter + std::to_string(text.size()) + ':';
    out += text;
}

void tell(std::string& out, std::string_view text) {
    std::string again;
    TableWriter writer(again);
    for (TableReader reader(text); reader.next();) {
        append(out, 'c', reader.text());
        writer.cell(reader.text());
        if (!reader.endsRow()) continue;
        out += 'r';
        writer.endRow();
    }
    writer.finish();
    const TableShape shape = kxVsGrid::support::tableShape(text);
    out += 's' + std::to_string(shape.rows) + ' ' + std::to_string(shape.cols) + ' ';
    append(out, 'w', again);
}
}  // namespace

int main() {
    const std::string input{std::istreambuf_iterator<char>(std::cin), {}};
    std::string out;
    for (std::size_t at = 0; at < input.size();) {
        const std::size_t colon = input.find(':', at);
        const std::size_t size = std::stoul(input.substr(at, colon - at));
        // By itself, so that a sanitizer sees who reads past the end.
        const std::string text = input.substr(colon + 1, size);
        tell(out, text);
        at = colon + 1 + size;
    }
    std::cout << out;
    return 0;
}
