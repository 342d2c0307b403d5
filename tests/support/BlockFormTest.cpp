#include "support/BlockForm.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "kit/Random.h"
#include "support/Checksum.h"

namespace kxVsGrid::support {
namespace {

using namespace std::string_literals;
using BlockCells = std::vector<std::pair<std::string, std::string>>;

const std::vector<BlockColumn> TwoColumns = {{3, "货号"}, {7, ""}};

std::string blockOf(std::string_view grid, const std::vector<BlockColumn>& columns, const BlockCells& cells) {
    std::string bytes;
    BlockWriter writer(bytes, grid, columns);
    for (const auto& [text, tag] : cells) writer.cell(text, tag);
    writer.finish();
    return bytes;
}

std::string smallBlock() {
    return blockOf("grid 1", TwoColumns, {{"a", ""}, {"甲\t\n", "A-1"}, {"", "\"7\""}, {"12:3", "0"}});
}

/// Bytes that stand where a block's head and cells do, with all around them as it has to be.
std::string signedBlock(std::string_view body) {
    std::string bytes = "kxVsGrid block 1\n" + std::string(body);
    const std::uint32_t sum = checksum(bytes);
    for (int shift = 28; shift >= 0; shift -= 4) bytes += "0123456789abcdef"[(sum >> shift) & 0xF];
    return bytes;
}

bool isBlock(std::string_view bytes) {
    return BlockReader::open(bytes).has_value();
}

TEST(BlockForm, IsNamedByItsMimeType) {
    EXPECT_EQ(BlockMimeType, "application/x-kxvsgrid-block");
}

TEST(BlockForm, BringsBackTextsTagsAndWhereTheyWere) {
    const std::string bytes = smallBlock();
    auto block = BlockReader::open(bytes);
    ASSERT_TRUE(block);
    EXPECT_EQ(block->grid(), "grid 1");
    EXPECT_EQ(block->columns(), TwoColumns);
    EXPECT_EQ(block->rows(), 2);
    std::string told;
    while (block->next())
        told += std::to_string(block->row()) + "," + std::to_string(block->col()) + " " +
                std::string(block->text()) + "|" + std::string(block->tag()) + ";";
    EXPECT_EQ(told, "0,0 a|;0,1 甲\t\n|A-1;1,0 |\"7\";1,1 12:3|0;");
    EXPECT_FALSE(block->next());
    EXPECT_EQ(block->text(), "");
}

TEST(BlockForm, IsWrittenAsItIsDocumented) {
    EXPECT_EQ(blockOf("key", {{12, "货号"}}, {{"a", "bc"}}), signedBlock("3:key1:12:6:货号1:a2:bc"));
    EXPECT_TRUE(isBlock(signedBlock("0:1:0:0:0:0:")));
}

TEST(BlockForm, KeepsAnyBytes) {
    kit::Random random;
    for (int turn = 0; turn < 300; ++turn) {
        const auto bytesOf = [&random] {
            std::string bytes(static_cast<std::size_t>(random.between(0, 20)), ' ');
            for (char& c : bytes) c = static_cast<char>(random.between(0, 255));
            return bytes;
        };
        std::vector<BlockColumn> columns(static_cast<std::size_t>(random.between(1, 4)));
        for (BlockColumn& column : columns)
            column = {static_cast<std::int32_t>(random.between(0, 0x7FFF'FFFF)), bytesOf()};
        BlockCells cells(columns.size() * static_cast<std::size_t>(random.between(1, 5)));
        for (auto& cell : cells) cell = {bytesOf(), bytesOf()};
        const std::string grid = bytesOf();
        const std::string bytes = blockOf(grid, columns, cells);
        auto block = BlockReader::open(bytes);
        ASSERT_TRUE(block);
        EXPECT_EQ(block->grid(), grid);
        EXPECT_EQ(block->columns(), columns);
        BlockCells read;
        while (block->next()) read.emplace_back(block->text(), block->tag());
        ASSERT_EQ(read, cells);
    }
}

TEST(BlockForm, MayStandBehindOtherText) {
    std::string bytes = "before";
    BlockWriter writer(bytes, "g", TwoColumns);
    writer.cell("a", "b");
    writer.cell("c", "d");
    writer.finish();
    EXPECT_FALSE(isBlock(bytes));
    EXPECT_TRUE(isBlock(std::string_view(bytes).substr(6)));
}

TEST(BlockForm, IsNothingWhereverItIsCut) {
    const std::string bytes = smallBlock();
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(isBlock(std::string_view(bytes).substr(0, size))) << size;
        EXPECT_FALSE(isBlock(std::string_view(bytes).substr(bytes.size() - size))) << size;
    }
    EXPECT_FALSE(isBlock(bytes + "\n"));
    EXPECT_FALSE(isBlock(bytes + bytes));
}

TEST(BlockForm, IsNothingWithAnyBitTurned) {
    const std::string whole = smallBlock();
    for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
        std::string bytes = whole;
        bytes[bit / 8] = static_cast<char>(bytes[bit / 8] ^ (1 << (bit % 8)));
        EXPECT_FALSE(isBlock(bytes)) << bit;
    }
}

TEST(BlockForm, IsNothingOfAnotherVersion) {
    std::string bytes = "kxVsGrid block 2\n0:1:0:0:0:0:";
    const std::uint32_t sum = checksum(bytes);
    for (int shift = 28; shift >= 0; shift -= 4) bytes += "0123456789abcdef"[(sum >> shift) & 0xF];
    EXPECT_FALSE(isBlock(bytes));
}

TEST(BlockForm, IsNothingWhenItsPartsDoNotFit) {
    for (const char* body : {"", "0:",
                             "0:0:",              // no column
                             "0:1:0:0:",          // no row
                             "0:0:0:0:",          // cells without a column
                             "0:1:0:0:0:",        // a text without a tag
                             "0:1:0:0:0:1:",      // a tag that is longer than what is there
                             "0:2:0:0:0:0:",      // fewer columns than said
                             "0:2:0:0:1:0:0:0:",  // half a row
                             "0:1:0:0:0:0:x",
                             "0:1:0:0:00:0:",  // numbers otherwise than they are written
                             "00:1:0:0:0:0:", "0:01:0:0:0:0:", "0:1:+0:0:0:0:", "0:1:-1:0:0:0:",
                             "0:1: 0:0:0:0:", "0:1:0x0:0:0:0:", "0:1::0:0:0:", "0:1:2147483648:0:0:0:"})
        EXPECT_FALSE(isBlock(signedBlock(body))) << body;
}

// Room for what these promise would be refused, which ends the program.
TEST(BlockForm, BelievesNoNumberThatPromisesMoreThanIsThere) {
    for (const char* number : {"2147483647", "2147483648", "9223372036854775807", "18446744073709551615",
                               "18446744073709551616", "99999999999999999999999999"}) {
        const std::string many = number;
        const std::string counted = signedBlock("0:" + many + ":0:0:0:0:0:0:");
        const std::string sized[] = {
            signedBlock(many + ":1:0:0:0:0:"), signedBlock("0:1:0:" + many + ":0:0:"),
            signedBlock("0:1:0:0:" + many + ":0:"), signedBlock("0:1:0:0:0:" + many + ":")};
        EXPECT_FALSE(isBlock(counted));
        for (const std::string& bytes : sized) EXPECT_FALSE(isBlock(bytes));
    }
}

}  // namespace
}  // namespace kxVsGrid::support
