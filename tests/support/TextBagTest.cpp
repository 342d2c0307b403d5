// The bag as a readable text: how it is written, and that it comes back.
#include "kxVsGrid/TextBag.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace kxVsGrid {
namespace {

std::string textOf(std::string_view name, const Variant& value) {
    TextBag bag;
    bag.Write(name, value);
    return bag.text();
}
std::string whole(const std::string& lines) {
    return "kxVsGrid settings 1\n" + lines + "end\n";
}
/// The value of a text with one line.
Variant valueOf(const std::string& literal) {
    TextBag bag(whole("name = " + literal + "\n"));
    EXPECT_EQ(bag.damage(), "") << literal;
    return bag.Read("name", "default");
}

TEST(TextBag, WritesALineForEachValueBetweenHeaderAndEnd) {
    TextBag bag;
    EXPECT_EQ(bag.text(), whole(""));
    bag.Write("FormatString", "行号|<货号    ", "");
    bag.Write("Editable", true, std::int16_t{0});
    bag.Write("Cols", 5);
    EXPECT_EQ(bag.text(),
              whole("FormatString = Text \"行号|<货号    \"\nEditable = Boolean True\nCols = Int32 5\n"));
}

TEST(TextBag, NamesTheTypeOfEveryValue) {
    EXPECT_EQ(textOf("a", true), whole("a = Boolean True\n"));
    EXPECT_EQ(textOf("a", false), whole("a = Boolean False\n"));
    EXPECT_EQ(textOf("a", std::int16_t{-5}), whole("a = Int16 -5\n"));
    EXPECT_EQ(textOf("a", INT32_MIN), whole("a = Int32 -2147483648\n"));
    EXPECT_EQ(textOf("a", 0.1), whole("a = Double 0.1\n"));
    EXPECT_EQ(textOf("a", "b"), whole("a = Text \"b\"\n"));
    EXPECT_EQ(textOf("a", ""), whole("a = Text \"\"\n"));
    EXPECT_EQ(textOf("a", Variant()), whole("a = Empty\n"));
    EXPECT_EQ(textOf("a", Variant::null()), whole("a = Null\n"));
}

TEST(TextBag, WritesTheShortestDecimalThatReadsBackTheSame) {
    for (const double value :
         {0.1, 0.1 + 0.2, 1.0 / 3, -2.5, 16777215.0, 1e-300, 1.7976931348623157e308, 5e-324, 0.0}) {
        TextBag reopened(textOf("a", value));
        const Variant read = reopened.Read("a", "default");
        EXPECT_EQ(read.type(), Variant::Type::Double) << value;
        EXPECT_EQ(read.toDouble(), value);
    }
    EXPECT_EQ(textOf("a", 0.1 + 0.2), whole("a = Double 0.30000000000000004\n"));
}

TEST(TextBag, EscapesWhatWouldBreakALine) {
    EXPECT_EQ(textOf("a", "\\ \" \n \r \t"), whole("a = Text \"\\\\ \\\" \\n \\r \\t\"\n"));
    EXPECT_EQ(textOf("a", std::string("\0\x01\x10\x7F", 4)), whole("a = Text \"\\x00\\x01\\x10\\x7F\"\n"));
    EXPECT_EQ(textOf("a", "品\x80"), whole("a = Text \"品\\x80\"\n"));
    EXPECT_EQ(textOf("a", "\xE5\x93"), whole("a = Text \"\\xE5\\x93\"\n")) << "a character cut off";
    EXPECT_EQ(textOf("a", "# = end"), whole("a = Text \"# = end\"\n"));
}

TEST(TextBag, BringsBackEveryText) {
    std::string every;
    for (int byte = 0; byte < 256; ++byte) every.push_back(static_cast<char>(byte));
    for (const std::string& text :
         {every, std::string("\xED\xA0\x80"), std::string("\xC0\xAF"), std::string("\xF4\x90\x80\x80"),
          std::string("😀é行"), std::string("  blanks  "), std::string("\\x41"), std::string("\\n"),
          std::string("ends with \\"), std::string("\xEF\xBB\xBF")}) {
        TextBag reopened(textOf("a", text));
        EXPECT_EQ(reopened.damage(), "");
        EXPECT_EQ(reopened.Read("a", 0), Variant(text));
    }
}

TEST(TextBag, IsUtf8InOneLinePerValueWhateverTheTextsHold) {
    std::string every;
    for (int byte = 0; byte < 256; ++byte) every.push_back(static_cast<char>(byte));
    const std::string text = textOf(every, every);
    int lines = 0;
    for (const char c : text) {
        if (c == '\n') ++lines;
        EXPECT_TRUE(c == '\n' || (c >= ' ' && c < '\x7F')) << static_cast<int>(c);
    }
    EXPECT_EQ(lines, 3);
    TextBag reopened(text);
    EXPECT_EQ(reopened.Read(every, 0), Variant(every));
}

TEST(TextBag, QuotesNamesThatAreNotMadeOfLettersAndDigits) {
    EXPECT_EQ(textOf("Cols.a_9", 1), whole("Cols.a_9 = Int32 1\n"));
    EXPECT_EQ(textOf("SetVsControl3b是否提供帮助", 1), whole("SetVsControl3b是否提供帮助 = Int32 1\n"));
    EXPECT_EQ(textOf("a b", 1), whole("\"a b\" = Int32 1\n"));
    EXPECT_EQ(textOf("a=b", 1), whole("\"a=b\" = Int32 1\n"));
    EXPECT_EQ(textOf("#a", 1), whole("\"#a\" = Int32 1\n"));
    EXPECT_EQ(textOf("a\nb\"", 1), whole("\"a\\nb\\\"\" = Int32 1\n"));
    EXPECT_EQ(textOf("", 1), whole("\"\" = Int32 1\n"));
    for (const std::string name :
         {"", "a b", "end", "#", "\"", "\\", "\xFF", "kxVsGrid settings 1", "é", "=", " "}) {
        TextBag reopened(textOf(name, 7));
        EXPECT_EQ(reopened.damage(), "") << name;
        EXPECT_EQ(reopened.Read(name, 0), Variant(7)) << name;
    }
}

TEST(TextBag, LeavesOutWhatEqualsItsDefault) {
    TextBag bag;
    bag.Write("Appearance", 1, 1);
    bag.Write("name", "-1", "-1");
    bag.Write("flag", false, false);
    bag.Write("kept", 1);
    EXPECT_EQ(bag.text(), whole("kept = Int32 1\n"));
}

TEST(TextBag, LeavesOutAValueThatWasKeptBeforeAndNowEqualsItsDefault) {
    TextBag bag;
    bag.Write("Appearance", 0, 1);
    bag.Write("Appearance", 1, 1);
    EXPECT_EQ(bag.text(), whole(""));
    bag.Write("Appearance", 0, 1);
    EXPECT_EQ(bag.text(), whole("Appearance = Int32 0\n"));
    TextBag reopened(bag.text());
    reopened.Write("Appearance", 1, 1);
    EXPECT_EQ(reopened.text(), whole(""));
}

TEST(TextBag, GivesBackWhatItLeavesOutByAnyNameOfTheSameValue) {
    TextBag bag;
    bag.Write("i", std::int16_t{0}, "0");
    bag.Write("b", false, "0");
    bag.Write("e", -1, true);
    bag.Write("n", false, std::int16_t{0});
    TextBag reopened(bag.text());
    EXPECT_EQ(reopened.Read("i", "0").toInt16(), 0);
    EXPECT_FALSE(reopened.Read("b", "0").toBoolean());
    EXPECT_EQ(reopened.Read("e", true).toInt32(), -1);
    EXPECT_FALSE(reopened.Read("n", std::int16_t{0}).toBoolean());
}

TEST(TextBag, KeepsTheOrderOfTheFirstWritingAlsoAfterReopening) {
    TextBag bag;
    bag.Write("b", 1);
    bag.Write("a", 2);
    bag.Write("b", 3);
    EXPECT_EQ(bag.text(), whole("b = Int32 3\na = Int32 2\n"));
    TextBag reopened(bag.text());
    reopened.Write("a", 4);
    EXPECT_EQ(reopened.text(), whole("b = Int32 3\na = Int32 4\n"));
}

TEST(TextBag, AnswersTheDefaultForWhatIsNotThere) {
    TextBag bag(whole("a = Int32 1\n"));
    EXPECT_EQ(bag.Read("b", std::int16_t{4}).type(), Variant::Type::Int16);
    EXPECT_TRUE(bag.Read("b", Variant()).isEmpty());
    EXPECT_EQ(bag.Read("A", "default"), Variant("default"));
    EXPECT_EQ(bag.values().size(), 1u);
}

TEST(TextBag, RefusesAnArrayAndGoesOn) {
    TextBag bag;
    EXPECT_THROW(bag.Write("a", Variant(Table())), BagError);
    EXPECT_THROW(bag.Write("a", Variant(Table()), 0), BagError);
    bag.Write("b", 1);
    EXPECT_EQ(bag.text(), whole("b = Int32 1\n"));
}

TEST(TextBag, ReadsEveryKindOfLiteral) {
    EXPECT_EQ(valueOf("Boolean True"), Variant(true));
    EXPECT_EQ(valueOf("Boolean False"), Variant(false));
    EXPECT_EQ(valueOf("Int16 32767").type(), Variant::Type::Int16);
    EXPECT_EQ(valueOf("Int16 -32768"), Variant(std::int16_t{-32768}));
    EXPECT_EQ(valueOf("Int32 2147483647"), Variant(2147483647));
    EXPECT_EQ(valueOf("Double 5").type(), Variant::Type::Double);
    EXPECT_EQ(valueOf("Double -1.5e-7"), Variant(-1.5e-7));
    EXPECT_EQ(valueOf("Text \"a\\x41\\\\\\\"\\n\\r\\t\""), Variant("aA\\\"\n\r\t"));
    EXPECT_TRUE(valueOf("Empty").isEmpty());
    EXPECT_TRUE(valueOf("Null").isNull());
}

TEST(TextBag, SkipsEmptyLinesAndRemarksAndTakesEitherLineEnd) {
    TextBag bag(
        "kxVsGrid settings 1\r\n\r\n# a remark = Int32 7\r\na = Int32 1\r\n \t \n\n#\nb = Text "
        "\"x\"\r\nend\r\n");
    EXPECT_EQ(bag.damage(), "");
    EXPECT_EQ(bag.Read("a", 0), Variant(1));
    EXPECT_EQ(bag.Read("b", 0), Variant("x"));
    EXPECT_EQ(bag.values().size(), 2u);
}

TEST(TextBag, ClearsToAnEmptyBag) {
    TextBag bag(whole("a = Int32 1\n"));
    bag.clear();
    EXPECT_EQ(bag.text(), whole(""));
    EXPECT_EQ(bag.Read("a", 0), Variant(0));
}
}  // namespace
}  // namespace kxVsGrid
