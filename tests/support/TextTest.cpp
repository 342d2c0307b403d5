#include "support/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace kxVsGrid::support {
namespace {

using namespace std::string_literals;

TEST(Trim, RemovesBlanksAtBothEndsOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("a"), "a");
    EXPECT_EQ(trim("   "), "");
    EXPECT_EQ(trim(""), "");
}

TEST(Trim, KeepsTabsLineEndsAndWideBlanks) {
    EXPECT_EQ(trim(" \t a\r\n "), "\t a\r\n");
    EXPECT_EQ(trim(" \u3000a\u00A0 "), "\u3000a\u00A0");
}

TEST(Characters, CountsCodePoints) {
    EXPECT_EQ(characters(""), 0U);
    EXPECT_EQ(characters("abc"), 3U);
    EXPECT_EQ(characters("合计é"), 3U);
    EXPECT_EQ(characters("𠮷a"), 2U);
    EXPECT_EQ(characters("a\0b"s), 3U);
}

TEST(ValidBytes, EndBeforeTheFirstByteThatIsNone) {
    EXPECT_EQ(validBytes(""), 0U);
    EXPECT_EQ(validBytes("合\uFFFD𠮷a"), 11U);
    EXPECT_EQ(validBytes("合\xE5\x90"), 3U);
    EXPECT_EQ(validBytes("a\0\x80z"s), 2U);
}

TEST(AppendValid, PutsAReplacementCharacterForEachInvalidByte) {
    std::string text = "=";
    appendValid(text, "合\uFFFD\xE5\x90z\xFF");
    appendValid(text, "");
    appendValid(text, "\xED\xA0\x80");
    EXPECT_EQ(text, "=合\uFFFD\uFFFD\uFFFDz\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Characters, CountsEveryInvalidByteAsOne) {
    EXPECT_EQ(characters("\xFF\xFE"), 2U);
    EXPECT_EQ(characters("\x80"), 1U);
    EXPECT_EQ(characters("\xE5\x90"), 2U);  // cut short by the end
    EXPECT_EQ(characters("\xE5\x90"
                         "a"),
              3U);                                  // cut short by a letter
    EXPECT_EQ(characters("\xC0\xAF"), 2U);          // overlong
    EXPECT_EQ(characters("\xE0\x80\xAF"), 3U);      // overlong
    EXPECT_EQ(characters("\xF0\x80\x80\xAF"), 4U);  // overlong
    EXPECT_EQ(characters("\xED\xA0\x80"), 3U);      // a surrogate
    EXPECT_EQ(characters("\xF4\x90\x80\x80"), 4U);  // beyond the last code point
    EXPECT_EQ(characters("\xF5\x80\x80\x80"), 4U);
    EXPECT_EQ(characters("合\xE5计"), 3U);
}

TEST(ByteOfCharacter, FindsWhereACharacterStarts) {
    EXPECT_EQ(byteOfCharacter("a合b", 0), 0U);
    EXPECT_EQ(byteOfCharacter("a合b", 1), 1U);
    EXPECT_EQ(byteOfCharacter("a合b", 2), 4U);
    EXPECT_EQ(byteOfCharacter("a合b", 3), 5U);
    EXPECT_EQ(byteOfCharacter("a合b", 100), 5U);
    EXPECT_EQ(byteOfCharacter("", 0), 0U);
}

TEST(Left, TakesWholeCharacters) {
    EXPECT_EQ(left("合计abc", 1), "合");
    EXPECT_EQ(left("合计abc", 3), "合计a");
    EXPECT_EQ(left("合计", 9), "合计");
    EXPECT_EQ(left("合计", 0), "");
    EXPECT_EQ(left("\xFF合", 1), "\xFF");
}

TEST(FirstCodePoint, DecodesEveryLength) {
    EXPECT_EQ(firstCodePoint("Ab"), U'A');
    EXPECT_EQ(firstCodePoint("é"), U'é');
    EXPECT_EQ(firstCodePoint("合计"), U'合');
    EXPECT_EQ(firstCodePoint("𠮷"), U'𠮷');
    EXPECT_EQ(firstCodePoint(""), U'\0');
    EXPECT_EQ(firstCodePoint("\xFF"), U'\uFFFD');
}

TEST(Utf8, IsTheInverseOfDecodingForEveryCodePoint) {
    for (char32_t code = 1; code <= 0x10FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) continue;
        const std::string text = utf8(code);
        ASSERT_EQ(firstCodePoint(text), code);
        ASSERT_EQ(characters(text), 1U) << static_cast<std::uint32_t>(code);
    }
    EXPECT_EQ(utf8(0), "\0"s);
}

TEST(Utf8, WritesTheReplacementForWhatIsNoCodePoint) {
    EXPECT_EQ(utf8(0xD800), "\uFFFD");
    EXPECT_EQ(utf8(0xDFFF), "\uFFFD");
    EXPECT_EQ(utf8(0x110000), "\uFFFD");
}

TEST(WithoutLineBreaks, RemovesThemWhereverTheyStand) {
    EXPECT_EQ(withoutLineBreaks("\r\na\nb\r\rc\n"), "abc");
    EXPECT_EQ(withoutLineBreaks("a b\t"), "a b\t");
    EXPECT_EQ(withoutLineBreaks("\n"), "");
}

TEST(EqualsIgnoringCase, IgnoresTheCaseOfAsciiLettersAlone) {
    EXPECT_TRUE(equalsIgnoringCase("TrUe", "tRuE"));
    EXPECT_TRUE(equalsIgnoringCase("合A", "合a"));
    EXPECT_FALSE(equalsIgnoringCase("É", "é"));
    EXPECT_FALSE(equalsIgnoringCase("a", "ab"));
    EXPECT_FALSE(equalsIgnoringCase("[", "{"));
    EXPECT_TRUE(equalsIgnoringCase("", ""));
}

TEST(LowerCase, ChangesAsciiLettersAlone) {
    EXPECT_EQ(lowerCase("Row,COL 合É[Z"), "row,col 合É[z");
    EXPECT_EQ(lowerCase(""), "");
}

TEST(IsWide, IsTrueForTheCharactersOfTheChineseTexts) {
    for (const char32_t c : {U'合', U'计', U'：', U'！', U'（', U'　', U'가', U'あ', U'𠮷'})
        EXPECT_TRUE(isWide(c));
    for (const char32_t c : {U'a', U'1', U' ', U'é', U'…', U'\0', U'ｱ'}) EXPECT_FALSE(isWide(c));
}

}  // namespace
}  // namespace kxVsGrid::support
