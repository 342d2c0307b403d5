// Days and moments as clerks enter them.
#include <optional>

#include "sheet/OrderSheet.h"

namespace kxVsGrid::testing {
namespace {

struct Appointment {
    std::string name;
    std::optional<Date> day;
    std::optional<DateTime> at;
};

class DateColumns : public ::testing::Test {
  protected:
    enum Column : std::int32_t { Number, Name, Day, At };

    DateColumns() {
        sheet.text("name", "客户", &Appointment::name);
        sheet.date("day", "日期", &Appointment::day);
        sheet.moment("at", "时刻", &Appointment::at);
        sheet.rule(
            "day", [](const Appointment& one) { return !one.day || one.day->year > 2000; }, "太早了");
        sheet.load(std::vector<Appointment>{{"甲", {}, {}}});
        desk.focusGrid();
    }
    void type(std::int32_t col, std::string_view text) {
        grid.Grid().Select(1, col);
        desk.type(text).press(Key::Enter);
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Appointment> sheet{grid};
};

TEST_F(DateColumns, TakeEveryFormOfADateThatClerksEnter) {
    for (const char* text : {"2026-02-03", "2026-2-3", "2026/2/3", "20260203", "2-3"}) {
        type(Day, text);
        EXPECT_FALSE(desk.editor().visible) << text;
        EXPECT_EQ(sheet.record(1).day, (Date{2026, 2, 3})) << text;
        type(Day, "");
        grid.SetCell(1, Day, "");
    }
    type(At, "2026-2-3 9:30:00");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(grid.Grid().Text(1, At), "2026-02-03 09:30:00");
}

TEST_F(DateColumns, RefuseWhatIsNoDate) {
    for (const char* text : {"2026-2-30", "morgen"}) {
        type(Day, text);
        EXPECT_TRUE(desk.editor().visible) << text;
        desk.press(Key::Escape);
        EXPECT_EQ(sheet.record(1).day, std::nullopt) << text;
    }
    EXPECT_EQ(desk.messages().size(), 2u);
}

TEST_F(DateColumns, BreakRulesHoweverTheyAreTypedAndWhenFaultsAreLookedFor) {
    type(Day, "1999-02-03");
    EXPECT_TRUE(desk.editor().visible);
    desk.press(Key::Escape);
    type(Day, "1999/2/3");
    EXPECT_TRUE(desk.editor().visible);
    desk.press(Key::Escape);
    grid.SetCell(1, Day, "1999-02-03");
    EXPECT_EQ(sheet.firstFault().value().text(), "第 1 行的日期：太早了");
}
}  // namespace
}  // namespace kxVsGrid::testing
