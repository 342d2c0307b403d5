// The examples at the heads of the public headers, as they stand there, each with what it takes for granted.
#include <gtest/gtest.h>

#include <cassert>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/headless/BagRules.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxVsGrid.h"

using namespace kxVsGrid;

namespace {

struct PaintedItems {
    std::size_t count = 0;
    void draw(const FrameItem&) { ++count; }
};

struct MyHost {
    static void attach(kxGrid& grid) { grid.VsCtrl(1)->iType(flexDTDouble); }
};

/// Keeps a bag for a later run of the program, by keeping it.
class MyStore : public headless::BagStore {
  public:
    std::unique_ptr<PropertyBag> fresh() override { return std::make_unique<MemoryBag>(); }
    std::unique_ptr<PropertyBag> reopened(std::unique_ptr<PropertyBag> bag) override { return bag; }
};

class NameForm : public Form {
  public:
    NameForm() : Form("Names", "名称", 3000, 2000) {
        name_ = &add("TextBox", "Name", "", {0, 0, 1000, 300});
        add("CommandButton", "Ok", "确定", {0, 400, 1000, 300});
    }
    std::string told;

  private:
    void pressed(FormControl&) override {
        told = name_->text;
        close();
    }
    FormControl* name_;
};

struct Good {
    std::string code;
    std::string name;
    double price;
};

/// Answers the last question when it is told to.
struct GoodsServer {
    std::vector<std::string> asked;
    SuggestionAnswer answer;
    void find(const std::string& text, SuggestionAnswer then) {
        asked.push_back(text);
        answer = std::move(then);
    }
};

std::string exampleText(const std::string& name) {
    std::ifstream file(KX_EXAMPLES + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
}  // namespace

TEST(HeaderExamples, ThatOfCellGridTellsOfAWrittenCell) {
    std::vector<std::pair<std::int32_t, std::int32_t>> repainted;
    const auto repaint = [&](std::int32_t row, std::int32_t col) { repainted.emplace_back(row, col); };
#include "examples/CellGrid.inc"
    grid.Text(6, 1, "A002");
    EXPECT_EQ(grid.Text(5, 1), "A001");
    EXPECT_EQ(repainted, (std::vector<std::pair<std::int32_t, std::int32_t>>{{6, 1}}));
}

TEST(HeaderExamples, ThatOfCellMarkGoesToTheProblem) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
#include "examples/CellMark.inc"
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 2);
}

TEST(HeaderExamples, ThatOfColumnOptionsRefusesWhatBreaksThem) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    grid.VsCtrl(3)->iType(flexDTDouble);
    desk.focusGrid();
#include "examples/ColumnOptions.inc"
    const auto enter = [&](std::int32_t row, std::int32_t col, std::string_view text) {
        desk.press(Key::Escape);
        grid.Grid().Select(row, col);
        desk.type(text).press(Key::Enter);
    };
    enter(1, 3, "0.5");
    enter(1, 1, "AB0001");
    enter(1, 4, "仓一");
    EXPECT_TRUE(desk.messages().empty());
    enter(2, 3, "-1");
    enter(2, 1, "AB0001");
    enter(2, 4, "库一");
    ASSERT_EQ(desk.messages().size(), 3U);
    EXPECT_EQ(desk.messages()[0].text, "不能小于 0。");
    EXPECT_EQ(desk.messages()[1].text, "与第 1 行重复。");
    EXPECT_EQ(desk.messages()[2].text, "仓库要以“仓”开头。");
}

TEST(HeaderExamples, ThatOfChangeListenerCountsAWrite) {
    CellGrid grid;
#include "examples/ChangeListener.inc"
    EXPECT_EQ(counter.writes, 1);
}

TEST(HeaderExamples, ThatOfColumnLayoutKeepsWhatTheClerkHides) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    MemoryBag bag;
    grid.VsCtrl(2)->sName("数量");
#include "examples/ColumnLayout.inc"
    grid.Grid().Select(1, 2);
    desk.run(Command::HideColumn);
    EXPECT_TRUE(bag.find("ColumnLayout.Hidden.数量")->toBoolean());
}

