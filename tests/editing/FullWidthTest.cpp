// Full-width signs in columns of numbers and dates: whatever an input method types there is what it means.
#include <string>

#include "editing/InputFormsTest.h"
#include "kit/Random.h"
#include "kxVsGrid/Platform.h"
#include "support/Text.h"

namespace kxVsGrid::testing {
namespace {

class FullWidth : public InputFormsTest {
  protected:
    /// Another table than the code's, kept apart from it.
    static std::string plain(std::string text) {
        static constexpr std::pair<const char*, const char*> Table[] = {
            {"０", "0"}, {"１", "1"}, {"２", "2"}, {"３", "3"}, {"４", "4"}, {"５", "5"},
            {"６", "6"}, {"７", "7"}, {"８", "8"}, {"９", "9"}, {"．", "."}, {"。", "."},
            {"，", ","}, {"－", "-"}, {"ー", "-"}, {"＋", "+"}, {"×", "*"},  {"÷", "/"},
            {"（", "("}, {"）", ")"}, {"％", "%"}, {"：", ":"}, {"／", "/"},
        };
        for (const auto& [from, to] : Table)
            for (std::size_t at; (at = text.find(from)) != std::string::npos;)
                text.replace(at, std::string(from).size(), to);
        return text;
    }
};

TEST_F(FullWidth, NumbersAndExpressionsAreTakenHoweverTheyAreEntered) {
    for (const Entry entry : Entries) {
        EXPECT_EQ(entered(Plain, "-３×（２＋１）", entry), "-9") << entry;
        EXPECT_EQ(entered(Plain, "19。5", entry), "19.5") << entry;
        EXPECT_EQ(entered(Plain, "ー１２．５÷２", entry), "-6.25") << entry;
        EXPECT_EQ(entered(Grouped, "１，２３４．５０", entry), "1234.5") << entry;
        EXPECT_EQ(entered(Percent, "１２％", entry), "0.12") << entry;
        EXPECT_EQ(entered(Plain, "１，２３４", entry), "refused") << entry;
        EXPECT_EQ(entered(Plain, "１２％", entry), "refused") << entry;
    }
}

TEST_F(FullWidth, DatesAreTakenHoweverTheyAreEntered) {
    for (const Entry entry : Entries) {
        EXPECT_EQ(entered(Day, "２０２４－１－５", entry), "2024-01-05") << entry;
        EXPECT_EQ(entered(Day, "２０２４。１。５", entry), "2024-01-05") << entry;
        EXPECT_EQ(entered(Day, "１／５", entry), "2026-01-05") << entry;
        EXPECT_EQ(entered(Day, "１月５日", entry), "2026-01-05") << entry;
        EXPECT_EQ(entered(Day, "２０２４０１０５", entry), "2024-01-05") << entry;
        EXPECT_EQ(entered(Half, "２０２４年１月５日 下午", entry), "2024-01-05 下午") << entry;
        EXPECT_EQ(entered(Moment, "２０２４ー１ー５ ８：５：９", entry), "2024-01-05 08:05:09") << entry;
        EXPECT_EQ(entered(Dated, "２０２４－１－５", entry), "2024-01-05") << entry;
        EXPECT_EQ(entered(Day, "２０２４，１，５", entry), "refused") << entry;
    }
}

TEST_F(FullWidth, SignsShowAsTheirAsciiSelvesAtOnce) {
    at(2, Plain);
    desk.type("３");
    EXPECT_EQ(desk.editor().text, "3") << "the character that opens the editor";
    EXPECT_EQ(desk.editor().selStart, 1U);
    desk.type("×，");
    EXPECT_EQ(desk.editor().text, "3*,");
    desk.compose("２").commitComposition("２％");
    EXPECT_EQ(desk.editor().text, "3*,2%");
    EXPECT_TRUE(grid.editorView().plainSigns);
    EXPECT_EQ(grid.Text(), "3*,2%");
    openAt(3, Day);
    desk.type("１，２");
    EXPECT_EQ(desk.editor().text, "1,2");
}

TEST_F(FullWidth, SignsKeepTheCaretWhereItIs) {
    openAt(2, Plain);
    desk.type("12").press(Key::Left).type("３（");
    EXPECT_EQ(desk.editor().text, "13(2");
    EXPECT_EQ(desk.editor().selStart, 3U);
    EXPECT_EQ(desk.editor().selLength, 0U);
    desk.select(1, 2).type("。");
    EXPECT_EQ(desk.editor().text, "1.2");
    EXPECT_EQ(desk.editor().selStart, 2U);
}

TEST_F(FullWidth, TextsOfAMachineThatShowsThemAsTypedAreShownAnew) {
    openAt(2, Plain);
    const auto input = grid.input();
    input->edited("１２３", 2, 1);
    EXPECT_EQ(desk.editor().text, "123");
    EXPECT_EQ(desk.editor().selStart, 2U);
    EXPECT_EQ(desk.editor().selLength, 1U);
    input->edited("12３", 3, 0);
    EXPECT_EQ(desk.editor().text, "123") << "shown anew though it is the text of before";
    EXPECT_EQ(desk.editor().selStart, 3U);
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, Plain), "123");
}

