// The column definition: defaults, the three normalised texts, and the table of members.
#include "kxVsGrid/cVsControl.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace kxVsGrid {
namespace {

using Type = Variant::Type;

struct Expected {
    const char* name;
    Variant fresh;
};

// Every property in the order of the interface with what a fresh object answers, of the exact type.
const std::vector<Expected>& properties() {
    static const std::vector<Expected> all = {
        {"iColAlignment", std::int16_t{1}},
        {"iType", 8},
        {"bIsEditable", true},
        {"bIsVisible", true},
        {"sName", ""},
        {"iLimitLength", std::int16_t{0}},
        {"b是否提供帮助", false},
        {"i帮助类型", 0},
        {"sHelp_Code", ""},
        {"i帮助返回值显示类型", 0},
        {"i是否允许为空", 0},
        {"i字段有效性判断类型", 0},
        {"s文本框对应编码字段", ""},
        {"s文本框对应名称字段", ""},
        {"s有效性判断基础", ""},
        {"s错误提示信息", ""},
        {"i有效性判断", std::int16_t{0}},
        {"b是否合计数据", false},
        {"b是否编辑多行", false},
        {"HelpWidth", 0},
        {"HelpHeight", 0},
        {"b是否设列颜色", false},
        {"d列前景色", 0.0},
        {"d列背景色", 0.0},
        {"bIsPrint", true},
        {"sCellInput", ""},
        {"sDefaultText_Code", ""},
        {"sDefaultText_Name", ""},
    };
    return all;
}

// Another value of the type, which no rule changes.
Variant another(const Variant& fresh) {
    switch (fresh.type()) {
        case Type::Boolean:
            return !fresh.toBoolean();
        case Type::Int16:
            return std::int16_t{-32768};
        case Type::Int32:
            return -2147483647;
        case Type::Double:
            return 2147483648.5;
        default:
            return "3,甲";
    }
}

TEST(ColumnDefinition, HasItsDefaultsWhenFresh) {
    const cVsControl column;
    for (const auto& [name, fresh] : properties()) EXPECT_EQ(column.Get(name), fresh) << name;
}

TEST(ColumnDefinition, IsVisibleEditableAndPrintedWhenFresh) {
    const cVsControl column;
    EXPECT_TRUE(column.bIsVisible());
    EXPECT_TRUE(column.bIsEditable());
    EXPECT_TRUE(column.bIsPrint());
    EXPECT_EQ(column.iType(), flexDTString);
    EXPECT_EQ(column.iColAlignment(), flexAlignLeftCenter);
    EXPECT_EQ(column.i帮助类型(), ih通用型);
    EXPECT_EQ(column.i帮助返回值显示类型(), iText记Code);
    EXPECT_EQ(column.i是否允许为空(), 0);
    EXPECT_EQ(column.i字段有效性判断类型(), 0);
}

TEST(ColumnDefinition, ListsItsPropertiesInTheOrderOfTheInterface) {
    const auto members = cVsControl::members();
    ASSERT_EQ(members.size(), properties().size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        EXPECT_EQ(members[i].name, properties()[i].name);
        EXPECT_EQ(members[i].number, static_cast<int>(i) + 1);
        EXPECT_EQ(members[i].type, properties()[i].fresh.type()) << members[i].name;
        EXPECT_EQ(members[i].access, Member::Access::GetPut) << members[i].name;
        EXPECT_EQ(members[i].arguments, 0) << members[i].name;
    }
}

TEST(ColumnDefinition, KeepsEveryPropertyApart) {
    for (const auto& [changed, fresh] : properties()) {
        cVsControl column;
        column.Put(changed, another(fresh));
        for (const auto& [name, value] : properties())
            EXPECT_EQ(column.Get(name), name == changed ? another(value) : value)
                << name << " after " << changed;
    }
}

TEST(ColumnDefinition, ReachesTheSamePropertyByNameAndByItsMember) {
    cVsControl column;
    column.Put("sName", "单价");
    column.Put("iType", 5);
    column.Put("b是否合计数据", true);
    column.Put("d列前景色", 255.0);
    EXPECT_EQ(column.sName(), "单价");
    EXPECT_EQ(column.iType(), flexDTDouble);
    EXPECT_TRUE(column.b是否合计数据());
    EXPECT_EQ(column.d列前景色(), 255.0);
    column.iLimitLength(12);
    column.i字段有效性判断类型(ij日期型);
    EXPECT_EQ(column.Get("iLimitLength"), Variant(std::int16_t{12}));
    EXPECT_EQ(column.Get("i字段有效性判断类型"), Variant(2));
}

TEST(ColumnDefinition, ConvertsWhatIsPutByName) {
    cVsControl column;
    column.Put("bIsEditable", "false");
    EXPECT_FALSE(column.bIsEditable());
    column.Put("bIsPrint", 0);
    EXPECT_FALSE(column.bIsPrint());
    column.Put("iLimitLength", "2.5");
    EXPECT_EQ(column.iLimitLength(), 2);
    column.Put("HelpWidth", true);
    EXPECT_EQ(column.HelpWidth(), -1);
    column.Put("iColAlignment", "7");
    EXPECT_EQ(column.iColAlignment(), flexAlignRightCenter);
    column.Put("d列背景色", "1.5");
    EXPECT_EQ(column.d列背景色(), 1.5);
    column.Put("sName", 12);
    EXPECT_EQ(column.sName(), "12");
    column.Put("sName", Variant());
    EXPECT_EQ(column.sName(), "");
}

TEST(ColumnDefinition, KeepsItsValueWhenWhatIsPutCannotBeConverted) {
    cVsControl column;
    column.iLimitLength(9);
    EXPECT_THROW(column.Put("iLimitLength", "many"), ConversionError);
    EXPECT_THROW(column.Put("iLimitLength", 40000), ConversionError);
    EXPECT_THROW(column.Put("iLimitLength", Variant::null()), ConversionError);
    EXPECT_EQ(column.iLimitLength(), 9);
    EXPECT_THROW(column.Put("sName", Variant::null()), ConversionError);
    EXPECT_THROW(column.Put("bIsVisible", ""), ConversionError);
    EXPECT_TRUE(column.bIsVisible());
}

TEST(ColumnDefinition, RefusesNamesOfNoProperty) {
    cVsControl column;
    for (const char* name : {"", "sname", "SName", "sName ", "i帮助", "members"}) {
        EXPECT_THROW(column.Get(name), GridError) << name;
        EXPECT_THROW(column.Put(name, 1), GridError) << name;
    }
    try {
        column.Get("sPrice");
        FAIL() << "no error";
    } catch (const GridError& error) {
        EXPECT_NE(std::string(error.what()).find("sPrice"), std::string::npos) << error.what();
    }
}

TEST(ColumnDefinition, KeepsNumbersOfNoEnumerationMember) {
    cVsControl column;
    column.iType(static_cast<mEmDataType>(1));
    column.i是否允许为空(static_cast<gEmNotAllowEmptyType>(-1));
    column.iColAlignment(static_cast<mEmflexAlign>(-7));
    column.Put("i帮助类型", 2147483647);
    EXPECT_EQ(column.iType(), 1);
    EXPECT_EQ(column.i是否允许为空(), -1);
    EXPECT_EQ(column.iColAlignment(), -7);
    EXPECT_EQ(column.i帮助类型(), 2147483647);
    column.iLimitLength(std::numeric_limits<std::int16_t>::min());
    EXPECT_EQ(column.iLimitLength(), -32768);
}

TEST(ColumnDefinition, KeepsSystemColoursInItsDoubles) {
    cVsControl column;
    column.d列前景色(2147483656.0);  // 0x80000008 unsigned
    column.d列背景色(-2147483643.0);
    EXPECT_EQ(column.d列前景色(), 2147483656.0);
    EXPECT_EQ(column.d列背景色(), -2147483643.0);
}

TEST(ColumnCellInput, IsTrimmedAndLowered) {
    cVsControl column;
    column.sCellInput(" Next ");
    EXPECT_EQ(column.sCellInput(), "next");
    column.sCellInput("  R+1, C  ");
    EXPECT_EQ(column.sCellInput(), "r+1, c");
    column.sCellInput("");
    EXPECT_EQ(column.sCellInput(), "");
    column.sCellInput("   ");
    EXPECT_EQ(column.sCellInput(), "");
    column.sCellInput("\tRow");
    EXPECT_EQ(column.sCellInput(), "\trow");
}

TEST(ColumnCellInput, ShortensRowAndCol) {
    cVsControl column;
    for (const char* text : {"row", "ROW", " Row ", "  row", "r", "R"}) {
        column.sCellInput(text);
        EXPECT_EQ(column.sCellInput(), "r") << text;
    }
    for (const char* text : {"col", "COL", " Col ", "c", "C"}) {
        column.sCellInput(text);
        EXPECT_EQ(column.sCellInput(), "c") << text;
    }
    for (const char* text : {"rows", "row,col", "column", "r ow"}) {
        column.sCellInput(text);
        EXPECT_EQ(column.sCellInput(), text);
    }
}

TEST(ColumnCellInput, IsNormalisedAlsoWhenPutByName) {
    cVsControl column;
    column.Put("sCellInput", " COL");
    EXPECT_EQ(column.Get("sCellInput"), Variant("c"));
}

TEST(ColumnDefaultTexts, AreTrimmedAndKeepTheirCase) {
    cVsControl column;
    column.sDefaultText_Name("  [R-1, C] ");
    EXPECT_EQ(column.sDefaultText_Name(), "[R-1, C]");
    column.sDefaultText_Code(" A001 ");
    EXPECT_EQ(column.sDefaultText_Code(), "A001");
    column.sDefaultText_Code("  ");
    EXPECT_EQ(column.sDefaultText_Code(), "");
    column.Put("sDefaultText_Name", " 甲 乙 ");
    EXPECT_EQ(column.sDefaultText_Name(), "甲 乙");
}

TEST(ColumnTexts, AreKeptAsTheyAreOtherwise) {
    cVsControl column;
    for (const auto& [name, fresh] : properties()) {
        const std::string property = name;
        if (fresh.type() != Type::Text || property == "sCellInput" || property.starts_with("sDefaultText_"))
            continue;
        column.Put(name, "  Ab \n 合 ");
        EXPECT_EQ(column.Get(name), Variant("  Ab \n 合 ")) << name;
    }
}

TEST(ColumnDefinition, MayBePutFromItsOwnText) {
    cVsControl column;
    column.sDefaultText_Code("code of some length, beyond what a text holds inline");
    column.sDefaultText_Code(std::string_view(column.sDefaultText_Code()).substr(8));
    EXPECT_EQ(column.sDefaultText_Code(), "some length, beyond what a text holds inline");
}

}  // namespace
}  // namespace kxVsGrid
