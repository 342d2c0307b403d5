// Numbers as the format of their column shows them: in groups, in percent.
#include <regex>
#include <string>

#include "editing/InputFormsTest.h"
#include "kit/Random.h"

namespace kxVsGrid::testing {
namespace {

class FormattedNumber : public InputFormsTest {
  protected:
    /// What a plain column would have to be given instead, found by the outline of the text.
    static std::string plainTwin(std::string text, bool groups, bool percent) {
        static const std::regex InGroups("[-+]?[0-9]{1,3}(,[0-9]{3})+([.][0-9]*)?");
        static const std::regex Number("[-+]?([0-9]+[.]?[0-9]*|[.][0-9]+)");
        const std::string raw = text;
        const bool hundredth = percent && !text.empty() && text.back() == '%';
        if (hundredth) text.pop_back();
        if (groups && std::regex_match(text, InGroups)) std::erase(text, ',');
        if (!hundredth) return text;
        return std::regex_match(text, Number) ? shifted(text) : raw;
    }
    /// The point two places to the left.
    static std::string shifted(std::string number) {
        std::string sign;
        if (number[0] == '-' || number[0] == '+') {
            sign = number[0];
            number.erase(0, 1);
        }
        std::size_t point = number.find('.');
        if (point == std::string::npos) point = number.size();
        if (point < number.size()) number.erase(point, 1);
        number.insert(0, "00");
        return sign + number.insert(point, ".");
    }
};

TEST_F(FormattedNumber, IsReadInGroupsWhereTheFormatGroups) {
    for (const Entry entry : Entries) {
        EXPECT_EQ(entered(Grouped, "1,234", entry), "1234") << entry;
        EXPECT_EQ(entered(Grouped, "1,234.5", entry), "1234.5") << entry;
        EXPECT_EQ(entered(Grouped, "1,234.50", entry), "1234.5") << entry;
        EXPECT_EQ(entered(Grouped, "-1,234,567.25", entry), "-1234567.25") << entry;
        EXPECT_EQ(entered(Grouped, " 1,234 ", entry), "1234") << entry;
        for (const char* wrong :
             {"1,5", "1,23", "1,2345", "1234,567", "1,234,5", ",123", "1,,234", "1+1,234", "1,234%"})
            EXPECT_EQ(entered(Grouped, wrong, entry), "refused") << wrong << ' ' << entry;
        for (const std::int32_t col : {Plain, Percent})
            EXPECT_EQ(entered(col, "1,234", entry), "refused") << col << ' ' << entry;
    }
}

TEST_F(FormattedNumber, IsReadInPercentWhereTheFormatShowsPercent) {
    for (const Entry entry : Entries) {
        EXPECT_EQ(entered(Percent, "12%", entry), "0.12") << entry;
        EXPECT_EQ(entered(Percent, "-12.5%", entry), "-0.125") << entry;
        EXPECT_EQ(entered(Percent, "0.07%", entry), "0.0007") << entry;
        EXPECT_EQ(entered(Percent, "100%", entry), "1") << entry;
        EXPECT_EQ(entered(Percent, "12", entry), "12") << "a plain number is itself, " << entry;
        EXPECT_EQ(entered(Both, "1,234.5%", entry), "12.345") << entry;
        EXPECT_EQ(entered(Both, "1,234", entry), "1234") << entry;
        for (const char* wrong : {"%", "12%%", "1+2%", "2*3%", "(3)%", "1,5%", "%12", "12 %", "--1%"})
            EXPECT_EQ(entered(Both, wrong, entry), "refused") << wrong << ' ' << entry;
        for (const std::int32_t col : {Plain, Grouped})
            EXPECT_EQ(entered(col, "12%", entry), "refused") << col << ' ' << entry;
    }
    EXPECT_EQ(grid.Grid().DisplayText(2, Percent), "1200.0%");
}

TEST_F(FormattedNumber, ThatIsRefusedIsNotLostAndSaysWhy) {
    EXPECT_FALSE(enter(Grouped, "１，５"));
    EXPECT_EQ(desk.editor().text, "1,5");
    EXPECT_EQ(desk.editor().tip, "第 2 个字符：千位逗号的位置不对");
    EXPECT_EQ(desk.messages(), std::vector<MessageBox>{});
    desk.press(Key::Escape);
    PasteReport report;
    grid.Commands().Reported.connect([&](const PasteReport& last) { report = last; });
    at(2, Plain);
    desk.clipboard("12%\n3\n1,5\n");
    desk.run(Command::Paste);
    ASSERT_EQ(report.refusals.size(), 2U);
    EXPECT_EQ(report.refusals[0].reason, "第 3 个字符：此栏不用百分号");
    EXPECT_EQ(report.refusals[1].reason, "第 2 个字符：无法识别“,”");
}

TEST_F(FormattedNumber, IsJudgedByItsRulesAsTheNumberThatItIs) {
    grid.Options(Percent).largest(0.5);
    grid.Options(Percent).mostDecimals(2);
    EXPECT_EQ(entered(Percent, "50%"), "0.5");
    EXPECT_EQ(entered(Percent, "51%"), "refused");
    EXPECT_EQ(entered(Percent, "1.5%"), "refused");
    grid.Options(Grouped).largest(1000);
    EXPECT_EQ(entered(Grouped, "1,000"), "1000");
    EXPECT_EQ(entered(Grouped, "1,001"), "refused");
}

TEST_F(FormattedNumber, InRandomTextsIsItsPlainTwin) {
    kit::Random random(20260106);
    int taken = 0;
    for (int i = 0; i < 800 && !HasFailure(); ++i) {
        std::string text = random.oneIn(3) ? std::string(1, random.anyOf("-+")) : "";
        text += std::to_string(random.between(0, random.oneIn(2) ? 9 : 999));
        for (auto n = random.between(0, 2); n > 0; --n)
            text += "," + std::to_string(random.between(100, 999));
        if (random.oneIn(2)) text += "." + std::to_string(random.between(0, 999));
        if (random.oneIn(2)) text += '%';
        for (auto n = random.between(0, 5) - 3; n > 0; --n) {
            const auto at =
                static_cast<std::size_t>(random.between(0, static_cast<std::int64_t>(text.size())));
            random.oneIn(2) ? text.insert(at, 1, random.anyOf("0123,,..%%+- ")) : text.erase(at, 1);
        }
        const std::string trimmed =
            text.find_first_not_of(' ') == std::string::npos
                ? std::string()
                : text.substr(text.find_first_not_of(' '),
                              text.find_last_not_of(' ') - text.find_first_not_of(' ') + 1);
        if (trimmed.empty()) continue;
        for (const std::int32_t col : {Plain, Grouped, Percent, Both}) {
            const bool groups = col == Grouped || col == Both;
            const bool percent = col == Percent || col == Both;
            const std::string expected = entered(Plain, plainTwin(trimmed, groups, percent));
            EXPECT_EQ(entered(col, text, Entries[random.between(0, 3)]), expected) << text << " in " << col;
            taken += expected != "refused" ? 1 : 0;
        }
    }
    EXPECT_GT(taken, 400);
}
}  // namespace
}  // namespace kxVsGrid::testing