TEST_F(FullWidth, SignsStayInColumnsOfText) {
    const std::string all = "１２。，－×（２）％：／ー";
    column(1).i有效性判断(1);
    for (const Entry entry : Entries) EXPECT_EQ(entered(1, all, entry), all) << entry;
    column(1).i字段有效性判断类型(ij编码型);
    knowCodes([](const std::string& typed) { return std::optional("货" + typed); });
    for (const Entry entry : Entries) EXPECT_EQ(entered(1, all, entry), all) << entry;
    EXPECT_FALSE(grid.editorView().plainSigns);
    grid.input()->edited("１", 1, 0);
    EXPECT_EQ(grid.Text(), all) << "no editor is open";
}

TEST_F(FullWidth, TextsThatCodeSetsAreNotTouched) {
    grid.Grid().Text(2, Plain, "１２");
    openAt(2, Plain);
    EXPECT_EQ(desk.editor().text, "１２");
    desk.press(Key::Home);
    EXPECT_EQ(desk.editor().text, "１２");
    grid.Text("３４");
    EXPECT_EQ(desk.editor().text, "３４");
    desk.press(Key::Escape);
    EXPECT_EQ(text(2, Plain), "１２");
    grid.SetCell(2, 1, "５", "６");
    EXPECT_EQ(text(2, 1) + tag(2, 1), "５６");
}

TEST_F(FullWidth, SignsCountForTheLimitAsBefore) {
    column(Plain).iLimitLength(3);
    openAt(2, Plain);
    desk.type("１２３４");
    EXPECT_EQ(desk.editor().text, "123");
    desk.press(Key::Escape);
    desk.clipboard("１２３４");
    desk.run(Command::Paste);
    EXPECT_EQ(text(2, Plain), "");
    EXPECT_EQ(desk.tips().back(), "最多 3 个字。");
    desk.clipboard("１２３");
    desk.run(Command::Paste);
    EXPECT_EQ(text(2, Plain), "123");
}

TEST_F(FullWidth, EntriesAreTakenBackInOneStep) {
    fill(2, Plain, "7");
    for (const Entry entry : Entries) {
        enter(Plain, "３×２", entry);
        ASSERT_EQ(text(2, Plain), "6") << entry;
        desk.run(Command::Undo);
        EXPECT_EQ(text(2, Plain), "7") << entry;
        desk.run(Command::Redo);
        EXPECT_EQ(text(2, Plain), "6") << entry;
        desk.run(Command::Undo);
    }
}

TEST_F(FullWidth, TypingIsTakenBackInTheEditorSignBySign) {
    openAt(2, Plain);
    desk.type("１２");
    desk.press('Z', CtrlKey);
    EXPECT_EQ(desk.editor().text, "1");
    desk.press('Y', CtrlKey);
    EXPECT_EQ(desk.editor().text, "12");
}

TEST_F(FullWidth, RandomTextsAreTheirPlainTwins) {
    kit::Random random(20260105);
    static constexpr const char* Pieces[] = {
        "０", "１", "２", "３", "４", "５", "６", "７", "８", "９", "．", "。", "，", "－", "ー", "＋", "×",
        "÷",  "（", "）", "％", "：", "／", "1",  "2",  "+",  "(",  ")",  ".",  "货", " ",  "月", "日", "😀"};
    for (int i = 0; i < 800 && !HasFailure(); ++i) {
        std::string raw;
        for (auto n = random.between(1, 8); n > 0; --n)
            raw += Pieces[random.between(0, static_cast<std::int64_t>(std::size(Pieces)) - 1)];
        const auto col = static_cast<std::int32_t>(random.between(Plain, Dated));
        const Entry entry = Entries[random.between(0, 3)];
        EXPECT_EQ(entered(col, raw, entry), entered(col, plain(raw), entry))
            << raw << " in " << col << ' ' << entry;
        openAt(3, col);
        desk.type(raw);
        EXPECT_EQ(desk.editor().text, plain(raw));
        EXPECT_EQ(desk.editor().selStart, support::characters(raw));
        desk.press(Key::Escape);
        const std::string kept(support::trim(raw));
        if (!kept.empty()) {
            EXPECT_EQ(entered(1, raw, entry), kept) << entry;
        }
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
