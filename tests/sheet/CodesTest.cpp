// Sources of codes by themselves.
#include "sheet/CodeSheet.h"

namespace kxVsGrid::testing {
namespace {

std::string nameFound(const Codes<Goods>& codes, std::string_view typed) {
    const std::optional<Goods> found = codes.find(typed);
    return found ? found->name : std::string();
}

TEST(CodesTest, FindsARecordByItsWholeCode) {
    const Codes<Goods> codes = Codes<Goods>(someGoods(), &Goods::code).name(&Goods::name);
    EXPECT_EQ(nameFound(codes, "1002"), "无缝钢管");
    EXPECT_EQ(nameFound(codes, " 1002　"), "无缝钢管");
    EXPECT_EQ(nameFound(codes, "１００２"), "无缝钢管");
    EXPECT_EQ(nameFound(codes, "100"), "");
    EXPECT_EQ(nameFound(codes, "无缝钢管"), "");
    EXPECT_EQ(nameFound(codes, ""), "");
}

TEST(CodesTest, FindsACodeOfFullWidthBeforeAPlainOne) {
    const Codes<Goods> codes(
        {{"A（1）", "wide", "", "", 0}, {"A(1)", "plain", "", "", 0}, {"A(1)", "second", "", "", 0}},
        &Goods::code);
    EXPECT_EQ(nameFound(codes, "A（1）"), "wide");
    EXPECT_EQ(nameFound(codes, "A(1)"), "plain");
    EXPECT_EQ(nameFound(codes, "A（１）"), "plain");
}

TEST(CodesTest, FindsANumberHoweverItIsWritten) {
    struct Account {
        int number = 0;
    };
    const Codes<Account> codes({{7}, {1001}}, &Account::number);
    EXPECT_TRUE(codes.find("007").has_value());
    EXPECT_TRUE(codes.find("１００１").has_value());
    EXPECT_FALSE(codes.find("x").has_value());
}

TEST(CodesTest, FindsAnotherCodeOfTheRecordWholeAndExactlyAfterAllCodes) {
    struct Item {
        std::string code, bar;
    };
    const auto codes = Codes<Item>({{"1", "6901"}, {"2", "69010"}, {"3", ""}, {"6901", "77"}}, &Item::code)
                           .alias(&Item::bar);
    EXPECT_EQ(codes.find("69010").value().code, "2");
    EXPECT_EQ(codes.find("6901").value().code, "6901") << "codes come first";
    EXPECT_EQ(codes.find("７７").value().code, "6901");
    EXPECT_FALSE(codes.find("690"));
    EXPECT_FALSE(codes.find(""));
}

TEST(CodesTest, SharesWhatIsReplacedWithItsCopies) {
    Codes<Goods> codes(someGoods(), &Goods::code);
    const Codes<Goods> copy = codes;
    const auto before = copy.source()->find("1001");
    codes.replace({{"9", "nine", "", "", 0}});
    EXPECT_EQ(nameFound(copy, "1001"), "");
    EXPECT_EQ(nameFound(copy, "9"), "nine");
    EXPECT_EQ(copy.source()->nameOf(before.get()), "1001") << "what was found stays";
}

TEST(CodesTest, AsksWithPlainSignsOnlyWhereThereIsNoneAsTyped) {
    std::vector<std::string> asked;
    const auto codes = Codes<Goods>::asking(
        [&](std::string_view typed) -> std::optional<Goods> {
            asked.emplace_back(typed);
            if (typed == "1") return Goods{"1", "one", "", "", 0};
            return std::nullopt;
        },
        &Goods::code);
    EXPECT_EQ(nameFound(codes, " １"), "one");
    EXPECT_EQ(asked, (std::vector<std::string>{"１", "1"}));
    EXPECT_EQ(nameFound(codes, "1"), "one");
    EXPECT_EQ(asked.size(), 3u);
    EXPECT_FALSE(codes.source()->listed());
    EXPECT_FALSE(codes.source()->suggestions());
}

TEST_F(CodeSheet, ListsAndSuggestsWhatFunctionsAnswer) {
    SuggestionAnswer later;
    load(asking()
             .list([] {
                 std::vector<Goods> all = someGoods();
                 all.pop_back();
                 return all;
             })
             .suggest([&](const SuggestionRequest& request) { later = request.answer; }));
    at(1, Code);
    desk.type("x");
    EXPECT_TRUE(desk.suggestions().texts.empty());
    later({{"1003", {}, "六角螺母"}});
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"1003"}));
    desk.press(Key::Enter);
    EXPECT_EQ(shown(1), "1003 六角螺母 1.25");
    std::int32_t rows = 0;
    desk.onDialog([&](headless::LookupDialog& dialog) { rows = dialog.grid().Rows() - 1; });
    at(1, Code);
    desk.press(Key::F2);
    EXPECT_EQ(rows, 2);
}

TEST_F(CodeSheet, ListsRecordsThatCannotBeChosen) {
    load(table().selectable([](const Goods& goods) { return goods.code != "1001"; }, "不是末级科目"));
    desk.onDialog([&](headless::LookupDialog& dialog) {
        dialog.clickRow(1);
        dialog.Ok();
    });
    at(1, Code);
    desk.press(Key::F2).press(Key::Enter);
    EXPECT_EQ(desk.tips().back(), "不是末级科目");
    EXPECT_TRUE(desk.editor().visible);
}
}  // namespace
}  // namespace kxVsGrid::testing
