// Filling the rest of a date column: by days, years and months, and in series. The expected dates come from
// the calendar of the standard library.
#include <algorithm>
#include <chrono>

#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

year_month_day dayOf(int year, unsigned month, unsigned day) {
    return std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
}

std::string shortText(const year_month_day& date) {
    const auto digits = [](unsigned value, std::size_t count) {
        std::string text = std::to_string(value);
        return std::string(count - text.size(), '0') + text;
    };
    return digits(static_cast<unsigned>(static_cast<int>(date.year())), 4) + '-' +
           digits(static_cast<unsigned>(date.month()), 2) + '-' +
           digits(static_cast<unsigned>(date.day()), 2);
}

/// The same day in another month, or that month's last one.
year_month_day clamped(std::chrono::year year, std::chrono::month month, std::chrono::day day) {
    const year_month_day last = year / month / std::chrono::last;
    return year / month / std::min(day, last.day());
}
year_month_day nextDay(const year_month_day& date, int days = 1) {
    return sys_days(date) + std::chrono::days(days);
}
year_month_day nextMonth(const year_month_day& date) {
    const auto month = date.year() / date.month() + std::chrono::months(1);
    return clamped(month.year(), month.month(), date.day());
}
year_month_day nextYear(const year_month_day& date) {
    return clamped(date.year() + std::chrono::years(1), date.month(), date.day());
}

class FillDates : public MenuTest {
  protected:
    static constexpr std::int32_t Col = 2;
    FillDates() {
        typed(Col, flexDTDate);
        rows(8);
    }
    /// Puts texts into the column from row 2 on, fills from the last of them, and tells what is below.
    Lines filled(const char* command, const Lines& content) {
        for (int r = 1; r < grid.Rows(); ++r) {
            grid.Grid().Text(r, Col, "");
            grid.Grid().Data(r, Col, "");
        }
        std::int32_t row = 1;
        for (const auto& entry : content) grid.Grid().Text(++row, Col, entry);
        at(row, Col);
        fillBy(command);
        return texts(row + 1, Col);
    }
    Lines tagsBelow() const { return tags(grid.Row() + 1, Col); }
    /// Fills a column of so many rows from a date and compares each cell, text and tag.
    template <class Next>
    void expectSteps(const char* command, year_month_day date, int count, Next next) {
        rows(count + 3);
        filled(command, {shortText(date)});
        int wrong = 0;
        for (int r = 3; r < count + 3 && wrong < 3; ++r) {
            date = next(date);
            const bool right = text(r, Col) == shortText(date) && tag(r, Col) == shortText(date);
            EXPECT_TRUE(right) << "row " << r << ": " << text(r, Col) << ", expected " << shortText(date);
            wrong += right ? 0 : 1;
        }
    }
};

