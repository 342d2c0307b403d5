// The control's table of its own members, access by name, and the record of a cell.
#include <cstdint>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "kit/PlacedGrid.h"
#include "kxVsGrid/VsNode.h"

namespace kxVsGrid::testing {
namespace {

using Access = Member::Access;
using Type = Variant::Type;

struct Entry {
    const char* name;
    Access access;
    Type type;
    int arguments;
};

const std::vector<Entry>& interfaceTable() {
    static const std::vector<Entry> table = {
        {"ValidTextData", Access::Method, Type::Empty, 0},
        {"Text", Access::GetPut, Type::Text, 0},
        {"TextTag", Access::GetPut, Type::Text, 0},
        {"SetCell", Access::Method, Type::Empty, 4},
        {"VsCtrl", Access::Get, Type::Empty, 1},
        {"bIsDirty", Access::Get, Type::Boolean, 0},
        {"FormatString", Access::GetPut, Type::Text, 0},
        {"Editable", Access::GetPut, Type::Boolean, 0},
        {"SumRow", Access::GetPut, Type::Boolean, 0},
        {"FixedCols", Access::GetPut, Type::Int32, 0},
        {"FixedRows", Access::GetPut, Type::Int32, 0},
        {"Col", Access::GetPut, Type::Int32, 0},
        {"ColHidden", Access::GetPut, Type::Boolean, 1},
        {"ColFormat", Access::GetPut, Type::Text, 1},
        {"Cols", Access::GetPut, Type::Int32, 0},
        {"ColWidth", Access::GetPut, Type::Int32, 1},
        {"Row", Access::GetPut, Type::Int32, 0},
        {"RowHeight", Access::GetPut, Type::Int32, 1},
        {"SumRowHeight", Access::GetPut, Type::Int32, 0},
        {"Rows", Access::GetPut, Type::Int32, 0},
        {"SetVsControl", Access::GetPut, Type::Empty, 0},
        {"BackColor", Access::GetPut, Type::Int32, 0},
        {"BackColorBkg", Access::GetPut, Type::Int32, 0},
        {"BackColorFixed", Access::GetPut, Type::Int32, 0},
        {"ForeColor", Access::GetPut, Type::Int32, 0},
        {"ForeColorFixed", Access::GetPut, Type::Int32, 0},
        {"ColAlignment", Access::GetPut, Type::Int16, 1},
        {"MergeCells", Access::GetPut, Type::Int32, 0},
        {"MergeCol", Access::GetPut, Type::Boolean, 1},
        {"MergeRow", Access::GetPut, Type::Boolean, 1},
        {"Grid", Access::Get, Type::Empty, 0},
        {"Grid_Sum", Access::Get, Type::Empty, 0},
        {"ReDraw", Access::GetPut, Type::Boolean, 0},
        {"ReadCell", Access::Method, Type::Empty, 3},
        {"IsActive", Access::Get, Type::Boolean, 0},
        {"IsValid", Access::Get, Type::Boolean, 0},
        {"bIsShowZero", Access::GetPut, Type::Boolean, 0},
        {"Clear", Access::Method, Type::Empty, 0},
        {"Appearance", Access::GetPut, Type::Int32, 0},
        {"ReadSum", Access::Method, Type::Empty, 1},
        {"VsSumCellBackColor", Access::Put, Type::Int32, 0},
    };
    return table;
}

class Members : public PlacedGrid {};

TEST_F(Members, AreListedInTheOrderOfTheInterface) {
    const auto listed = kxGrid::members();
    ASSERT_EQ(listed.size(), interfaceTable().size());
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const Entry& want = interfaceTable()[i];
        EXPECT_EQ(listed[i].name, want.name);
        EXPECT_EQ(listed[i].access, want.access) << want.name;
        EXPECT_EQ(listed[i].number, static_cast<int>(i) + 1) << want.name;
        EXPECT_EQ(listed[i].arguments, want.arguments) << want.name;
    }
}

TEST_F(Members, SayWhatTheyAnswer) {
    for (const Entry& want : interfaceTable())
        for (const Member& member : kxGrid::members())
            if (member.name == want.name) {
                EXPECT_EQ(member.type, want.type) << want.name;
            }
}

TEST_F(Members, AnswerByNameInTheTypeThatTheyName) {
    for (const Member& member : kxGrid::members()) {
        const bool readable = member.access == Access::GetPut || member.access == Access::Get;
        if (!readable || member.arguments != 0 || member.type == Type::Empty) continue;
        EXPECT_EQ(grid.Get(member.name).type(), member.type) << member.name;
    }
}

TEST_F(Members, TakeByNameWhatTheyAnswer) {
    for (const Member& member : kxGrid::members()) {
        if (member.access != Access::GetPut || member.arguments != 0 || member.type == Type::Empty) continue;
        const Variant value = grid.Get(member.name);
        EXPECT_NO_THROW(grid.Put(member.name, value)) << member.name;
        EXPECT_EQ(grid.Get(member.name), value) << member.name;
    }
}

TEST_F(Members, DoByNameWhatTheyDoAsMembers) {
    grid.Put("Rows", "2");
    EXPECT_EQ(grid.Rows(), 6);
    grid.Put("Cols", 4.0);
    EXPECT_EQ(grid.Cols(), 4);
    grid.Put("FormatString", "a|b");
    grid.Put("Editable", "false");
    EXPECT_FALSE(grid.Editable());
    grid.Put("bIsShowZero", -1);
    EXPECT_TRUE(grid.bIsShowZero());
    EXPECT_EQ(reported(), (Lines{"Rows", "Cols", "FormatString", "Editable", "ShowZero"}));
    grid.Put("ReDraw", true);
    EXPECT_EQ(grid.ReadSum(1), "合计");
    grid.Put("VsSumCellBackColor", 0x0000FF);
    EXPECT_EQ(sum().CellBackColor(0, 1), color(0x0000FF));
    grid.Put("Text", "text");
    EXPECT_EQ(grid.Text(), "text");
    EXPECT_EQ(grid.Get("Rows"), Variant(6));
    EXPECT_EQ(grid.Get("IsValid"), Variant(true));
}

TEST_F(Members, KeepTheBitsOfSystemColours) {
    grid.BackColor(0x80000005);
    const Variant value = grid.Get("BackColor");
    grid.BackColor(0);
    grid.Put("BackColor", value);
    EXPECT_EQ(grid.BackColor(), 0x80000005u);
}

TEST_F(Members, RefuseNamesAndAccessesThatThereAreNot) {
    EXPECT_THROW(grid.Get("Nothing"), GridError);
    EXPECT_THROW(grid.Put("Nothing", 1), GridError);
    EXPECT_THROW(grid.Get("rows"), GridError);
    EXPECT_THROW(grid.Put("bIsDirty", true), GridError);
    EXPECT_THROW(grid.Put("IsActive", true), GridError);
    EXPECT_THROW(grid.Get("VsSumCellBackColor"), GridError);
    EXPECT_THROW(grid.Get("ColWidth"), GridError);
    EXPECT_THROW(grid.Put("ColWidth", 1), GridError);
    EXPECT_THROW(grid.Get("Clear"), GridError);
}

TEST_F(Members, RefuseValuesThatDoNotFitAndKeepTheirOwn) {
    EXPECT_THROW(grid.Put("Rows", "many"), ConversionError);
    EXPECT_THROW(grid.Put("Cols", 3e9), ConversionError);
    EXPECT_THROW(grid.Put("Editable", "maybe"), ConversionError);
    EXPECT_THROW(grid.Put("Text", Variant::null()), ConversionError);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_TRUE(grid.Editable());
    EXPECT_EQ(desk.reports(), Nothing);
}

TEST(CellRecord, HasItsFourFieldsInOrder) {
    const VsNode fresh;
    EXPECT_EQ(fresh.Row, 0);
    EXPECT_EQ(fresh.Col, 0);
    EXPECT_EQ(fresh.DisplayText, "");
    EXPECT_EQ(fresh.Tag, "");
    const VsNode node{3, 4, "品名", "A01"};
    EXPECT_EQ(node.Row, 3);
    EXPECT_EQ(node.Col, 4);
    EXPECT_EQ(node.DisplayText, "品名");
    EXPECT_EQ(node.Tag, "A01");
    EXPECT_TRUE((std::is_same_v<decltype(VsNode::Row), std::int16_t>));
    EXPECT_TRUE((std::is_same_v<decltype(VsNode::Col), std::int16_t>));
}

TEST(EnumerationMembers, HaveTheNumbersThatAreStored) {
    EXPECT_EQ(
        (std::vector<int>{flexAlignLeftTop, flexAlignLeftCenter, flexAlignLeftBottom, flexAlignCenterTop,
                          flexAlignCenterCenter, flexAlignCenterBottom, flexAlignRightTop,
                          flexAlignRightCenter, flexAlignRightBottom, flexAlignGeneral}),
        (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ((std::vector<int>{flexMergeNever, flexMergeFixedOnly}), (std::vector<int>{0, 5}));
    EXPECT_EQ((std::vector<int>{flexDTEmpty, flexDTDouble, flexDTDate, flexDTString, flexDTBoolean}),
              (std::vector<int>{0, 5, 7, 8, 11}));
    EXPECT_EQ((std::vector<int>{ih通用型, ih日期型, ih特殊型, ih常量型}), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ((std::vector<int>{ij编码型, ij日期型, ij其他类型}), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ((std::vector<int>{i字段不能为空, i字段不能为零}), (std::vector<int>{1, 2}));
    EXPECT_EQ((std::vector<int>{iText记Code, iText记Name}), (std::vector<int>{0, 1}));
    EXPECT_EQ((std::vector<int>{i金额型, i数量型, i单价型}), (std::vector<int>{8, 9, 10}));
}
}  // namespace
}  // namespace kxVsGrid::testing
