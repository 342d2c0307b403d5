// Texts of settings that are cut off, disordered or hostile: what stands above the damage is kept, nothing is
// taken for what it is not, and a read of the rest says what is wrong.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/TextBag.h"

namespace kxVsGrid {
namespace {

const std::string Header = "kxVsGrid settings 1\n";

/// The error of reading a name, empty when there is none.
std::string errorOf(TextBag& bag, std::string_view name) {
    try {
        bag.Read(name, "default");
    } catch (const BagError& error) {
        return error.what();
    }
    return {};
}

/// A text whose third line is damaged.
void expectDamagedBy(const std::string& line) {
    TextBag bag(Header + "above = Int32 1\n" + line + "\nbelow = Int32 2\nend\n", "orders.kx");
    EXPECT_NE(bag.damage(), "") << line;
    EXPECT_EQ(bag.Read("above", 0), Variant(1)) << line;
    for (const char* name : {"below", "name", "unheard"}) {
        const std::string error = errorOf(bag, name);
        EXPECT_NE(error.find("orders.kx"), std::string::npos) << line << ": " << error;
        EXPECT_NE(error.find('3'), std::string::npos) << line << ": " << error;
    }
    EXPECT_EQ(bag.values().size(), 1u) << line;
    EXPECT_THROW(bag.text(), BagError) << line;
}

TEST(DamagedTextBag, ComesOfLinesThatAreNone) {
    for (const char* line : {"name",
                             "name =",
                             "name = ",
                             "= Int32 5",
                             "name Int32 5",
                             "name = 5",
                             "name = Int64 5",
                             "name = int32 5",
                             "name = Int32 5 6",
                             "name = Int32 five",
                             "name = Int32",
                             "name = Int32 1.5",
                             "name = Int32 0x10",
                             "name = Double abc",
                             "name = Double",
                             "name = Boolean yes",
                             "name = Boolean 1",
                             "name = Empty 5",
                             "name = Null 0",
                             "name = Text",
                             "name = Text unquoted",
                             "name = Text \"open",
                             "name = Text \"a\" b",
                             "name = Text \"\\q\"",
                             "name = Text \"\\x4\"",
                             "name = Text \"\\xZZ\"",
                             "name = Text \"ends \\\"",
                             "\"name = Int32 5",
                             "a b = Int32 5",
                             "name = Array",
                             "kxVsGrid settings 1"})
        expectDamagedBy(line);
}

TEST(DamagedTextBag, ComesOfNumbersOutOfRange) {
    for (const char* line :
         {"name = Int16 32768", "name = Int16 -32769", "name = Int32 2147483648", "name = Int32 -2147483649",
          "name = Int32 99999999999999999999999", "name = Double 1e999"})
        expectDamagedBy(line);
}

TEST(DamagedTextBag, ComesOfANameThatStandsThereTwice) {
    expectDamagedBy("above = Int32 1");
    expectDamagedBy("above = Text \"other\"");
    expectDamagedBy("\"above\" = Int32 1");
}

TEST(DamagedTextBag, ComesOfAnotherHeaderOrNone) {
    for (const char* text :
         {"", "\n", "end\n", "above = Int32 1\nend\n", "kxVsGrid settings 2\nabove = Int32 1\nend\n",
          "kxVsGrid settings\nabove = Int32 1\nend\n", "<?xml version=\"1.0\"?>\n"}) {
        TextBag bag(text, "orders.kx");
        EXPECT_NE(bag.damage(), "") << text;
        EXPECT_NE(errorOf(bag, "above").find("orders.kx"), std::string::npos) << text;
    }
}

TEST(DamagedTextBag, GivesRightValuesOrAnErrorWhereverTheTextIsCut) {
    TextBag original;
    original.Write("Cols", 123456);
    original.Write("a name", "行号\n\\\"品");
    original.Write("Editable", true);
    original.Write("price", -12.5e-7);
    original.Write("nothing", Variant());
    original.Write("long", std::int16_t{-32768});
    const std::string text = original.text();
    ASSERT_TRUE(text.ends_with("\nend\n"));
    for (std::size_t length = 0; length < text.size(); ++length) {
        const std::string cut = text.substr(0, length);
        TextBag bag(cut);
        const bool complete = cut.ends_with("\nend");
        if (!complete) {
            EXPECT_NE(bag.damage(), "") << cut;
            EXPECT_NE(errorOf(bag, "unheard"), "") << cut;
        }
        for (const auto& entry : original.values().entries()) {
            const std::size_t place = text.find(entry.name);
            const bool lineIsWhole = cut.find('\n', place) != std::string::npos && place < length;
            try {
                EXPECT_TRUE(bag.Read(entry.name, "default") == entry.value) << entry.name << " in " << cut;
            } catch (const BagError&) {
                EXPECT_FALSE(lineIsWhole) << entry.name << " in " << cut;
            }
        }
    }
}

TEST(DamagedTextBag, GivesRightValuesOrAnErrorWhicheverByteIsReplaced) {
    TextBag original;
    original.Write("Cols", 12);
    original.Write("name", "a\"品");
    original.Write("Editable", true);
    const std::string text = original.text();
    for (std::size_t place = 0; place < text.size(); ++place)
        for (const char byte : {'\0', '\xFF', '\n', '"', '\\', '=', ' ', '9'}) {
            std::string hostile = text;
            hostile[place] = byte;
            TextBag bag(hostile);
            for (const char* name : {"Cols", "name", "Editable"}) {
                try {
                    const Variant read = bag.Read(name, "default");
                    EXPECT_FALSE(read.isNull());
                } catch (const BagError& error) {
                    EXPECT_FALSE(std::string_view(error.what()).empty());
                    EXPECT_NE(bag.damage(), "");
                }
            }
        }
}

TEST(DamagedTextBag, TakesLinesInAnyOrder) {
    TextBag bag(Header + "b = Int32 2\nForeColor = Int32 3\na = Int32 1\nend\n");
    EXPECT_EQ(bag.damage(), "");
    EXPECT_EQ(bag.Read("a", 0), Variant(1));
    EXPECT_EQ(bag.Read("b", 0), Variant(2));
}

TEST(DamagedTextBag, NamesTheFirstDamagedLineAmongRemarksAndEmptyOnes) {
    TextBag bag(Header + "\n# remark\n\na = Int32 1\r\n\r\nbroken\nbroken\nend\n", "orders.kx");
    EXPECT_NE(errorOf(bag, "b").find('7'), std::string::npos) << errorOf(bag, "b");
    EXPECT_NE(bag.damage().find('7'), std::string::npos) << bag.damage();
}

TEST(DamagedTextBag, IsWholeAgainWhenCleared) {
    TextBag bag(Header + "a = Int32 1\nbroken\nend\n");
    ASSERT_NE(bag.damage(), "");
    bag.clear();
    EXPECT_EQ(bag.damage(), "");
    EXPECT_EQ(bag.Read("a", 0), Variant(0));
    bag.Write("b", 2);
    EXPECT_EQ(bag.text(), Header + "b = Int32 2\nend\n");
}

TEST(DamagedTextBag, KeepsItsWordsShortForALongLine) {
    TextBag bag(Header + std::string(10'000'000, 'x') + "\nend\n");
    const std::string error = errorOf(bag, "a");
    EXPECT_NE(error, "");
    EXPECT_LT(error.size(), 1000u);
}

TEST(HostileTextBag, ReadsAMillionNames) {
    std::string text = Header;
    for (int i = 0; i < 1'000'000; ++i)
        text += "SetVsControl" + std::to_string(i) + " = Int32 " + std::to_string(i) + "\n";
    TextBag bag(text + "end\n");
    EXPECT_EQ(bag.damage(), "");
    EXPECT_EQ(bag.values().size(), 1'000'000u);
    EXPECT_EQ(bag.Read("SetVsControl999999", 0), Variant(999'999));
}

TEST(HostileTextBag, ReadsAndWritesTenMegabytes) {
    std::string large(3'000'000, 'x');
    while (large.size() < 10'000'000) large += "\n\xFF品\"";
    TextBag bag;
    bag.Write("large", large);
    TextBag reopened(bag.text());
    EXPECT_EQ(reopened.damage(), "");
    EXPECT_TRUE(reopened.Read("large", "") == Variant(large));
}

TEST(HostileTextBag, TakesAMillionDamagedLinesForOneDamage) {
    std::string text = Header;
    for (int i = 0; i < 1'000'000; ++i) text += "= = =\n";
    TextBag bag(text);
    EXPECT_NE(bag.damage().find('2'), std::string::npos) << bag.damage();
    EXPECT_LT(bag.damage().size(), 1000u);
}
}  // namespace
}  // namespace kxVsGrid
