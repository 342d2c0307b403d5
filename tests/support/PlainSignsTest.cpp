// Full-width signs become their ASCII selves, character by character; nothing else changes.
#include "support/PlainSigns.h"

#include <gtest/gtest.h>

#include <string>

#include "support/Text.h"

namespace kxVsGrid::support {
namespace {

TEST(PlainSigns, StandForTheSignsOfNumbersAndDates) {
    EXPECT_EQ(inPlainSigns("０１２３４５６７８９．。，－ー＋×÷（）％：／"), "0123456789..,--+*/()%:/");
    EXPECT_EQ(plainSigns().size(), 23U);
}

TEST(PlainSigns, AreOneCharacterEachAndStandForOne) {
    for (const PlainSign& sign : plainSigns()) {
        EXPECT_EQ(characters(sign.fullWidth), 1U) << sign.fullWidth;
        EXPECT_EQ(inPlainSigns(sign.fullWidth), std::string(1, sign.plain)) << sign.fullWidth;
        EXPECT_GT(static_cast<signed char>(sign.plain), 0) << sign.fullWidth;
    }
}

TEST(PlainSigns, LeaveEverythingElseAsItIs) {
    for (const char* text :
         {"", "12*3", "1月5日", "上午", "货Ａ号＝＊、　", "😀", "\xEF\xBC", "\xF0\xEF\xBC", "\xBC\x91"})
        EXPECT_EQ(inPlainSigns(text), text);
    EXPECT_EQ(inPlainSigns("\xF0１\xEF"),
              "\xF0"
              "1\xEF")
        << "bytes that are no UTF-8 are carried along";
    EXPECT_EQ(inPlainSigns("a１😀２"), "a1😀2");
}
}  // namespace
}  // namespace kxVsGrid::support
