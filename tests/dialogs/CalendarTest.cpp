// The picker of dates, of dates with half-day and of dates with time: what it opens on and what it returns.
#include "dialogs/HelpTest.h"

namespace kxVsGrid::testing {
namespace {

class Calendar : public HelpTest {
  protected:
    Calendar() { desk.setNow(2026, 11, 20, 9, 30, 5); }

    void choose(gEmHelpType type, std::string_view text, const CalendarScript& script) {
        offer(type);
        help<CalendarDialog>(text, script);
    }
    /// What OK returns at once, as code; the name is the same.
    std::string accepted(gEmHelpType type, std::string_view text) {
        choose(type, text, [](CalendarDialog& d) { d.Ok(); });
        EXPECT_EQ(inEditor().text, inEditor().tag);
        return inEditor().text;
    }
};

TEST_F(Calendar, ReturnsTheDayTwice) {
    choose(ih日期型, "", [](CalendarDialog& d) {
        EXPECT_EQ(d.form().name(), "XT_calendar");
        d.day(2011, 5, 6);
        EXPECT_TRUE(d.open());
        d.Ok();
        EXPECT_FALSE(d.open());
    });
    EXPECT_EQ(inEditor(), (Pair{"2011-05-06", "2011-05-06"}));
}

TEST_F(Calendar, OpensOnTheDateInTheCellHoweverItIsSeparated) {
    for (const char* text : {"2011-05-06", "2011-5-6", "2011.05.06", "2011/5/6", " 2011-05-06 "})
        EXPECT_EQ(accepted(ih日期型, text), "2011-05-06") << text;
}

TEST_F(Calendar, OpensOnTodayWithoutADate) {
    for (const char* text : {"", "abc", "2011-02-30", "2011-13-01", "0000-00-00", "12", ":", " x y", "螺栓"})
        EXPECT_EQ(accepted(ih日期型, text), "2026-11-20") << text;
}

TEST_F(Calendar, ShowsTheTimePickerAndTheHalfDaysOnlyInTheirModes) {
    choose(ih日期型, "", [](CalendarDialog& d) {
        EXPECT_FALSE(d.control("DTPTime").visible);
        EXPECT_FALSE(d.control("Cob").visible);
        EXPECT_THROW(d.half("上午"), std::logic_error);
    });
    choose(ih半日型, "", [](CalendarDialog& d) {
        EXPECT_FALSE(d.control("DTPTime").visible);
        EXPECT_TRUE(d.control("Cob").visible);
        EXPECT_EQ(d.control("Cob").list, (Lines{"上午", "下午"}));
        EXPECT_EQ(d.control("Cob").typeName, "ComboBox");
    });
    choose(ih时间型, "", [](CalendarDialog& d) {
        EXPECT_TRUE(d.control("DTPTime").visible);
        EXPECT_FALSE(d.control("Cob").visible);
        EXPECT_EQ(d.control("DTPTime").typeName, "DTPicker");
    });
}

TEST_F(Calendar, ReturnsTheHalfOfTheDay) {
    choose(ih半日型, "", [](CalendarDialog& d) {
        d.day(2011, 5, 6);
        d.half("下午");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"2011-05-06 下午", "2011-05-06 下午"}));
}

TEST_F(Calendar, OpensOnTheHalfInTheCell) {
    EXPECT_EQ(accepted(ih半日型, "2011-05-06 下午"), "2011-05-06 下午");
    EXPECT_EQ(accepted(ih半日型, "2011-05-06 上午"), "2011-05-06 上午");
    EXPECT_EQ(accepted(ih半日型, "2011/5/6 下午"), "2011-05-06 下午");
    EXPECT_EQ(accepted(ih半日型, "2011-05-06   下午"), "2011-05-06 下午");
}

TEST_F(Calendar, IsInTheMorningWithoutAHalf) {
    for (const char* text : {"2011-05-06", "2011-05-06 14:30:00", "2011-05-06 x"})
        EXPECT_EQ(accepted(ih半日型, text), "2011-05-06 上午") << text;
    EXPECT_EQ(accepted(ih半日型, "not a date"), "2026-11-20 上午");
    EXPECT_EQ(accepted(ih半日型, "nodate 下午"), "2026-11-20 下午");
    EXPECT_EQ(accepted(ih半日型, ""), "2026-11-20 上午");
}

TEST_F(Calendar, OpensOnTheTimeInTheCell) {
    choose(ih时间型, "2011-05-06 14:30:00", [](CalendarDialog& d) {
        EXPECT_EQ(d.day().year * 10000 + d.day().month * 100 + d.day().day, 20110506);
        EXPECT_EQ(d.time().hour * 10000 + d.time().minute * 100 + d.time().second, 143000);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"2011-05-06 14:30:00", "2011-05-06 14:30:00"}));
    EXPECT_EQ(accepted(ih时间型, "2011-05-06 23:59:59"), "2011-05-06 23:59:59");
    EXPECT_EQ(accepted(ih时间型, "2011.5.6 1:2:3"), "2011-05-06 01:02:03");
    EXPECT_EQ(accepted(ih时间型, "2011-05-06 14:30"), "2011-05-06 14:30:00");
}

