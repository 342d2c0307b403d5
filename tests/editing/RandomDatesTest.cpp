// Ten thousand random texts for each date form: what is accepted is stored as the form has it and passes a
// second time unchanged; what is refused leaves the cell as it was, with one message.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "editing/CheckTest.h"
#include "editing/DateOracle.h"
#include "editing/DateTexts.h"
#include "kit/Random.h"
#include "support/Text.h"

namespace kxVsGrid::testing {
namespace {

struct TestedForm {
    const char* name;
    gEmJudgeType type;
    DateOracle::Form form;
    const char* message;
    friend std::ostream& operator<<(std::ostream& out, const TestedForm& tested) {
        return out << tested.name;
    }
};

const TestedForm Forms[] = {
    {"Date", ij日期型, DateOracle::Form::Date, "非法公历日期!(格式:2026-11-20)"},
    {"HalfDay", ij半日型, DateOracle::Form::HalfDay, "非法公历日期!(格式:2026-11-20 上午)"},
    {"Time", ij时间型, DateOracle::Form::Time, "非法公历日期!(格式:2026-11-20 09:30:05)"},
};

/// The ways to have a text checked; Enter takes the line ends out first.
enum class Way { Enter, Down, ValidTextData, ReadCell, FocusLoss, Last = FocusLoss };

class RandomDates : public ::testing::TestWithParam<TestedForm> {
  protected:
    static constexpr std::int32_t Col = 2;
    static constexpr int Texts = 10000;

    RandomDates() {
        grid.Cols(4);
        grid.VsCtrl(Col)->i有效性判断(1);
        grid.VsCtrl(Col)->i字段有效性判断类型(GetParam().type);
        grid.ReDraw(true);
        desk.setNow(2026, 11, 20, 9, 30, 5);
    }

    void put(std::int32_t row, const std::string& text) {
        grid.Grid().Select(1, 1);
        grid.SetCell(row, Col, "旧", "old tag");
        grid.Grid().Select(row, Col);
        desk.focusGrid().press(Key::Space).clear();
        grid.Text(text);
    }
    void ask(Way way) {
        switch (way) {
            case Way::Enter:
                desk.press(Key::Enter);
                break;
            case Way::Down:
                desk.press(Key::Down);
                break;
            case Way::ValidTextData:
                grid.ValidTextData();
                break;
            case Way::ReadCell:
                grid.ReadCell(1, 1);
                break;
            case Way::FocusLoss:
                desk.focusElsewhere();
                break;
        }
    }
    void expectStored(std::int32_t row, const std::string& stored) {
        EXPECT_TRUE(desk.messages().empty());
        EXPECT_FALSE(desk.editor().visible);
        EXPECT_EQ(grid.Grid().Text(row, Col), stored);
        EXPECT_EQ(grid.Grid().Data(row, Col), stored);
    }
    void expectRefused(std::int32_t row, const std::string& typed) {
        ASSERT_EQ(desk.messages().size(), 1u);
        EXPECT_EQ(desk.messages()[0], (MessageBox{GetParam().message, 64, "提示："}));
        const headless::SeenEditor editor = desk.editor();
        EXPECT_TRUE(editor.visible && editor.refused);
        EXPECT_EQ(editor.text, support::withoutLineBreaks(typed));
        EXPECT_EQ(editor.selStart, 0u);
        EXPECT_EQ(editor.selLength, support::characters(editor.text));
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
        EXPECT_EQ(grid.Grid().Text(row, Col), "旧");
        EXPECT_EQ(grid.Grid().Data(row, Col), "old tag");
        desk.press(Key::Enter).press(Key::Escape);
        EXPECT_EQ(desk.messages().size(), 1u);
    }
    /// True when the text was accepted.
    bool check(const std::string& typed, Way way) {
        const std::string seen = way == Way::Enter ? support::withoutLineBreaks(typed) : typed;
        const std::optional<std::string> stored = DateOracle::stored(GetParam().form, seen);
        put(2, typed);
        ask(way);
        if (!stored) {
            expectRefused(2, typed);
            return false;
        }
        expectStored(2, *stored);
        put(3, *stored);
        ask(way);
        expectStored(3, *stored);
        return true;
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
};

INSTANTIATE_TEST_SUITE_P(Of, RandomDates, ::testing::ValuesIn(Forms),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(RandomDates, AreStoredInTheirFormOrRefusedWithOneMessage) {
    // The same texts every time, unless another seed is asked for.
    kit::Random random(20110203);
    DateTexts texts(random);
    int accepted = 0;
    for (int i = 0; i < Texts && !HasFailure(); ++i) {
        const std::string typed = texts.next();
        const auto way = static_cast<Way>(random.between(0, static_cast<int>(Way::Last)));
        accepted += check(typed, way) ? 1 : 0;
        if (HasFailure()) ADD_FAILURE() << "text " << i << ": \"" << typed << "\"\n" << desk.ascii();
    }
    // Both happen often enough for the test to say something.
    EXPECT_GT(accepted, Texts / 10);
    EXPECT_LT(accepted, Texts * 9 / 10);
    RecordProperty("accepted", accepted);
}

}  // namespace
}  // namespace kxVsGrid::testing
