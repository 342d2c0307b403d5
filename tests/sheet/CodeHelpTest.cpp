// F2 and suggestions in columns of codes whose records are asked for: lists, their edit button, lists of the host.
#include "sheet/CodeSheet.h"

namespace kxVsGrid::testing {
namespace {

class CodeHelpTest : public CodeSheet {
  protected:
    CodeHelpTest() {
        sheet.failed([this](const std::string& why) { failures.push_back(why); });
    }
    Codes<Goods> listed() {
        return asking().also(&Goods::initials).list([this] {
            ++reads;
            if (down) throw std::runtime_error("数据库连接中断");
            return stock;
        });
    }
    void openHelp() {
        at(1, Code);
        desk.type(" ").press(Key::F2);
    }

    std::vector<Goods> stock = someGoods();
    std::vector<std::string> failures;
    int reads = 0;
};

TEST_F(CodeHelpTest, SuggestsFromTheListWhichIsReadOnceAndAgainAfterAChange) {
    Codes<Goods> codes = listed().note([](const Goods& goods) { return goods.name + " " + goods.size; });
    load(codes);
    EXPECT_EQ(reads, 0);
    at(1, Code);
    desk.type("wf");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"1002"}));
    desk.press(Key::Escape).press(Key::Escape).type("100");
    EXPECT_EQ(desk.suggestions().texts.size(), 3u);
    EXPECT_EQ(reads, 1);
    stock.push_back({"1004", "垫圈", "dq", "", 1});
    codes.changed();
    desk.press(Key::Escape).press(Key::Escape).type("dq");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"1004"}));
    EXPECT_EQ(reads, 2);
}

TEST_F(CodeHelpTest, SuggestsNothingWhileTheListThrowsAndAsksAgainWithTheNextText) {
    load(listed());
    down = true;
    at(1, Code);
    desk.type("l");
    EXPECT_TRUE(desk.suggestions().texts.empty());
    EXPECT_TRUE(failures.empty());
    down = false;
    desk.type("j");
    EXPECT_EQ(desk.suggestions().texts.size(), 2u);
    EXPECT_EQ(reads, 2);
}

TEST_F(CodeHelpTest, TellsWhyThereIsNoList) {
    load(listed());
    down = true;
    openHelp();
    EXPECT_EQ(failures, std::vector<std::string>{"数据库连接中断"});
    EXPECT_EQ(desk.messages().size(), 1u);
    EXPECT_TRUE(desk.editor().visible);
}

TEST_F(CodeHelpTest, TellsWhyACodeCannotBeLookedUp) {
    load(listed());
    down = true;
    type(1, Code, "1001");
    EXPECT_EQ(failures, std::vector<std::string>{"货号 1001：数据库连接中断"});
    EXPECT_EQ(text(1, Code), "1001");
}

TEST_F(CodeHelpTest, TellsThatAColumnHasNone) {
    load(listed());
    at(1, Quantity);
    desk.type("1").press(Key::F2);
    EXPECT_EQ(failures, std::vector<std::string>{"这一栏没有帮助"});
    EXPECT_EQ(desk.editor().text, "1");
    EXPECT_FALSE(desk.editor().helpButton);
}

TEST_F(CodeHelpTest, HasATitleAWidthAndNumbersWithTheirDecimals) {
    load(listed().title("商品", 9600).field("单价", &Goods::price, 1300, 2));
    std::string price;
    desk.onDialog(
        [&](headless::LookupDialog& list) { price = list.grid().DisplayText(1, list.grid().Cols() - 1); });
    openHelp();
    EXPECT_EQ(price, "3.50");
    EXPECT_EQ(desk.dialogs().at(0).width, 9600);
    desk.press(Key::Escape);
    stock.clear();
    openHelp();
    EXPECT_EQ(desk.messages().at(0).text, "当前的商品数据为空,请先输入");
}

TEST_F(CodeHelpTest, IsEditedAndHighlightsWhatWasStored) {
    std::vector<std::string> edited;
    load(listed().edit([&](const std::string& code) -> std::optional<Goods> {
        edited.push_back(code);
        stock.push_back({"1000", "垫圈", "dq", "", 1});
        return stock.back();
    }));
    at(1, Code);
    desk.type("dq");
    EXPECT_TRUE(desk.suggestions().texts.empty());
    desk.press(Key::Escape).press(Key::Escape);
    std::string highlighted;
    desk.onDialog([&](headless::LookupDialog& list) {
        list.CodeText("1003");
        list.Edit();
        highlighted = list.grid().Text(list.grid().Row(), list.grid().Cols() - 2);
        list.Ok();
    });
    openHelp();
    EXPECT_EQ(edited, std::vector<std::string>{"1003"});
    EXPECT_EQ(highlighted, "1000");
    desk.press(Key::Escape).type("dq");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"1000"})) << "suggestions are read again";
}

