// Short dates in checked date columns become whole ones.
#include <string>

#include "editing/DateOracle.h"
#include "editing/DateTexts.h"
#include "editing/InputFormsTest.h"
#include "kit/Random.h"
#include "support/Text.h"

namespace kxVsGrid::testing {
namespace {

class ShortDate : public InputFormsTest {};

TEST_F(ShortDate, IsWrittenInFullHoweverItIsEntered) {
    for (const Entry entry : Entries) {
        for (const std::int32_t col : {Day, Dated}) {
            EXPECT_EQ(entered(col, "20240105", entry), "2024-01-05") << entry;
            for (const char* typed : {"1-5", "1/5", "1月5日", "01-05", "1/05", " 1-5 "})
                EXPECT_EQ(entered(col, typed, entry), "2026-01-05") << typed << ' ' << entry;
            EXPECT_EQ(tag(2, col), "2026-01-05") << entry;
        }
        EXPECT_EQ(entered(Half, "1-5 上午", entry), "2026-01-05 上午") << entry;
        EXPECT_EQ(entered(Half, "20240105 下午", entry), "2024-01-05 下午") << entry;
        EXPECT_EQ(entered(Moment, "1月5日 8:5:9", entry), "2026-01-05 08:05:09") << entry;
        EXPECT_EQ(entered(Moment, "20240105 08:05:09", entry), "2024-01-05 08:05:09") << entry;
    }
}

TEST_F(ShortDate, IsOfTheYearThatTheClockShows) {
    EXPECT_EQ(entered(Day, "2-29"), "refused");
    desk.setNow(2028, 1, 1);
    EXPECT_EQ(entered(Day, "2-29"), "2028-02-29");
}

TEST_F(ShortDate, ThatIsNoneIsRefusedAndNothingIsLost) {
    for (const Entry entry : Entries) {
        for (const char* wrong : {"2月30日", "13-1", "0-5", "1-0", "2024010", "202401055", "20241301",
                                  "00000101", "1.5", "1月5", "1-5日", "1/5-", "-1-5", "1-5 8:05", "15"}) {
            grid.SetCell(2, Day, "2025-12-31", "old");
            EXPECT_FALSE(enter(Day, wrong, entry)) << wrong << ' ' << entry;
            EXPECT_EQ(desk.editor().text, wrong) << entry;
            EXPECT_EQ(text(2, Day) + tag(2, Day), "2025-12-31old") << wrong << ' ' << entry;
            if (entry != Entry::PastedOnto) {
                EXPECT_EQ(desk.messages(),
                          (std::vector<MessageBox>{{"非法公历日期!(格式:2026-11-20)", 64, "提示："}}));
            }
            desk.press(Key::Escape);
        }
        for (const char* wrong : {"1-5", "20240105", "1-5 晚上", "1-5上午"})
            EXPECT_EQ(entered(Half, wrong, entry), "refused") << wrong << ' ' << entry;
        EXPECT_EQ(entered(Moment, "1-5 8:05", entry), "refused") << entry;
    }
}

TEST_F(ShortDate, TakesATablePastedIntoTheEditorForNoDateAndLosesNothing) {
    grid.SetCell(2, Day, "2025-12-31", "old");
    EXPECT_FALSE(enter(Day, "1-5\t上午\n1-6\t下午", Entry::PastedInto));
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_NE(desk.editor().text.find("1-6"), std::string::npos);
    EXPECT_EQ(text(2, Day) + tag(2, Day), "2025-12-31old");
}

TEST_F(ShortDate, IsWrittenInFullWhereverATablePastedOntoTheCellHasIt) {
    at(2, Day);
    desk.clipboard("1-5\t1-5 上午\n13-1\t20240105 下午");
    EXPECT_TRUE(desk.run(Command::Paste));
    EXPECT_EQ(text(2, Day), "2026-01-05");
    EXPECT_EQ(text(2, Half), "2026-01-05 上午");
    EXPECT_EQ(text(3, Day), "");
    EXPECT_EQ(text(3, Half), "2024-01-05 下午");
    ASSERT_NE(grid.Mark(3, Day), nullptr);
    EXPECT_EQ(grid.Mark(3, Day)->kind, CellMark::Kind::Problem);
}

TEST_F(ShortDate, IsATextWhereDatesAreNotChecked) {
    column(Day).i有效性判断(0);
    for (const Entry entry : Entries) {
        EXPECT_EQ(entered(Day, "1-5", entry), "1-5") << entry;
        EXPECT_EQ(entered(1, "20240105", entry), "20240105") << entry;
    }
}

TEST_F(ShortDate, ThatStoodThereBeforeIsNotChecked) {
    fill(2, Day, "1-5");
    openAt(2, Day);
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, Day), "1-5");
}

TEST_F(ShortDate, OfWhatStandsThereAlreadyIsWrittenInFullToo) {
    for (const Entry entry : Entries) {
        fill(2, Day, "2026-01-05", "2026-01-05");
        EXPECT_TRUE(enter(Day, "1-5", entry));
        EXPECT_EQ(text(2, Day), "2026-01-05") << entry;
    }
}

TEST_F(ShortDate, IsJudgedByItsRulesInFull) {
    Lines judged;
    ColumnOptions& rules = grid.Options(Day);
    rules.pattern("[0-9]{4}-[0-9]{2}-[0-9]{2}");
    rules.mayRepeat(false);
    rules.accepts([&](std::int32_t, std::string_view text) {
        judged.emplace_back(text);
        return std::string();
    });
    grid.SetCell(4, Day, "2026-01-06");
    for (const Entry entry : Entries) {
        judged.clear();
        EXPECT_EQ(entered(Day, "1-5", entry), "2026-01-05") << entry;
        EXPECT_EQ(judged, (Lines{"2026-01-05"})) << entry;
        EXPECT_EQ(entered(Day, "1/6", entry), "refused") << "stands in row 4, " << entry;
    }
}

TEST_F(ShortDate, IsTakenBackInOneStep) {
    fill(2, Day, "2025-12-31", "2025-12-31");
    for (const Entry entry : Entries) {
        enter(Day, "1-5", entry);
        ASSERT_EQ(text(2, Day), "2026-01-05") << entry;
        desk.run(Command::Undo);
        EXPECT_EQ(text(2, Day), "2025-12-31") << entry;
    }
}

TEST_F(ShortDate, AmongRandomTextsIsWhatItsTwinSays) {
    kit::Random random(20260107);
    DateTexts texts(random);
    int taken = 0;
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        std::string typed = support::inOneLine(texts.next());
        if (typed.size() > 40 || typed.find_first_of("\t\b\x1b") != std::string::npos) continue;
        if (support::validBytes(typed) != typed.size() || support::trim(typed).empty()) continue;
        const auto form = random.between(0, 2);
        const auto expected = DateOracle::stored(static_cast<DateOracle::Form>(form), typed);
        const Entry entry = random.oneIn(2) ? Entry::Composed : Entry::PastedOnto;
        EXPECT_EQ(entered(Day + static_cast<std::int32_t>(form), typed, entry), expected.value_or("refused"))
            << typed << ' ' << entry;
        taken += expected ? 1 : 0;
    }
    EXPECT_GT(taken, 300);
}
}  // namespace
}  // namespace kxVsGrid::testing
