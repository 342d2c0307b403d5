// A typed text that has to be a date: alone, with its half of the day, or with its time.
#include <array>
#include <utility>

#include "editing/CheckTest.h"

namespace kxVsGrid::testing {
namespace {

struct Rewritten {
    std::string typed;
    std::string stored;
};

class DateCheck : public CheckTest {
  protected:
    void expectAccepted(std::int32_t col, const std::vector<Rewritten>& texts) {
        for (const auto& [typed, stored] : texts) {
            fill(2, col, "", "old tag");
            put(2, col, typed);
            desk.press(Key::Enter);
            EXPECT_EQ(boxes(), Boxes{}) << typed;
            EXPECT_FALSE(open()) << typed;
            EXPECT_EQ(text(2, col), stored) << typed;
            EXPECT_EQ(tag(2, col), stored) << typed;
            desk.press(Key::Escape);
        }
    }
    void expectRefusals(std::int32_t col, const Lines& texts) {
        for (const std::string& typed : texts) {
            fill(2, col, "old", "old tag");
            put(2, col, typed);
            desk.press(Key::Enter);
            EXPECT_EQ(boxes(), refusalBox(col)) << typed;
            expectRefused(2, col, typed);
            EXPECT_EQ(desk.editor().tag, "old tag");
            EXPECT_EQ(text(2, col), "old") << typed;
            EXPECT_EQ(tag(2, col), "old tag") << typed;
            desk.press(Key::Escape);
        }
    }
    static constexpr std::array<std::int32_t, 3> DateCols = {DateCol, HalfDayCol, TimeCol};
    /// A text that each form accepts and rewrites.
    static std::string loose(std::int32_t col) {
        return col == DateCol ? "2011-2-3" : col == HalfDayCol ? "2011-2-3 下午" : "2011-2-3 8:5:9";
    }
    static std::string fixed(std::int32_t col) {
        return col == DateCol ? "2011-02-03" : col == HalfDayCol ? "2011-02-03 下午" : "2011-02-03 08:05:09";
    }
};

TEST_F(DateCheck, WritesADateWithAllItsDigits) {
    expectAccepted(DateCol, {{"2011-2-3", "2011-02-03"},
                             {"2011-02-03", "2011-02-03"},
                             {"2011-12-31", "2011-12-31"},
                             {"2012-02-29", "2012-02-29"},
                             {"0100-1-1", "0100-01-01"},
                             {"9999-12-31", "9999-12-31"}});
}

TEST_F(DateCheck, ReadsDatesAsClerksWriteThem) {
    expectAccepted(DateCol, {{"2011/2/3", "2011-02-03"},
                             {"2011.2.3", "2011-02-03"},
                             {"2011年2月3日", "2011-02-03"},
                             {"11-2-3", "2011-02-03"},
                             {"29/12/31", "2029-12-31"},
                             {"30.1.1", "1930-01-01"},
                             {"99年12月31日", "1999-12-31"},
                             {" 2011-2-3 ", "2011-02-03"}});
}

TEST_F(DateCheck, DropsTheTimeFromADateAlone) {
    expectAccepted(DateCol, {{"2011-2-3 8:05", "2011-02-03"}, {"2011/2/3 23:59:59", "2011-02-03"}});
}

TEST_F(DateCheck, RefusesWhatIsNoDate) {
    expectRefusals(
        DateCol,
        {"2011-02-30", "2011-02-29", "2011-13-1", "2011-0-1",        "2011-1-0",         "2011-1-32",
         "2011",       "2011020",    "3.5",       "12:30",           "8:05:09",          "2011-2",
         "2011-2-",    "abc",        "下午",      "2011-02-03 下午", "2011-02-03 24:00", "2011-02-03x",
         "2011-2/3",   "0099-1-1",   "100-1-1",   "2011-2-3\t",      "２０１１-2-3",     "2011\xff-2-3"});
}

TEST_F(DateCheck, KeepsADateWithItsHalfOfTheDay) {
    expectAccepted(HalfDayCol, {{"2011-02-03 下午", "2011-02-03 下午"},
                                {"2011-02-03 上午", "2011-02-03 上午"},
                                {"2011-2-3 上午", "2011-02-03 上午"},
                                {"2011年2月3日 下午", "2011-02-03 下午"},
                                {"11/2/3 下午", "2011-02-03 下午"},
                                {"2011.12.31 上午", "2011-12-31 上午"},
                                {" 2011-2-3 上午 ", "2011-02-03 上午"}});
}

TEST_F(DateCheck, RefusesADateWithoutTheExactWordForItsHalfOfTheDay) {
    expectRefusals(HalfDayCol,
                   {"2011-02-03 晚上", "2011-02-03", "2011-02-03下午", "2011-02-03  下午", "2011-02-03 下",
                    "2011-02-03 下午好", "2011-02-03 上午下午", "2011-02-03 上 午", "2011-02-03 am",
                    "2011-02-03\t下午", "2011-02-03 12:30", "下午", "下午 2011-02-03", "上午 下午"});
}

TEST_F(DateCheck, RefusesAHalfDayOfADayThatDoesNotExist) {
    expectRefusals(HalfDayCol, {"2011-02-30 下午", "2011-2 上午", "abc 上午", "12:30 上午"});
}

TEST_F(DateCheck, WritesATimeWithAllItsDigits) {
    expectAccepted(TimeCol, {{"2011-2-3 8:5:9", "2011-02-03 08:05:09"},
                             {"2011-02-03 08:05:09", "2011-02-03 08:05:09"},
                             {"2011-02-03 0:0:0", "2011-02-03 00:00:00"},
                             {"2011-02-03 23:59:59", "2011-02-03 23:59:59"},
                             {"2011年2月3日 8:5:9", "2011-02-03 08:05:09"},
                             {"11/2/3 8:05:09", "2011-02-03 08:05:09"},
                             {" 2011-2-3 8:5:9 ", "2011-02-03 08:05:09"}});
}

TEST_F(DateCheck, ReadsHoursMinutesAndSecondsByTheNumberAtTheirStart) {
    expectAccepted(TimeCol, {{"2011-2-3 8h:5m:9s", "2011-02-03 08:05:09"},
                             {"2011-2-3 8:5:9 下午", "2011-02-03 08:05:09"},
                             {"2011-2-3  8: 5: 9", "2011-02-03 08:05:09"},
                             {"2011-2-3 008:005:009", "2011-02-03 08:05:09"},
                             {"2011-2-3 +8:5:9", "2011-02-03 08:05:09"},
                             {"2011-2-3 ::", "2011-02-03 00:00:00"},
                             {"2011-2-3 a:b:c", "2011-02-03 00:00:00"},
                             {"2011-2-3 8::", "2011-02-03 08:00:00"},
                             {"2011-2-3 -0:0:0", "2011-02-03 00:00:00"},
                             {"2011-2-3 1e1:2:3", "2011-02-03 10:02:03"}});
}

TEST_F(DateCheck, RefusesATimeOutOfItsBounds) {
    expectRefusals(TimeCol,
                   {"2011-02-03 24:00:00", "2011-02-03 23:60:00", "2011-02-03 23:59:60", "2011-02-03 -1:0:0",
                    "2011-02-03 0:-1:0", "2011-02-03 0:0:-1", "2011-02-03 23.5:0:0", "2011-02-03 0:59.5:0",
                    "2011-02-03 0:0:59.01", "2011-02-03 -0.5:0:0", "2011-02-03 99999999999999999999:0:0",
                    "2011-02-03 1e300:0:0", "2011-02-03 1e999:0:0", "2011-02-03 0:4294967296:0"});
}

TEST_F(DateCheck, RefusesATimeWithoutItsTwoColons) {
    expectRefusals(TimeCol, {"2011-02-03 12:30", "2011-02-03 12", "2011-02-03", "2011-02-03 120000",
                             "2011-02-03 12：30：00", "2011-02-03 下午", "2011-02-0312:30:00", "12:30:00",
                             "2011-02-03T12:30:00", "2011-02-03\t12:30:00"});
}

TEST_F(DateCheck, RefusesATimeOfADayThatDoesNotExist) {
    expectRefusals(TimeCol, {"2011-02-30 12:30:00", "2011-2 12:30:00", "abc 12:30:00", "0:0:0 0:0:0"});
}

TEST_F(DateCheck, ShowsTheClockInTheFormOfTheColumn) {
    struct Shown {
        DateTime now;
        const char *date, *halfDay, *time;
    };
    for (const Shown& at : {
             Shown{{2026, 11, 20, 9, 30, 5}, "2026-11-20", "2026-11-20 上午", "2026-11-20 09:30:05"},
             Shown{{2027, 1, 2, 0, 0, 0}, "2027-01-02", "2027-01-02 上午", "2027-01-02 00:00:00"},
             Shown{{2027, 1, 2, 11, 59, 59}, "2027-01-02", "2027-01-02 上午", "2027-01-02 11:59:59"},
             Shown{{2027, 1, 2, 12, 0, 0}, "2027-01-02", "2027-01-02 下午", "2027-01-02 12:00:00"},
             Shown{{2028, 2, 29, 23, 59, 59}, "2028-02-29", "2028-02-29 下午", "2028-02-29 23:59:59"},
             Shown{{123, 4, 5, 13, 7, 8}, "0123-04-05", "0123-04-05 下午", "0123-04-05 13:07:08"},
         }) {
        desk.setNow(at.now.year, at.now.month, at.now.day, at.now.hour, at.now.minute, at.now.second);
        for (const auto& [col, example] :
             {std::pair{DateCol, at.date}, std::pair{HalfDayCol, at.halfDay}, std::pair{TimeCol, at.time}}) {
            put(2, col, "x");
            desk.press(Key::Enter);
            EXPECT_EQ(boxes(), dateBox(example));
            desk.press(Key::Escape);
        }
    }
}

TEST_F(DateCheck, ShowsAnExampleThatItAcceptsItself) {
    for (const std::int32_t col : DateCols) {
        put(2, col, "x");
        desk.press(Key::Enter);
        const std::string message = boxes().at(0).text;
        const std::string before = "非法公历日期!(格式:";
        const std::string example = message.substr(before.size(), message.size() - before.size() - 1);
        desk.press(Key::Escape);
        expectAccepted(col, {{example, example}});
    }
}

TEST_F(DateCheck, AsksTheClockAtEveryRefusal) {
    put(2, DateCol, "x");
    desk.press(Key::Enter);
    desk.setNow(2026, 11, 21);
    desk.type("y").press(Key::Enter);
    EXPECT_EQ(boxes(), (Boxes{dateBox("2026-11-20")[0], dateBox("2026-11-21")[0]}));
}

TEST_F(DateCheck, ShowsNeitherTheMessageOfTheColumnNorAsksTheHost) {
    for (const std::int32_t col : DateCols) {
        column(col).s错误提示信息("unused");
        put(2, col, "x");
        desk.press(Key::Enter);
        EXPECT_EQ(boxes(), refusalBox(col));
        EXPECT_EQ(heard(), Lines{});
        desk.press(Key::Escape);
    }
}

TEST_F(DateCheck, LetsAnEmptyTextPassWhichEmptiesTextAndTag) {
    for (const std::int32_t col : DateCols)
        for (const auto type : {flexDTString, flexDTDate, flexDTEmpty})
            for (const char* empty : {"", "   "}) {
                typed(col, type);
                fill(2, col, "2011-02-03", "old tag");
                put(2, col, empty);
                desk.press(Key::Enter);
                EXPECT_EQ(boxes(), Boxes{});
                EXPECT_FALSE(open());
                EXPECT_EQ(text(2, col), "") << col << ", type " << type;
                EXPECT_EQ(tag(2, col), "");
            }
}

TEST_F(DateCheck, IsNotMadeForTheTextThatTheCellHadOnEntry) {
    for (const std::int32_t col : DateCols) {
        fill(2, col, "2011-02-30", "old tag");
        put(2, col, " 2011-02-30 ");
        desk.press(Key::Enter);
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_EQ(text(2, col), "2011-02-30");
        EXPECT_EQ(tag(2, col), "old tag");
    }
}

TEST_F(DateCheck, IsSwitchedOffByAZero) {
    for (const std::int32_t col : DateCols) {
        column(col).i有效性判断(0);
        put(2, col, "2011-2-3");
        desk.press(Key::Enter);
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_EQ(text(2, col), "2011-2-3");
        EXPECT_EQ(tag(2, col), "");
    }
}

TEST_F(DateCheck, RewritesTextsOfEveryTypeThatKeepsTexts) {
    for (const std::int32_t col : DateCols)
        for (const auto type : {flexDTString, flexDTDate, flexDTEmpty}) {
            typed(col, type);
            expectAccepted(col, {{loose(col), fixed(col)}, {fixed(col), fixed(col)}});
        }
}

TEST_F(DateCheck, ComesBeforeTheCommitWhichComesOnce) {
    for (const std::int32_t col : DateCols) {
        put(2, col, loose(col));
        EXPECT_TRUE(grid.ValidTextData());
        EXPECT_EQ(heard(), changed(2, col) + changed(2, col) + edited(2, col));
        EXPECT_TRUE(grid.bIsDirty());
        EXPECT_EQ(grid.ReadCell(2, col, true), fixed(col));
        EXPECT_EQ(grid.ReadCell(2, col), fixed(col));
    }
}

TEST_F(DateCheck, RewritesTheEditorBeforeTheHostHearsOfTheEdit) {
    for (const std::int32_t col : DateCols) {
        put(2, col, loose(col));
        std::string seenText;
        std::string seenTag;
        Connection once = grid.AfterEdit.connect([&](std::int32_t, std::int32_t) {
            seenText = grid.Text();
            seenTag = grid.TextTag();
        });
        desk.press(Key::Enter);
        once.disconnect();
        EXPECT_EQ(seenText, fixed(col));
        EXPECT_EQ(seenTag, fixed(col));
    }
}

TEST_F(DateCheck, ReadsATextWithLineEndsAfterEnterHasTakenThemOut) {
    put(2, DateCol, "2011-\r\n2-3\n");
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, DateCol), "2011-02-03");
}

TEST_F(DateCheck, RefusesLineEndsThatAreNotTakenOut) {
    put(2, DateCol, "2011-2-3\n");
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(boxes(), refusalBox(DateCol));
    expectRefused(2, DateCol, "2011-2-3");
}

TEST_F(DateCheck, KeepsTheSameDayThroughTheDayAndTheTimeOfEveryForm) {
    for (const std::int32_t col : DateCols) {
        put(2, col, loose(col));
        desk.press(Key::Enter);
        const std::string once = text(2, col);
        put(3, col, once);
        desk.press(Key::Enter);
        EXPECT_EQ(text(3, col), once);
        EXPECT_EQ(tag(3, col), once);
    }
}

}  // namespace
}  // namespace kxVsGrid::testing