TEST_F(CodeHelpTest, StaysAsItIsWhereNothingWasStoredOrItFails) {
    bool fails = false;
    load(listed().edit([&](const std::string&) -> std::optional<Goods> {
        if (fails) throw std::runtime_error("磁盘已满");
        return std::nullopt;
    }));
    int rows = 0;
    desk.onDialog([&](headless::LookupDialog& list) {
        list.Edit();
        fails = true;
        list.Edit();
        rows = list.grid().Rows();
    });
    openHelp();
    EXPECT_EQ(rows, 4);
    EXPECT_EQ(failures, std::vector<std::string>{"磁盘已满"});
}

TEST_F(CodeHelpTest, CanBeAListOfTheHostAtItsPlace) {
    std::string typed;
    std::int32_t top = 0;
    std::optional<Goods> chosen = someGoods()[1];
    load(asking().choose([&](std::int32_t, std::int32_t y, const std::string& text) {
        typed = text;
        top = y;
        return chosen;
    }));
    at(1, Code);
    desk.type("x");
    EXPECT_TRUE(desk.editor().helpButton);
    desk.press(Key::F2);
    EXPECT_EQ(typed, "x");
    EXPECT_GT(top, headless::Desk::ScreenTop);
    EXPECT_EQ(desk.editor().text, "1002");
    EXPECT_EQ(desk.editor().tag, "无缝钢管");
    desk.press(Key::Enter);
    EXPECT_EQ(shown(1), "1002 无缝钢管 20");
    chosen.reset();
    at(1, Code);
    desk.type("y").press(Key::F2);
    EXPECT_EQ(desk.editor().text, "y");
    EXPECT_TRUE(failures.empty());
}

TEST_F(CodeHelpTest, CodesAreAskedForInTheirOwnType) {
    struct Account {
        std::int32_t number = 0;
    };
    const auto codes = Codes<Account>::asking(
        [](const std::int32_t& number) { return number == 7 ? std::optional(Account{7}) : std::nullopt; },
        &Account::number);
    EXPECT_TRUE(codes.find("007").has_value());
    EXPECT_FALSE(codes.find("x").has_value());
    EXPECT_FALSE(codes.find("8").has_value());
}

TEST_F(CodeHelpTest, UnknownCodesHaveAColourWhereverTheyComeFrom) {
    sheet.code("code", "货号", &GoodsLine::code, table()).unknownColor(0x0000C0);
    finish({});
    const auto red = [&](std::int32_t row) { return grid.Grid().CellForeColor(row, Code) == 0x0000C0u; };
    const auto write = [&](const char* code) {
        auto step = grid.Step("导入");
        grid.SetCell(1, Code, code);
        step.close();
    };
    write("1001");
    EXPECT_FALSE(red(1));
    write("9");
    EXPECT_TRUE(red(1));
    undo();
    EXPECT_FALSE(red(1));
    redo();
    EXPECT_TRUE(red(1));
    at(1, Code);
    desk.run(Command::DeleteRows);
    undo();
    EXPECT_TRUE(red(1));
    type(1, Code, "1002");
    EXPECT_FALSE(red(1));
    sheet.load(std::vector<GoodsLine>{line("8", "", "1")});
    EXPECT_FALSE(red(1)) << "nobody has looked it up";
    sheet.markFaults();
    EXPECT_TRUE(red(1));
    sheet.clearMarks();
    EXPECT_FALSE(red(1));
}

TEST_F(CodeHelpTest, CodesAreSuggestedByWhatIsMadeOfAMember) {
    load(table().also(&Goods::size, [](const std::string& size) { return "尺寸" + size; }));
    at(1, Code);
    desk.type("尺寸DN");
    EXPECT_EQ(desk.suggestions().texts, std::vector<std::string>{"1002"});
}

TEST_F(CodeSheet, AListThatThrowsIsAListenersFaultWhereNobodyIsTold) {
    load(asking().list([]() -> std::vector<Goods> { throw std::runtime_error("数据库连接中断"); }));
    at(1, Code);
    desk.type("1");
    EXPECT_THROW(desk.press(Key::F2), std::runtime_error);
}

TEST(ConstantsByInitials, AreSuggested) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<GoodsLine> sheet(grid);
    sheet.constants("unit", "单位", &GoodsLine::unit, {"只", "平方米"}).initials([](const std::string& text) {
        return std::string(text == "平方米" ? "pfm" : "z");
    });
    sheet.load(std::vector<GoodsLine>());
    desk.focusGrid();
    grid.Grid().Select(1, 1);
    desk.type("pf");
    EXPECT_EQ(desk.suggestions().texts, std::vector<std::string>{"平方米"});
}
}  // namespace
}  // namespace kxVsGrid::testing