TEST(HeaderExamples, ThatOfChangesTakesAStepBack) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    grid.SetCell(1, 2, "7");
#include "examples/Changes.inc"
    EXPECT_EQ(grid.RawText(1, 2), "7");
    EXPECT_EQ(grid.History().RedoName(), "套用价格");
}

TEST(HeaderExamples, ThatOfCommandUndoesByKey) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    {
        const auto step = grid.Step("写");
        grid.SetCell(1, 1, "7");
    }
#include "examples/Command.inc"
    EXPECT_EQ(grid.RawText(1, 1), "");
}

TEST(HeaderExamples, ThatOfCommandsNamesWhatWouldBeUndone) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    struct {
        std::string text;
        bool enabled = false;
    } button;
#include "examples/Commands.inc"
    {
        const auto step = grid.Step("写");
        grid.SetCell(1, 1, "7");
    }
    EXPECT_EQ(button.text, "撤销“写”");
    EXPECT_TRUE(button.enabled);
}

TEST(HeaderExamples, ThatOfFindReplacesWhatItFinds) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    grid.SetCell(2, 1, "苹果");
#include "examples/Find.inc"
    EXPECT_EQ(grid.ReadCell(2, 1, true), "梨");
    EXPECT_EQ(grid.Row(), 2);
}

TEST(HeaderExamples, ThatOfFiltersTellsHowManyRowsAreHidden) {
    constexpr std::int32_t City = 1;
    headless::Desk desk;
    kxGrid& grid = desk.place();
    struct {
        std::string text;
    } status;
    grid.SetCell(1, City, "上海");
#include "examples/Filters.inc"
    EXPECT_TRUE(grid.Options(City).filterable());
    EXPECT_EQ(status.text, std::to_string(grid.Rows() - 2) + " 行被筛选隐藏");
    EXPECT_FALSE(grid.Filters().On());
}

TEST(HeaderExamples, ThatOfControlPageShowsThePage) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    std::string caption;
    desk.onDialog([&](headless::FormDialog& dialog) { caption = dialog.form().caption(); });
    Platform& platform = desk;
#include "examples/ControlPage.inc"
    EXPECT_FALSE(caption.empty());
}

TEST(HeaderExamples, ThatOfDraftKeepsAStep) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
#include "examples/Draft.inc"
    EXPECT_EQ(info.key, "order 4711");
    EXPECT_EQ(info.steps, 1U);
    EXPECT_EQ(info.puts.at("remark"), "call before noon");
    kxGrid& next = desk.place();
    EXPECT_EQ(next.Recover(kept, true).refusal, "");
    EXPECT_EQ(next.RawText(1, 1), "A001");
}

TEST(HeaderExamples, ThatOfEventConsentsToARow) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
#include "examples/Event.inc"
    bool consent = false;
    grid.AddVsRow(1, consent);
    EXPECT_TRUE(consent);
    const Host host;
    (void)host;
}

TEST(HeaderExamples, ThatOfFrameDrawsEveryItem) {
    const FrameState state;
    PaintedItems painter;
    CellGrid grid;
    grid.Resize(4000, 3000);
#include "examples/Frame.inc"
    EXPECT_GT(painter.count, 0U);
    EXPECT_EQ(painter.count, frame.items.size());
}

TEST(HeaderExamples, ThatOfHelpTableAnswersTheHelp) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    const std::vector<Good> goods = {{"A001", "六角螺栓", 1.5}, {"A002", "螺母", 0.25}};
#include "examples/HelpTable.inc"
    Variant code;
    Variant info;
    Variant data;
    grid.GetHelpCodeInfo(Variant("A0"), code, info, data);
    ASSERT_NE(data.table(), nullptr);
    ASSERT_NE(info.table(), nullptr);
    EXPECT_EQ(info.table()->at(2, HelpPosition::Kind).toInt32(), static_cast<int>(HelpKind::Number));
}

TEST(HeaderExamples, ThatOfMemoryBagFindsAColumnsName) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    grid.Cols(3);
    grid.VsCtrl(2)->sName("数量");