TEST_F(FillDates, ByDaysGoesThroughACenturyOfMonthEndsAndLeapDays) {
    expectSteps(caption::Days, dayOf(1950, 1, 1), 36'600, [](auto date) { return nextDay(date); });
    expectSteps(caption::Days, dayOf(1896, 2, 27), 1'400, [](auto date) { return nextDay(date); });
    expectSteps(caption::Days, dayOf(2096, 2, 27), 1'500, [](auto date) { return nextDay(date); });
}

TEST_F(FillDates, ByMonthsGoesThroughACentury) {
    for (const unsigned day : {1U, 15U, 28U, 29U, 30U, 31U})
        expectSteps(caption::Months, dayOf(1950, 1, day), 1'212, nextMonth);
}

TEST_F(FillDates, ByYearsGoesThroughFourCenturies) {
    expectSteps(caption::Years, dayOf(1804, 2, 29), 400, nextYear);
    expectSteps(caption::Years, dayOf(1904, 2, 28), 200, nextYear);
    expectSteps(caption::Years, dayOf(1904, 12, 31), 200, nextYear);
}

TEST_F(FillDates, FromEveryMonthEndOfACenturyGoesToTheNextMonthAndYear) {
    rows(6);
    for (int year = 1950; year <= 2050; ++year)
        for (unsigned month = 1; month <= 12; ++month)
            for (const unsigned back : {0U, 1U, 2U, 3U}) {
                const year_month_day end =
                    std::chrono::year(year) / std::chrono::month(month) / std::chrono::last;
                const year_month_day date = sys_days(end) - std::chrono::days(back);
                const year_month_day month1 = nextMonth(date);
                const year_month_day year1 = nextYear(date);
                ASSERT_EQ(filled(caption::Months, {shortText(date)}),
                          (Lines{shortText(month1), shortText(nextMonth(month1)),
                                 shortText(nextMonth(nextMonth(month1)))}));
                ASSERT_EQ(filled(caption::Years, {shortText(date)}),
                          (Lines{shortText(year1), shortText(nextYear(year1)),
                                 shortText(nextYear(nextYear(year1)))}));
                log.clear();
            }
}

TEST_F(FillDates, TakesEachStepFromTheDateBefore) {
    EXPECT_EQ(filled(caption::Months, {"2010-01-31"}),
              (Lines{"2010-02-28", "2010-03-28", "2010-04-28", "2010-05-28", "2010-06-28"}));
    EXPECT_EQ(filled(caption::Months, {"2012-01-31"}),
              (Lines{"2012-02-29", "2012-03-29", "2012-04-29", "2012-05-29", "2012-06-29"}));
    EXPECT_EQ(filled(caption::Years, {"2008-02-29"}),
              (Lines{"2009-02-28", "2010-02-28", "2011-02-28", "2012-02-28", "2013-02-28"}));
    EXPECT_EQ(filled(caption::Days, {"2010-12-30"}),
              (Lines{"2010-12-31", "2011-01-01", "2011-01-02", "2011-01-03", "2011-01-04"}));
}

TEST_F(FillDates, WritesTheShortTextAsTextAndTagAndTellsOfBoth) {
    filled(caption::Months, {"2010-01-31"});
    EXPECT_EQ(tagsBelow(), (Lines{"2010-02-28", "2010-03-28", "2010-04-28", "2010-05-28", "2010-06-28"}));
    Lines cells;
    for (int r = 3; r < 8; ++r) cells = cells + changed(r, Col) + changed(r, Col);
    EXPECT_EQ(told(), cells);
    EXPECT_EQ(text(2, Col), "2010-01-31");
    EXPECT_EQ(tag(2, Col), "");
    EXPECT_EQ(current(), (Cell{2, Col}));
}

TEST_F(FillDates, ReadsDatesOfEveryWriting) {
    rows(6);
    for (const char* written :
         {"2010-01-31", "2010/1/31", "2010.01.31", "2010年1月31日", "10-1-31", "10/01/31", " 2010-1-31 ",
          "2010-01-31 8:05", "2010-01-31 23:59:59", "2010年01月31日 12:00"}) {
        SCOPED_TRACE(written);
        EXPECT_EQ(filled(caption::Days, {written}), (Lines{"2010-02-01", "2010-02-02", "2010-02-03"}));
        EXPECT_EQ(filled(caption::Months, {written}), (Lines{"2010-02-28", "2010-03-28", "2010-04-28"}));
        EXPECT_EQ(filled(caption::Years, {written}), (Lines{"2011-01-31", "2012-01-31", "2013-01-31"}));
        EXPECT_EQ(filled(caption::Series, {"", written}), (Lines{"2010-02-01", "2010-02-02"}));
    }
    EXPECT_EQ(filled(caption::Days, {"29-12-31"})[0], "2030-01-01");
    EXPECT_EQ(filled(caption::Days, {"30-12-31"})[0], "1931-01-01");
}

TEST_F(FillDates, WritesNothingFromATextThatIsNoDate) {
    for (const char* written : {"", "abc", "2010", "20100131", "2010-02-30", "2009-02-29", "2010-13-01",
                                "8:05", "2010-01", "40000", "2010-1/31", "0", "1900-02-29", "上午"}) {
        for (const char* command : {caption::Days, caption::Months, caption::Years, caption::Series}) {
            EXPECT_EQ(filled(command, {"2010-01-01", written}), Lines(4, "")) << written << ' ' << command;
            EXPECT_EQ(tagsBelow(), Lines(4, "")) << written;
            EXPECT_EQ(told(), Lines{});
        }
    }
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(FillDates, WritesNothingBelowTheLastRow) {
    for (const char* command : {caption::Days, caption::Months, caption::Years, caption::Series}) {
        grid.Grid().Text(6, Col, "2010-01-01");
        grid.Grid().Text(7, Col, "2010-01-31");
        at(7, Col);
        fillBy(command);
        EXPECT_EQ(told(), Lines{});
        EXPECT_EQ(grid.Rows(), 8);
    }
}

TEST_F(FillDates, BlanksTheTextOfTheEmptyDateAndGoesOnBehindIt) {
    EXPECT_EQ(filled(caption::Days, {"1899-12-30"}),
              (Lines{"1899-12-31", "", "1900-01-02", "1900-01-03", "1900-01-04"}));
    EXPECT_EQ(tagsBelow()[1], "1900-01-01");
    grid.bIsShowZero(true);
    EXPECT_EQ(filled(caption::Days, {"1899-12-30"})[1], "1900-01-01");
    EXPECT_EQ(filled(caption::Years, {"1899-01-01"})[0], "1900-01-01");
}

TEST_F(FillDates, EndsWithTheCalendar) {
    const Lines days = filled(caption::Days, {"9999-12-29"});
    EXPECT_EQ(days[0], "9999-12-30");
    EXPECT_EQ(days[1], "9999-12-31");
    EXPECT_EQ(filled(caption::Months, {"9999-11-30"})[0], "9999-12-30");
    EXPECT_EQ(filled(caption::Years, {"9998-06-01"})[0], "9999-06-01");
    const Lines back = filled(caption::Series, {"0100-01-03", "0100-01-02"});
    EXPECT_EQ(back[0], "0100-01-01");
    for (const auto& beyond : {days[2], days[4], back[1], back[3]}) EXPECT_EQ(beyond, "");
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_TRUE(desk.idle());
}

TEST_F(FillDates, GoesByTheTextsAsTheColumnShowsThem) {
    grid.ColFormat(Col, "yyyy/m/d");
    EXPECT_EQ(filled(caption::Days, {"2010-01-31"})[0], "2010-02-01");
    grid.ColFormat(Col, "dd/mm/yyyy");
    EXPECT_EQ(filled(caption::Days, {"2010-01-31"}), Lines(5, ""));
    grid.ColFormat(Col, "yy-mm-dd");
    EXPECT_EQ(filled(caption::Days, {"1925-01-31"})[0], "2025-02-01");
    EXPECT_EQ(filled(caption::Series, {"1925-01-30", "1925-01-31"})[0], "2025-02-01");
}

TEST_F(FillDates, GoesByDaysWhateverTheColumnHasBecomeMeanwhile) {
    grid.Grid().Text(2, Col, "2010-01-31");
    at(2, Col);
    desk.onPopup([&](headless::PoppedMenu& menu) {
        menu.choose(caption::Fill, caption::Days);
        column(Col).iType(flexDTString);
    });
    desk.rightClick(0, 1);
    EXPECT_EQ(texts(3, Col)[0], "2010-02-01");
}

TEST_F(FillDates, LeavesOtherColumnsAndRowsAlone) {
    for (int r = 1; r < 8; ++r) grid.SetCell(r, 3, "2000-01-01", "y");
    EXPECT_EQ(filled(caption::Days, {"", "2010-01-31"})[3], "2010-02-04");
    EXPECT_EQ(texts(1, 3), Lines(7, "2000-01-01"));
    EXPECT_EQ(text(1, Col), "");
    EXPECT_EQ(text(2, Col), "");
}

class DateSeries : public FillDates {};

TEST_F(DateSeries, GoesOnByTheDaysSinceTheDateAbove) {
    EXPECT_EQ(filled(caption::Series, {"2010-01-30", "2010-01-31"}),
              (Lines{"2010-02-01", "2010-02-02", "2010-02-03", "2010-02-04"}));
    EXPECT_EQ(filled(caption::Series, {"2010-01-01", "2010-01-08"}),
              (Lines{"2010-01-15", "2010-01-22", "2010-01-29", "2010-02-05"}));
    EXPECT_EQ(filled(caption::Series, {"2010-03-02", "2010-03-01"}),
              (Lines{"2010-02-28", "2010-02-27", "2010-02-26", "2010-02-25"}));
    EXPECT_EQ(tagsBelow(), (Lines{"2010-02-28", "2010-02-27", "2010-02-26", "2010-02-25"}));
}

TEST_F(DateSeries, GoesThroughACenturyInSteps) {
    for (const int step : {1, 7, 30, 365, -1, -31}) {
        const int count = std::min(36'600 / std::abs(step), 5'000);
        rows(count + 4);
        year_month_day date = step > 0 ? dayOf(1950, 1, 1) : dayOf(2050, 12, 31);
        filled(caption::Series, {shortText(nextDay(date, -step)), shortText(date)});
        int wrong = 0;
        for (int r = 4; r < count + 4 && wrong < 3; ++r) {
            date = nextDay(date, step);
            EXPECT_EQ(text(r, Col), shortText(date)) << step << ", row " << r;
            wrong += text(r, Col) == shortText(date) ? 0 : 1;
        }
        log.clear();
    }
}

TEST_F(DateSeries, TakesOneDayForAStepOfZero) {
    EXPECT_EQ(filled(caption::Series, {"2010-01-31", "2010-01-31"})[0], "2010-02-01");
    EXPECT_EQ(filled(caption::Series, {"2010-01-31 08:00", "2010/1/31 20:00"})[0], "2010-02-01");
}

TEST_F(DateSeries, CountsWholeDaysWhateverTheTime) {
    EXPECT_EQ(filled(caption::Series, {"2010-01-30 23:00", "2010-01-31 01:00"}),
              (Lines{"2010-02-01", "2010-02-02", "2010-02-03", "2010-02-04"}));
    EXPECT_EQ(filled(caption::Series, {"2010-01-29 01:00", "2010-01-31 23:00"})[0], "2010-02-02");
}

TEST_F(DateSeries, TakesOneDayBelowAnEmptyOrUnreadableCell) {
    EXPECT_EQ(filled(caption::Series, {"", "2010-01-31"})[0], "2010-02-01");
    EXPECT_EQ(filled(caption::Series, {"abc", "2010-01-31"})[0], "2010-02-01");
    EXPECT_EQ(filled(caption::Series, {"2010-02-30", "2010-01-31"})[0], "2010-02-01");
    EXPECT_EQ(filled(caption::Series, {"15", "2010-01-31"})[0], "2010-02-01");
}

TEST_F(DateSeries, TakesOneDayInTheFirstDataRow) {
    grid.Grid().Text(0, Col, "2010-01-01");
    grid.Grid().Text(1, Col, "2010-01-31");
    at(1, Col);
    fillBy(caption::Series);
    EXPECT_EQ(texts(2, Col)[0], "2010-02-01");
    EXPECT_EQ(texts(2, Col)[5], "2010-02-06");
}

}  // namespace
}  // namespace kxVsGrid::testing
