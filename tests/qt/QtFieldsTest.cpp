// Members of Qt's own types in the records of a sheet.
#include "kxVsGrid/qt/QtFields.h"

#include <gtest/gtest.h>

#include <vector>

#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/sheet/Sheet.h"

namespace {
struct Visit {
    QString name;
    QDate day;
    QDateTime at;
    bool operator==(const Visit&) const = default;
};

class QtFields : public testing::Test {
  protected:
    enum Column { Number, Name, Day, At };
    QtFields() {
        sheet.text("name", "客户", &Visit::name);
        sheet.date("day", "日期", &Visit::day);
        sheet.moment("at", "时刻", &Visit::at);
        sheet.unreadable(kxVsGrid::sheet::Unreadable::Blank);
    }
    std::string text(int col) { return grid.Grid().Text(1, col); }

    kxVsGrid::headless::Desk desk;
    kxVsGrid::kxGrid& grid = desk.place();
    kxVsGrid::Sheet<Visit> sheet{grid};
};

TEST_F(QtFields, ComeBackAsTheyWereLoaded) {
    const std::vector<Visit> all{{"张三", QDate(2026, 2, 3), QDateTime(QDate(2026, 2, 3), QTime(8, 5, 9))},
                                 {"李四", {}, {}}};
    sheet.load(all);
    EXPECT_EQ(text(Name), "张三");
    EXPECT_EQ(text(Day), "2026-02-03");
    EXPECT_EQ(text(At), "2026-02-03 08:05:09");
    EXPECT_EQ(grid.Grid().Text(2, Day), "");
    EXPECT_TRUE(sheet.records() == all);
    EXPECT_FALSE(sheet.modified());
}

TEST_F(QtFields, AreWhatTheClerkTypes) {
    sheet.load(std::vector<Visit>());
    desk.focusGrid();
    for (const auto& [col, typed] : {std::pair(Name, "王五"), {Day, "2026/2/3"}, {At, "2026-2-3 9:30:00"}}) {
        grid.Grid().Select(1, col);
        desk.type(typed).press(kxVsGrid::Key::Enter);
    }
    const Visit known{"王五", QDate(2026, 2, 3), QDateTime(QDate(2026, 2, 3), QTime(9, 30))};
    EXPECT_TRUE(sheet.record(1) == known) << desk.ascii();
}

TEST_F(QtFields, AreInvalidWhereATextIsNone) {
    sheet.load(std::vector<Visit>{{"张三", QDate(2026, 2, 3), QDateTime(QDate(2026, 2, 3), QTime(8, 5))}});
    grid.Grid().Text(1, Day, "2026-02-30");
    grid.Grid().Text(1, At, "2026-02-03");
    EXPECT_FALSE(sheet.record(1).day.isValid());
    EXPECT_FALSE(sheet.record(1).at.isValid()) << "a day alone is no moment";
    EXPECT_EQ(sheet.faults().size(), 2u);
}
}  // namespace
