// The builder of a code lookup's tables: what stands where, and that the help takes them as they come.
#include "kxVsGrid/HelpTable.h"

#include "dialogs/HelpTest.h"

namespace kxVsGrid::testing {
namespace {

namespace At = HelpPosition;

TEST(HelpTableTables, GridCodeHoldsTheCaptionOfTheList) {
    const Variant code = HelpTable("货号").field("code", "货号").Grid_code();
    ASSERT_TRUE(code.isArray());
    EXPECT_EQ(code.table()->dimensions(), 1);
    EXPECT_EQ(code.table()->lower(), 0);
    EXPECT_NE(code.table()->upper(), 0);
    EXPECT_EQ(code.table()->at(1), Variant("货号"));
}

TEST(HelpTableTables, GridInfoHoldsTheSettingsOfTheHelpInEntryZero) {
    const Variant info = HelpTable("货号")
                             .field("code", "货号")
                             .field("name", "品名")
                             .result("code", "name")
                             .search({"name", "code"})
                             .editable("Goods.Editor")
                             .GridInfo();
    const Table& table = *info.table();
    EXPECT_EQ(table.dimensions(), 2);
    EXPECT_EQ(table.at(0, At::CodeField).toText(), "code");
    EXPECT_EQ(table.at(0, At::NameField).toText(), "name");
    EXPECT_EQ(table.at(0, At::SearchFields).toText(), "name;code");
    EXPECT_EQ(table.at(0, At::EditComponent).toText(), "Goods.Editor");
    EXPECT_TRUE(table.at(0, At::Editable).toBoolean());
}

TEST(HelpTableTables, GridInfoHoldsOneEntryPerField) {
    const Variant info = HelpTable("货号")
                             .field("code", "货号", 1100)
                             .field("price", "单价", 900, HelpKind::Number, 3, false)
                             .alignment(flexAlignCenterCenter)
                             .field("note", "备注")
                             .hidden()
                             .GridInfo();
    const Table& table = *info.table();
    EXPECT_EQ(table.at(0, At::FieldName).toText(), "code");
    EXPECT_EQ(table.at(0, At::Header).toText(), "货号");
    EXPECT_EQ(table.at(0, At::Width).toInt32(), 1100);
    EXPECT_EQ(table.at(1, At::FieldName).toText(), "price");
    EXPECT_EQ(table.at(1, At::Kind).toInt32(), 5);
    EXPECT_EQ(table.at(1, At::Decimals).toInt32(), 3);
    EXPECT_FALSE(table.at(1, At::Thousands).toBoolean());
    EXPECT_EQ(table.at(1, At::Alignment).toInt32(), flexAlignCenterCenter);
    EXPECT_FALSE(table.at(2, At::Visible).toBoolean());
    EXPECT_TRUE(table.at(1, At::Visible).toBoolean());
}

TEST(HelpTableTables, GridDataHoldsTheRecordsFromBoundOne) {
    HelpTable table("货号");
    table.field("code", "货号").field("name", "品名");
    table.row({"A", 12}).row({"B"}).row({}).row({"C", "c", "surplus"});
    const Variant data = table.GridData();
    const Table& records = *data.table();
    EXPECT_EQ(records.lower(), 1);
    EXPECT_EQ(records.upper(), 4);
    const std::int32_t first = records.lower(2);
    EXPECT_EQ(records.at(1, first), Variant("A"));
    EXPECT_EQ(records.at(1, first + 1), Variant(12));
    EXPECT_TRUE(records.at(2, first + 1).isEmpty());
    EXPECT_TRUE(records.at(3, first).isEmpty());
    EXPECT_EQ(records.at(4, first + 1), Variant("c"));
    EXPECT_EQ(records.upper(2), first + 1);
}

TEST(HelpTableTables, AnswerFillsAllThree) {
    HelpTable table("货号");
    table.field("code", "货号").row({"A"});
    Variant code;
    Variant info;
    Variant data;
    table.answer(code, info, data);
    EXPECT_EQ(code, table.Grid_code());
    EXPECT_EQ(info, table.GridInfo());
    EXPECT_EQ(data, table.GridData());
}

TEST(HelpTableTables, APropertyOfNoFieldIsAnError) {
    EXPECT_THROW(HelpTable("货号").hidden(), std::logic_error);
    EXPECT_THROW(HelpTable("货号").alignment(flexAlignLeftCenter), std::logic_error);
}

class HelpTables : public HelpTest {
  protected:
    HelpTables() { offer(ih通用型, "goods"); }
};

TEST_F(HelpTables, OneRecordOfOneFieldCountsAsPresent) {
    answer(HelpTable("货号").field("code", "货号").row({"A"}));
    help<LookupDialog>("", [](LookupDialog& d) {
        EXPECT_EQ(d.grid().Cols(), 1);
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"A"}));
        keys(d, {Key::Down, Key::Enter});
    });
    EXPECT_EQ(boxes(), std::vector<MessageBox>{});
    EXPECT_EQ(inEditor(), (Pair{"A", "A"}));
}

