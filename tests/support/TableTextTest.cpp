#include "support/TableText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kit/Random.h"
#include "support/AllocationCounter.h"

namespace kxVsGrid::support {
namespace {

using namespace std::string_literals;
using TextTable = std::vector<std::vector<std::string>>;

TextTable readTable(std::string_view text) {
    TextTable table;
    bool rowEnded = true;
    for (TableReader reader(text); reader.next();) {
        if (rowEnded) table.emplace_back();
        EXPECT_EQ(reader.row(), static_cast<std::int64_t>(table.size()) - 1);
        EXPECT_EQ(reader.col(), static_cast<std::int64_t>(table.back().size()));
        table.back().emplace_back(reader.text());
        EXPECT_EQ(reader.text(), table.back().back());
        rowEnded = reader.endsRow();
    }
    EXPECT_TRUE(rowEnded);
    return table;
}

std::string writeTable(const TextTable& table) {
    std::string text;
    TableWriter writer(text);
    for (const auto& row : table) {
        for (const std::string& cell : row) writer.cell(cell);
        writer.endRow();
    }
    writer.finish();
    return text;
}

TEST(TableReader, SeparatesCellsByTabsAndRowsByAnyLineEnd) {
    const TextTable expected = {{"a", "b"}, {"c"}, {"", "d", ""}, {"货号"}};
    EXPECT_EQ(readTable("a\tb\nc\n\td\t\n货号"), expected);
    EXPECT_EQ(readTable("a\tb\r\nc\r\n\td\t\r\n货号"), expected);
    EXPECT_EQ(readTable("a\tb\rc\r\td\t\r货号"), expected);
    EXPECT_EQ(readTable("a\tb\rc\n\td\t\r\n货号"), expected);
}

TEST(TableReader, TakesOneLineEndAtTheEndForTheEndOfTheLastRow) {
    for (const char* end : {"", "\n", "\r\n", "\r"})
        EXPECT_EQ(readTable("a\tb"s + end), (TextTable{{"a", "b"}}));
    EXPECT_EQ(readTable("a\n\n"), (TextTable{{"a"}, {""}}));
    EXPECT_EQ(readTable("a\r\n\r"), (TextTable{{"a"}, {""}}));
}

TEST(TableReader, ReadsAnEmptyLineAsARowOfOneEmptyCellAndNoTextAsNoRow) {
    EXPECT_EQ(readTable(""), TextTable());
    EXPECT_EQ(readTable("\n"), (TextTable{{""}}));
    EXPECT_EQ(readTable("\"\""), (TextTable{{""}}));
    EXPECT_EQ(readTable("\n\na"), (TextTable{{""}, {""}, {"a"}}));
    EXPECT_EQ(readTable("\n\r\n"), (TextTable{{""}, {""}}));
    EXPECT_EQ(readTable("\t"), (TextTable{{"", ""}}));
}

TEST(TableReader, UnquotesCellsThatBeginWithAQuote) {
    EXPECT_EQ(readTable("\"a\tb\"\tc"), (TextTable{{"a\tb", "c"}}));
    EXPECT_EQ(readTable("\"say \"\"hm\"\"\"\tc"), (TextTable{{"say \"hm\"", "c"}}));
    EXPECT_EQ(readTable("\"\"\"\"\n\"\""), (TextTable{{"\""}, {""}}));
}

TEST(TableReader, KeepsLineEndsInsideQuotesAsLineFeeds) {
    EXPECT_EQ(readTable("\"a\nb\"\tc"), (TextTable{{"a\nb", "c"}}));
    EXPECT_EQ(readTable("\"a\r\nb\rc\n\"\r\n\"\r\r\n\""), (TextTable{{"a\nb\nc\n"}, {"\n\n"}}));
}

TEST(TableReader, AppendsWhatFollowsAClosingQuote) {
    EXPECT_EQ(readTable("\"a\tb\"c\td"), (TextTable{{"a\tbc", "d"}}));
    EXPECT_EQ(readTable("\"a\" \"b\"\t\"\"\"x\""), (TextTable{{"a \"b\"", "\"x"}}));
    EXPECT_EQ(readTable("\"\"x\"\"y\n"), (TextTable{{"x\"\"y"}}));
}

TEST(TableReader, TakesAQuoteInsideAnUnquotedCellForACharacter) {
    EXPECT_EQ(readTable("5\"\t 6\"\"\ta\"b\"\n"), (TextTable{{"5\"", " 6\"\"", "a\"b\""}}));
}

TEST(TableReader, TakesAQuoteThatIsNeverClosedForACharacter) {
    EXPECT_EQ(readTable("\""), (TextTable{{"\""}}));
    EXPECT_EQ(readTable("a\t\"b\tc\nd"), (TextTable{{"a", "\"b", "c"}, {"d"}}));
    EXPECT_EQ(readTable("\"\"\"a\tb\n"), (TextTable{{"\"\"\"a", "b"}}));
    // What is quoted behind it is read as ever.
    EXPECT_EQ(readTable("\"a\t\"\"\t\"\"\"\"x\nb"), (TextTable{{"\"a", "", "\"x"}, {"b"}}));
}

TEST(TableReader, LeavesOutAByteOrderMarkAtTheStartAndNuls) {
    EXPECT_EQ(readTable("\uFEFFa\tb"), (TextTable{{"a", "b"}}));
    EXPECT_EQ(readTable("\uFEFF\"a\"\t\uFEFFb"), (TextTable{{"a", "\uFEFFb"}}));
    EXPECT_EQ(readTable("\uFEFF"), TextTable());
    EXPECT_EQ(readTable("a\tb\n\0\0"s), (TextTable{{"a", "b"}}));
    EXPECT_EQ(readTable("\0a\0\t\"\0b\"\0c\0\n\0\nd"s), (TextTable{{"a", "bc"}, {""}, {"d"}}));
}

TEST(TableReader, ReadsAByteThatIsNoUtf8AsTheReplacementCharacter) {
    EXPECT_EQ(readTable("a\xFF\t\xE5\x90\tz"), (TextTable{{"a\uFFFD", "\uFFFD\uFFFD", "z"}}));
    EXPECT_EQ(readTable("\"\xC0\xAF\n\"\xED\xA0\x80"), (TextTable{{"\uFFFD\uFFFD\n\uFFFD\uFFFD\uFFFD"}}));
    // Two parts of a character that other bytes keep apart are none.
    EXPECT_EQ(readTable("\"\xE5\x90\"\x88"), (TextTable{{"\uFFFD\uFFFD\uFFFD"}}));
    EXPECT_EQ(readTable("\xE5\x90\0\x88"s), (TextTable{{"\uFFFD\uFFFD\uFFFD"}}));
    EXPECT_EQ(readTable("\uFFFD合"), (TextTable{{"\uFFFD合"}}));
}

TEST(TableReader, CopiesNothingOfCellsThatReadAsTheyAreWritten) {
    const std::string text = "plain\t\"quoted, with\ta tab\"\t货号货号货号货号货号货号\n";
    const std::size_t before = test::allocations();
    std::size_t cells = 0;
    for (TableReader reader(text); reader.next(); ++cells) {
        const std::string_view cell = reader.text();
        ASSERT_TRUE(cell.data() >= text.data() && cell.data() < text.data() + text.size());
    }
    EXPECT_EQ(tableShape(text), (TableShape{1, 3}));
    EXPECT_EQ(test::allocations(), before);
    EXPECT_EQ(cells, 3u);
}

// A reader that looks for the end of the text in each cell would not come back from these.
TEST(TableReader, GoesThroughMegabytesOfQuotesOnce) {
    constexpr std::size_t Size = std::size_t{4} << 20;
    for (const std::string pattern :
         {"\"\t", "\t\"", "\"", "\"\"\t", "\t\"\"", "\"\"\"\t", "\"\n\"\"", "\t"}) {
        std::string text = "\"";
        while (text.size() < Size) text += pattern;
        std::size_t bytes = 0;
        for (TableReader reader(text); reader.next();) bytes += reader.text().size() + 1;
        EXPECT_LE(bytes, text.size() + 1) << pattern;
        EXPECT_GE(bytes, text.size() / 4) << pattern;
    }
}

TEST(TableShape, IsThatOfTheWidestRow) {
    EXPECT_EQ(tableShape(""), (TableShape{0, 0}));
    EXPECT_EQ(tableShape("\n"), (TableShape{1, 1}));
    EXPECT_EQ(tableShape("a\nb\tc\td\n\"e\te\n\"\tf\n"), (TableShape{3, 3}));
}

TEST(TableWriter, QuotesWhatNeedsItAlone) {
    EXPECT_EQ(writeTable({{"a", "5\"", " b ", "货号"}, {"c"}}), "a\t5\"\t b \t货号\nc");
    EXPECT_EQ(writeTable({{"a\tb", "\"", "\"\"a", "say \"hm\"\n"}}),
              "\"a\tb\"\t\"\"\"\"\t\"\"\"\"\"a\"\t\"say \"\"hm\"\"\n\"");
}

TEST(TableWriter, PutsALineEndBetweenRowsAndBehindALastRowOfOneEmptyCell) {
    EXPECT_EQ(writeTable({}), "");
    EXPECT_EQ(writeTable({{"a"}}), "a");
    EXPECT_EQ(writeTable({{""}}), "\n");
    EXPECT_EQ(writeTable({{"a"}, {""}}), "a\n\n");
    EXPECT_EQ(writeTable({{""}, {"a"}}), "\na");
    EXPECT_EQ(writeTable({{""}, {""}}), "\n\n");
    EXPECT_EQ(writeTable({{"", ""}}), "\t");
    EXPECT_EQ(writeTable({{}, {}, {"a"}, {}}), "\n\na\n\n");
}

TEST(TableWriter, EndsARowThatIsStillOpen) {
    std::string text;
    TableWriter writer(text);
    writer.cell("a");
    writer.endRow();
    writer.cell("");
    writer.finish();
    EXPECT_EQ(text, "a\n\n");
}

TEST(TableWriter, WritesEveryLineEndAsALineFeed) {
    EXPECT_EQ(writeTable({{"a\r\nb\rc\nd\r\r\n"}}), "\"a\nb\nc\nd\n\n\"");
}

TEST(TableWriter, WritesTextAlone) {
    EXPECT_EQ(writeTable({{"\xFF"
                           "a",
                           "\0\"b\0"s, "\0"s}}),
              "\uFFFDa\t\"\"\"b\"\t");
    EXPECT_EQ(writeTable({{"\uFEFFa"}}), "\"\uFEFFa\"");
}

TEST(TableText, ComesBackAsItWasWritten) {
    kit::Random random;
    const std::vector<std::string> pieces = {"\t", "\n", "\"",     "\"", "",  " ",
                                             "a",  "汉", "\uFEFF", "𠮷", ",", "\v"};
    for (int turn = 0; turn < 3000; ++turn) {
        TextTable table(static_cast<std::size_t>(random.between(0, 4)));
        for (auto& row : table) {
            row.resize(static_cast<std::size_t>(random.between(1, 4)));
            for (std::string& cell : row)
                for (std::int64_t left = random.between(0, 4); left > 0; --left)
                    cell += pieces[static_cast<std::size_t>(random.between(0, 11))];
        }
        const std::string text = writeTable(table);
        ASSERT_EQ(readTable(text), table) << text;
    }
}

}  // namespace
}  // namespace kxVsGrid::support
