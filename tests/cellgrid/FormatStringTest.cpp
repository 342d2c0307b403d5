#include "cellgrid/format/FormatString.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kxVsGrid::cellgrid {
namespace {

std::vector<std::string> captions(const std::vector<FormatField>& fields) {
    std::vector<std::string> result;
    for (const auto& field : fields) result.emplace_back(field.caption);
    return result;
}

using Texts = std::vector<std::string>;

TEST(FormatString, SeparatesColumnsByBarsAndRowCaptionsByASemicolon) {
    const auto parsed = parseFormatString("行号|货号|数量;甲|乙");
    EXPECT_EQ(captions(parsed.columns), (Texts{"行号", "货号", "数量"}));
    EXPECT_EQ(captions(parsed.rows), (Texts{"甲", "乙"}));
}

TEST(FormatString, HasNoRowCaptionsWithoutASemicolon) {
    EXPECT_TRUE(parseFormatString("a|b").rows.empty());
}

TEST(FormatString, HasNoFieldsInAnEmptyText) {
    EXPECT_TRUE(parseFormatString("").columns.empty());
    EXPECT_TRUE(parseFormatString(";").columns.empty());
    EXPECT_TRUE(parseFormatString(";").rows.empty());
    EXPECT_TRUE(parseFormatString(";1|2").columns.empty());
    EXPECT_EQ(captions(parseFormatString(";1|2").rows), (Texts{"1", "2"}));
}

TEST(FormatString, CountsAnEmptyFieldBehindTheLastBar) {
    const auto parsed = parseFormatString("a|");
    ASSERT_EQ(parsed.columns.size(), 2u);
    EXPECT_FALSE(parsed.columns[0].empty);
    EXPECT_TRUE(parsed.columns[1].empty);
    EXPECT_EQ(parseFormatString("|||").columns.size(), 4u);
}

TEST(FormatString, TakesAMarkAsTheAlignmentAndNotAsText) {
    const auto parsed = parseFormatString("<左|^中|>右|无");
    EXPECT_EQ(parsed.columns[0].align, flexAlignLeftCenter);
    EXPECT_EQ(parsed.columns[1].align, flexAlignCenterCenter);
    EXPECT_EQ(parsed.columns[2].align, flexAlignRightCenter);
    EXPECT_EQ(parsed.columns[3].align, std::nullopt);
    EXPECT_EQ(captions(parsed.columns), (Texts{"左", "中", "右", "无"}));
}

TEST(FormatString, TakesOnlyTheFirstCharacterAsAMark) {
    const auto parsed = parseFormatString(" <a|<>b|a<");
    EXPECT_EQ(parsed.columns[0].align, std::nullopt);
    EXPECT_EQ(parsed.columns[0].caption, "<a");
    EXPECT_EQ(parsed.columns[1].align, flexAlignLeftCenter);
    EXPECT_EQ(parsed.columns[1].caption, ">b");
    EXPECT_EQ(parsed.columns[2].caption, "a<");
}

TEST(FormatString, TrimsTheCaptionAndKeepsTheBlanksForTheWidth) {
    const auto field = parseFormatString("> 数量  ").columns[0];
    EXPECT_EQ(field.caption, "数量");
    EXPECT_EQ(field.text, " 数量  ");
}

TEST(FormatString, GivesAFieldOfBlanksAWidthButNoCaption) {
    const auto field = parseFormatString("   |a").columns[0];
    EXPECT_FALSE(field.empty);
    EXPECT_EQ(field.text, "   ");
    EXPECT_EQ(field.caption, "");
}

TEST(FormatString, TakesAMarkAloneAsAnAlignmentWithoutText) {
    const auto field = parseFormatString("a|^|b").columns[1];
    EXPECT_FALSE(field.empty);
    EXPECT_EQ(field.align, flexAlignCenterCenter);
    EXPECT_EQ(field.text, "");
}

TEST(FormatString, TakesFurtherSemicolonsAsPartOfTheRowCaptions) {
    EXPECT_EQ(captions(parseFormatString("a;b;c|d").rows), (Texts{"b;c", "d"}));
}

TEST(FormatString, LosesTheFieldsOfColumnsThatAreCutOff) {
    EXPECT_EQ(cutFormatString("a|b|c", 2), "a|b");
    EXPECT_EQ(cutFormatString("a|b|c", 1), "a");
    EXPECT_EQ(cutFormatString("a|b|c", 0), "");
    EXPECT_EQ(cutFormatString("|||", 2), "|");
}

TEST(FormatString, StaysAsItIsWhenItHasNoMoreFieldsThanColumns) {
    EXPECT_EQ(cutFormatString("a|b|c", 3), "a|b|c");
    EXPECT_EQ(cutFormatString("a| b |c", 30), "a| b |c");
    EXPECT_EQ(cutFormatString("", 3), "");
    EXPECT_EQ(cutFormatString("", 0), "");
}

TEST(FormatString, KeepsItsRowCaptionsWhenColumnsAreCutOff) {
    EXPECT_EQ(cutFormatString("a|b|c;1|2", 2), "a|b;1|2");
    EXPECT_EQ(cutFormatString("a|b|c;1|2", 0), ";1|2");
    EXPECT_EQ(cutFormatString("a|b|c;1|2", 5), "a|b|c;1|2");
}
}  // namespace
}  // namespace kxVsGrid::cellgrid