TEST_F(HelpTables, NoRecordsAreReportedWithTheCaption) {
    answer(HelpTable("货号").field("code", "货号"));
    openWith("");
    desk.press(Key::F2);
    EXPECT_EQ(boxes(), helpBox("当前的货号数据为空,请先输入"));
    EXPECT_TRUE(desk.dialogs().empty());
}

TEST_F(HelpTables, WithoutAnyFieldTheDefinitionIsMissing) {
    answer(HelpTable("货号").row({"A"}));
    openWith("");
    desk.press(Key::F2);
    EXPECT_EQ(boxes(), helpBox("当前的帮助编码网络参数错误，或找不到当前的网格"));
}

TEST_F(HelpTables, ShowFieldsInOrderAsTheyWereDescribed) {
    HelpTable table("货号");
    table.field("code", "货号", 1100)
        .field("price", "单价", 900, HelpKind::Number, 3, false)
        .field("total", "金额", 900, HelpKind::Number)
        .field("pieces", "件", 900, HelpKind::Quantity)
        .field("unit", "价", 900, HelpKind::Price)
        .field("day", "日期", 1200, HelpKind::Date)
        .field("note", "备注")
        .hidden();
    table.row({"A", 1234.5, 1234.5, 7, 7, "2011/5/6", "x"});
    answer(table);
    help<LookupDialog>("", [](LookupDialog& d) {
        EXPECT_EQ(rowsOf(d.grid()), (Lines{"A|1234.500|1,234.50|07|0007|2011-05-06|x"}));
        EXPECT_EQ(d.grid().ColWidth(0), 1100);
        EXPECT_TRUE(d.grid().ColHidden(6));
        EXPECT_FALSE(d.editShown());
    });
}

TEST_F(HelpTables, WithoutResultAndSearchTheFirstFieldIsAll) {
    HelpTable table("货号");
    table.field("code", "货号").field("name", "品名").row({"A", "a"}).row({"B", "b"});
    answer(table);
    help<LookupDialog>("", [](LookupDialog& d) {
        d.CodeText("b");
        EXPECT_EQ(d.grid().Row(), 0);
        d.CodeText("B");
        EXPECT_EQ(d.grid().Row(), 2);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"B", "B"}));
}

TEST_F(HelpTables, WithoutSearchFieldsTheNameIsSearched) {
    HelpTable table("货号");
    table.field("code", "货号").field("name", "品名").result("code", "name").row({"A", "b"}).row({"B", "a"});
    answer(table);
    help<LookupDialog>("", [](LookupDialog& d) {
        d.CodeText("a");
        EXPECT_EQ(d.grid().Row(), 2);
        d.CodeText("A");
        EXPECT_EQ(d.grid().Row(), 2);
    });
}
}  // namespace
}  // namespace kxVsGrid::testing
