#include "kxVsGrid/support/Date.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>

#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/Members.h"

namespace kxVsGrid {
namespace {

TEST(CalendarDay, IsReadAsDateColumnsStoreIt) {
    EXPECT_EQ(Date::read("2026-11-23"), (Date{2026, 11, 23}));
    EXPECT_EQ(Date::read("2024-02-29"), (Date{2024, 2, 29}));
    EXPECT_EQ(Date::read("0100-01-01"), (Date{100, 1, 1}));
    EXPECT_EQ(Date::read("9999-12-31"), (Date{9999, 12, 31}));
}

TEST(CalendarDay, IsReadInNoOtherForm) {
    for (const char* text :
         {"", "2026-1-2", "2026/11/23", "26-11-23", " 2026-11-23", "2026-11-23 ", "2026-11-23 08:00:00",
          "20261123", "2026年11月23日", "2026-11-2x", "+026-11-23", "2026-02-29", "2026-13-01", "2026-00-10",
          "2026-04-31", "0099-01-01", "２０２６-11-23"})
        EXPECT_EQ(Date::read(text), std::nullopt) << text;
}

TEST(CalendarDay, IsWrittenAsItIsRead) {
    EXPECT_EQ((Date{2026, 1, 2}.text()), "2026-01-02");
    EXPECT_EQ((Date{476, 9, 4}.text()), "0476-09-04");
    EXPECT_EQ(Date().text(), "1900-01-01");
}

TEST(CalendarDay, ThatTheCalendarDoesNotHaveIsRefused) {
    const Date none{2026, 2, 29};
    EXPECT_FALSE(none.valid());
    EXPECT_FALSE((Date{2026, 0, 1}.valid()));
    EXPECT_FALSE((Date{10000, 1, 1}.valid()));
    EXPECT_FALSE((Date{0, 0, 0}.valid()));
    EXPECT_FALSE((Date{2026, std::numeric_limits<std::int32_t>::min(), 1}.valid()));
    EXPECT_TRUE((Date{2024, 2, 29}.valid()));
    EXPECT_THROW(none.text(), GridError);
    EXPECT_THROW(none.plusDays(1), GridError);
    EXPECT_THROW(none.daysSince(Date{2026, 1, 1}), GridError);
    EXPECT_THROW((Date{2026, 1, 1}.daysSince(none)), GridError);
    try {
        none.text();
    } catch (const GridError& error) {
        EXPECT_STREQ(error.what(), "Date.text: the calendar has no 2026-2-29");
    }
}

TEST(CalendarDay, IsCountedOverMonthsAndYears) {
    EXPECT_EQ((Date{2026, 11, 23}.plusDays(30)), (Date{2026, 12, 23}));
    EXPECT_EQ((Date{2024, 2, 28}.plusDays(1)), (Date{2024, 2, 29}));
    EXPECT_EQ((Date{2026, 1, 1}.plusDays(-1)), (Date{2025, 12, 31}));
    EXPECT_EQ((Date{2026, 3, 1}.daysSince(Date{2024, 3, 1})), 730);
    EXPECT_EQ((Date{2024, 3, 1}.daysSince(Date{2026, 3, 1})), -730);
    EXPECT_THROW((Date{9999, 12, 31}.plusDays(1)), GridError);
    EXPECT_THROW((Date{100, 1, 1}.plusDays(-1)), GridError);
    EXPECT_THROW((Date{2026, 1, 1}.plusDays(std::numeric_limits<std::int64_t>::max())), GridError);
}

TEST(CalendarDay, IsBeforeALaterOne) {
    EXPECT_LT((Date{2025, 12, 31}), (Date{2026, 1, 1}));
    EXPECT_LT((Date{2026, 1, 31}), (Date{2026, 2, 1}));
    EXPECT_GT((Date{2026, 1, 31}), (Date{2026, 1, 30}));
}

TEST(Moment, IsReadAndWrittenInOneForm) {
    const DateTime moment{2026, 11, 23, 8, 5, 9};
    EXPECT_EQ(moment.text(), "2026-11-23 08:05:09");
    EXPECT_EQ(DateTime::read("2026-11-23 08:05:09"), moment);
    EXPECT_EQ(DateTime::read("2026-11-23 23:59:59"), (DateTime{2026, 11, 23, 23, 59, 59}));
    for (const char* text :
         {"", "2026-11-23", "2026-11-23 8:05:09", "2026-11-23 08:05", "2026-11-23T08:05:09",
          "2026-11-23 24:00:00", "2026-11-23 08:60:00", "2026-02-29 08:00:00", " 2026-11-23 08:05:09",
          "2026-11-23 08:05:09 ", "2026-11-23 08:05:60"})
        EXPECT_EQ(DateTime::read(text), std::nullopt) << text;
    EXPECT_FALSE((DateTime{2026, 11, 23, 24, 0, 0}.valid()));
    EXPECT_FALSE((DateTime{2026, 11, 23, 0, -1, 0}.valid()));
    EXPECT_THROW((DateTime{2026, 11, 31, 0, 0, 0}.text()), GridError);
    EXPECT_LT(moment, (DateTime{2026, 11, 23, 8, 5, 10}));
}
}  // namespace
}  // namespace kxVsGrid