TEST_F(Calendar, IsAtMidnightWithoutATime) {
    for (const char* text : {"2011-05-06", "2011-05-06 ", "2011-05-06 x", "2011-05-06 下午", "2011-05-06 14",
                             "2011-05-06 ::", "2011-05-06 a:b:c", "2011-05-06 24:60:60",
                             "2011-05-06 -1:-1:-1", "2011-05-06 99999999999:1e300:nan"})
        EXPECT_EQ(accepted(ih时间型, text), "2011-05-06 00:00:00") << text;
    EXPECT_EQ(accepted(ih时间型, ""), "2026-11-20 00:00:00");
}

TEST_F(Calendar, ReturnsTheTimeInTwoDigitsEach) {
    choose(ih时间型, "", [](CalendarDialog& d) {
        d.day(2011, 5, 6);
        d.time(1, 2, 3);
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"2011-05-06 01:02:03", "2011-05-06 01:02:03"}));
}

TEST_F(Calendar, ADoubleClickOnADayTakesIt) {
    for (const auto& [type, result] :
         {std::pair(ih日期型, "2011-05-07"), std::pair(ih半日型, "2011-05-07 下午"),
          std::pair(ih时间型, "2011-05-07 00:00:00")}) {
        choose(type, "2011-05-06 下午", [](CalendarDialog& d) {
            d.day(2011, 5, 7);
            d.doubleClickDay();
            EXPECT_FALSE(d.open());
        });
        EXPECT_EQ(inEditor().text, result);
    }
}

TEST_F(Calendar, TodayIsTheDayOnWhichItIsPressed) {
    choose(ih日期型, "2011-05-06", [this](CalendarDialog& d) {
        desk.setNow(2026, 11, 21, 0, 5, 0);
        d.Today();
        d.Ok();
    });
    EXPECT_EQ(inEditor().text, "2026-11-21");
}

TEST_F(Calendar, TodayGoesToTodayAndStaysOpen) {
    choose(ih日期型, "2011-05-06", [](CalendarDialog& d) {
        EXPECT_EQ(d.control("Jtcommand").caption, "今天");
        d.Today();
        EXPECT_TRUE(d.open());
        EXPECT_EQ(d.focused(), "MonthView1");
        d.Ok();
    });
    EXPECT_EQ(inEditor(), (Pair{"2026-11-20", "2026-11-20"}));
}

TEST_F(Calendar, TodayLeavesTheTimeAndTheHalfAsTheyAre) {
    choose(ih时间型, "2011-05-06 14:30:00", [](CalendarDialog& d) {
        d.Today();
        d.Ok();
    });
    EXPECT_EQ(inEditor().text, "2026-11-20 14:30:00");
    choose(ih半日型, "2011-05-06 下午", [](CalendarDialog& d) {
        d.Today();
        d.Ok();
    });
    EXPECT_EQ(inEditor().text, "2026-11-20 下午");
}

TEST_F(Calendar, EnterIsOkAndEscapeReturnsNothing) {
    for (const gEmHelpType type : {ih日期型, ih半日型, ih时间型}) {
        choose(type, "2011-05-06", [](CalendarDialog& d) {
            d.press(Key::Escape);
            EXPECT_FALSE(d.open());
        });
        EXPECT_EQ(inEditor(), kept("2011-05-06"));
    }
    choose(ih日期型, "2011-5-6", [](CalendarDialog& d) { d.press(Key::Enter); });
    EXPECT_EQ(inEditor(), (Pair{"2011-05-06", "2011-05-06"}));
}

TEST_F(Calendar, ClosedByItsFrameReturnsNothing) {
    choose(ih时间型, "2011-05-06", [](CalendarDialog& d) {
        d.day(2012, 1, 1);
        d.closeByFrame();
    });
    EXPECT_EQ(inEditor(), kept("2011-05-06"));
}

TEST_F(Calendar, ReachesBothEndsOfTheCalendarOfTheGrid) {
    EXPECT_EQ(accepted(ih日期型, "9999-12-31"), "9999-12-31");
    EXPECT_EQ(accepted(ih日期型, "0100-01-01"), "0100-01-01");
    EXPECT_EQ(accepted(ih日期型, "2012-02-29"), "2012-02-29");
}

TEST_F(Calendar, StartsInTheWidthOfTheColumnAndKeepsItsProportions) {
    column(HelpCol).HelpWidth(9000);
    choose(ih日期型, "", [](CalendarDialog& d) {
        EXPECT_EQ(d.form().ScaleWidth(), 9000);
        const Rect days = d.control("MonthView1").place;
        const std::int32_t height = d.form().ScaleHeight();
        d.resize(18000, 2 * height);
        EXPECT_EQ(d.control("MonthView1").place.height, 2 * days.height);
        EXPECT_NEAR(d.control("MonthView1").place.width, 2 * days.width, 1);
    });
}
}  // namespace
}  // namespace kxVsGrid::testing
