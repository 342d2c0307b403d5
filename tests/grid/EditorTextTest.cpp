// Text, TextTag, ValidTextData and IsValid, as the host uses them.
#include <cstdint>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class EditorOfTheHost : public PlacedGrid {};

TEST_F(EditorOfTheHost, HasTextAndTagWhileItIsOpen) {
    typeInto(1, 1, "typed");
    EXPECT_EQ(grid.Text(), "typed");
    grid.Text("品名");
    grid.TextTag("A01");
    EXPECT_EQ(desk.editor().text, "品名");
    EXPECT_EQ(desk.editor().tag, "A01");
    EXPECT_EQ(grid.Text(), "品名");
    EXPECT_EQ(grid.TextTag(), "A01");
    EXPECT_EQ(heard(), Nothing);
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(grid.ReadCell(1, 1, true), "品名");
    EXPECT_EQ(grid.ReadCell(1, 1), "A01");
}

TEST_F(EditorOfTheHost, HasThoseOfTheCurrentCellWhileItIsHidden) {
    grid.SetCell(3, 2, "text", "tag");
    EXPECT_EQ(grid.Text(), "");
    vs().Select(3, 2);
    EXPECT_EQ(grid.Text(), "text");
    EXPECT_EQ(grid.TextTag(), "tag");
    grid.SetCell(3, 2, "later", "latertag");
    EXPECT_EQ(grid.Text(), "later");
    EXPECT_EQ(grid.TextTag(), "latertag");
}

TEST_F(EditorOfTheHost, KeepsBytesThatAreNoText) {
    typeInto(1, 1, "typed");
    grid.Text(StrayBytes);
    grid.TextTag(StrayBytes);
    EXPECT_EQ(grid.Text(), StrayBytes);
    EXPECT_EQ(grid.TextTag(), StrayBytes);
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(grid.ReadCell(1, 1, true), StrayBytes);
    EXPECT_EQ(grid.ReadCell(1, 1), StrayBytes);
}

TEST_F(EditorOfTheHost, IsNotCutToTheLimitOfTheClerk) {
    column(1).iLimitLength(3);
    typeInto(1, 1, "abc");
    grid.Text("abcdefg");
    EXPECT_EQ(grid.Text(), "abcdefg");
    EXPECT_TRUE(grid.IsValid());
    EXPECT_EQ(text(1, 1), "abcdefg");
}

TEST_F(EditorOfTheHost, IsCheckedAndCommitted) {
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(EditorOfTheHost, IsCheckedByThePropertyInTheSameWay) {
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.IsValid());
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_FALSE(desk.editor().visible);
    column(1).iType(flexDTDouble);
    typeInto(1, 1, "2*");
    EXPECT_FALSE(grid.IsValid());
    EXPECT_TRUE(desk.editor().visible);
}

TEST_F(EditorOfTheHost, IsGoodWhileItIsHidden) {
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_TRUE(grid.IsValid());
    EXPECT_EQ(heard(), Nothing);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(EditorOfTheHost, IsHeldToTheRulesAlsoWhileItIsHidden) {
    column(1).sName("单价");
    column(1).i是否允许为空(i字段不能为零);
    EXPECT_FALSE(grid.IsValid());
    grid.TextTag("0.00");
    EXPECT_FALSE(grid.IsValid());
    grid.TextTag("0.01");
    EXPECT_TRUE(grid.IsValid());
    EXPECT_EQ(boxes(), (Lines{"提示：|64|单价不能为零!", "提示：|64|单价不能为零!"}));
}

TEST_F(EditorOfTheHost, IsNotCommittedAgainFromInsideItsCommit) {
    Lines answers;
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) {
        answers.push_back(shown(grid.ValidTextData()));
        answers.push_back(shown(grid.IsValid()));
    });
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(answers, (Lines{"True", "True"}));
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
}
}  // namespace
}  // namespace kxVsGrid::testing