#include "examples/MemoryBag.inc"
    EXPECT_EQ(bag.find("SetVsControl2")->toText(), "数量");
}

TEST(HeaderExamples, ThatOfOptionsPutsASwitch) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    ASSERT_FALSE(grid.Options().EscRestores());
#include "examples/Options.inc"
    EXPECT_TRUE(grid.Options().EscRestores());
}

TEST(HeaderExamples, ThatOfStoredKeysListsTheKeysOfAColumn) {
    testing::internal::CaptureStdout();
#include "examples/StoredKeys.inc"
    EXPECT_NE(testing::internal::GetCapturedStdout().find("SetVsControl3bIsEditable\n"), std::string::npos);
}

TEST(HeaderExamples, ThatOfSuggestionsFindsInMemoryAndAsksAServer) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    GoodsServer server;
#include "examples/Suggestions.inc"
    desk.focusGrid();
    desk.type("LJ");
    EXPECT_TRUE(desk.suggestions().texts.empty());
    ASSERT_EQ(server.asked, (std::vector<std::string>{"L", "LJ"}));
    server.answer(goods.match("LJ"));
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"100001"}));
    desk.press(Key::Enter);
    EXPECT_EQ(grid.ReadCell(1, 1, true), "100001");
    EXPECT_EQ(grid.ReadCell(1, 1, false), "六角螺栓");
}

TEST(HeaderExamples, ThatOfTextBagIsSuchAText) {
    const std::string text = exampleText("examples/TextBag.inc");
    TextBag bag(text);
    EXPECT_EQ(bag.Read("FormatString", Variant("")).toText(), "行号|<货号    ");
    EXPECT_TRUE(bag.Read("Editable", Variant(false)).toBoolean());
    EXPECT_EQ(bag.Read("Cols", Variant(0)).toInt32(), 5);
}

TEST(HeaderExamples, ThatOfVariantHolds) {
#include "examples/Variant.inc"
    EXPECT_EQ(t.table()->at(1, 2).toText(), "A001");
}

TEST(HeaderExamples, ThatOfCResizeKeepsAFormInProportion) {
    NameForm form;
#include "examples/cResize.inc"
    EXPECT_TRUE(resize.py_bIsCanResize());
}

TEST(HeaderExamples, ThatOfCVsControlDefinesAColumn) {
#include "examples/cVsControl.inc"
    EXPECT_EQ(price->sName(), "单价");
    EXPECT_EQ(price->iType(), flexDTDouble);
}

TEST(HeaderExamples, ThatOfBagRulesFindsNoneBroken){
#include "examples/headless/BagRules.inc"
}

TEST(HeaderExamples, ThatOfDateCountsDays) {
#include "examples/support/Date.inc"
    EXPECT_EQ(text, "2026-12-23");
    EXPECT_EQ(days, 30);
}

TEST(HeaderExamples, ThatOfDateTimeIsReadAsItIsWritten) {
#include "examples/DateTime.inc"
    EXPECT_EQ(text, "2026-11-23 08:05:09");
    EXPECT_TRUE(same);
}

TEST(HeaderExamples, ThatOfDecimalAddsUpToTheLastDigit) {
#include "examples/support/Decimal.inc"
    EXPECT_EQ(amount, kxVsGrid::Decimal("59.7"));
    EXPECT_EQ(text, "3.33");
    EXPECT_FALSE(typed.has_value());
}

TEST(HeaderExamples, ThatOfDeskHoldsWhatItAsserts) {
    MyHost myHost;
#include "examples/headless/Desk.inc"
    EXPECT_EQ(grid.ReadCell(1, 1, true), "36");
}

TEST(HeaderExamples, ThatOfDialogsWorksAForm) {
    headless::Desk desk;
#include "examples/headless/Dialogs.inc"
    NameForm form;
    desk.showForm(form, {});
    EXPECT_EQ(form.told, "螺栓");
}

TEST(HeaderExamples, ThatOfTheEvaluatorEvaluates) {
#include "examples/mbasTxt.inc"
    EXPECT_TRUE(right);
    EXPECT_EQ(value, 40.5);
}
