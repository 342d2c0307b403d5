// Any bytes as a table of text, and as a block in the control's own form, as they are and with a good checksum:
// nothing breaks, what is read is text, and what is written is read as the same.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/BlockForm.h"
#include "support/Checksum.h"
#include "support/HtmlTable.h"
#include "support/TableText.h"
#include "support/Text.h"

namespace {

using namespace kxVsGrid::support;
using Table = std::vector<std::vector<std::string>>;

void require(bool condition, const char* what) {
    if (condition) return;
    std::cerr << what << '\n';
    std::abort();
}

bool has(std::string_view text, char c) {
    return text.find(c) != std::string_view::npos;
}

Table readTable(std::string_view text) {
    Table table;
    bool rowEnded = true;
    for (TableReader reader(text); reader.next(); rowEnded = reader.endsRow()) {
        if (rowEnded) table.emplace_back();
        table.back().emplace_back(reader.text());
        require(reader.row() == static_cast<std::int64_t>(table.size()) - 1 &&
                    reader.col() == static_cast<std::int64_t>(table.back().size()) - 1,
                "a cell is in the wrong place");
        require(validBytes(reader.text()) == reader.text().size() && !has(reader.text(), '\0') &&
                    !has(reader.text(), '\r'),
                "a cell is no text");
    }
    require(rowEnded, "the last row has no end");
    return table;
}

void checkShape(std::string_view text, const Table& table) {
    const TableShape shape = tableShape(text);
    std::size_t cols = 0;
    for (const auto& row : table) cols = std::max(cols, row.size());
    require(shape.rows == static_cast<std::int64_t>(table.size()) &&
                shape.cols == static_cast<std::int64_t>(cols),
            "the shape is another one");
}

/// Text without quotes is its cells with tabs and line ends between them.
void checkPlain(std::string_view text, const Table& table) {
    if (has(text, '"') || has(text, '\r') || has(text, '\0') || validBytes(text) != text.size()) return;
    std::string joined;
    for (const auto& row : table)
        for (const std::string& cell : row) joined += cell + (&cell == &row.back() ? '\n' : '\t');
    if (text.starts_with("\uFEFF")) text.remove_prefix(3);
    require(joined == text || (!text.ends_with('\n') && joined == std::string(text) + '\n'),
            "cells without quotes do not make up the text");
}

void checkWriter(const Table& table) {
    std::string text;
    TableWriter writer(text);
    for (const auto& row : table) {
        for (const std::string& cell : row) writer.cell(cell);
        writer.endRow();
    }
    writer.finish();
    require(readTable(text) == table, "what was written is read otherwise");
}

void checkHtml(std::string_view cell) {
    std::string html;
    HtmlTableWriter writer(html);
    writer.cell(cell);
    writer.finish();
    require(validBytes(html) == html.size(), "the fragment is no text");
    std::size_t breaks = 0;
    for (std::size_t at = 0; at < cell.size(); ++at)
        breaks += cell[at] == '\r' || (cell[at] == '\n' && (at == 0 || cell[at - 1] != '\r')) ? 1U : 0U;
    const auto marks = static_cast<std::size_t>(std::count(html.begin(), html.end(), '<'));
    require(marks == 7 + breaks, "a cell's text has become markup");
}

/// True when it is one; then nothing else is it.
bool checkBlock(std::string_view bytes) {
    auto block = BlockReader::open(bytes);
    if (!block) return false;
    std::string again;
    BlockWriter writer(again, block->grid(), block->columns());
    std::int64_t cells = 0;
    for (; block->next(); ++cells) {
        require(cells == block->row() * static_cast<std::int64_t>(block->columns().size()) + block->col(),
                "a cell of a block is in the wrong place");
        writer.cell(block->text(), block->tag());
    }
    writer.finish();
    require(cells > 0 && cells == block->rows() * static_cast<std::int64_t>(block->columns().size()),
            "a block lacks cells");
    require(again == bytes, "a block is written otherwise");
    return true;
}

std::string signedBlock(std::string_view body) {
    std::string bytes = "kxVsGrid block 1\n" + std::string(body);
    const std::uint32_t sum = checksum(bytes);
    for (int shift = 28; shift >= 0; shift -= 4) bytes += "0123456789abcdef"[(sum >> shift) & 0xF];
    return bytes;
}

/// The cells as a block, texts and tags by turns; what stands in it behind its first line and before its checksum.
std::string blockBody(const Table& table, std::uint8_t columns) {
    std::string bytes;
    BlockWriter writer(bytes, "grid", std::vector<BlockColumn>(columns, BlockColumn{7, "name"}));
    std::vector<std::string> texts;
    for (const auto& row : table) texts.insert(texts.end(), row.begin(), row.end());
    texts.resize((texts.size() / 2U / columns + 1) * 2U * columns);
    for (std::size_t at = 0; at < texts.size(); at += 2) writer.cell(texts[at], texts[at + 1]);
    writer.finish();
    require(checkBlock(bytes), "a block that was written is none");
    constexpr std::size_t Before = 17;
    constexpr std::size_t Behind = 8;
    return bytes.substr(Before, bytes.size() - Before - Behind);
}

/// A block in which the first bytes of the input have altered some, under a good checksum and a bad one.
void checkDamaged(const Table& table, std::string_view input) {
    const auto byteAt = [input](std::size_t at) {
        return at < input.size() ? static_cast<std::uint8_t>(input[at]) : std::uint8_t{0};
    };
    std::string body = blockBody(table, static_cast<std::uint8_t>(byteAt(0) % 5U + 1U));
    constexpr std::string_view Digits = "0123456789:x";
    for (std::size_t turn = 1; turn <= byteAt(1) % 4U; ++turn)
        body[(byteAt(turn * 3) * 256U + byteAt(turn * 3 + 1)) % body.size()] =
            Digits[byteAt(turn * 3 + 2) % Digits.size()];
    std::string bytes = signedBlock(body);
    checkBlock(bytes);
    const std::size_t at = byteAt(2) * 256U % bytes.size();
    require(!BlockReader::open(std::string_view(bytes).substr(0, at)), "a part of a block is one");
    bytes[at] = static_cast<char>(bytes[at] ^ 1);
    require(!BlockReader::open(bytes), "an altered block is one");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const Table table = readTable(input);
    checkShape(input, table);
    checkPlain(input, table);
    checkWriter(table);
    checkHtml(input);
    checkBlock(input);
    checkBlock(signedBlock(input));
    checkDamaged(table, input);
    return 0;
}
