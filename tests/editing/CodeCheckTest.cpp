// A typed text that has to be a known code: the host is asked, and what it returns goes into the cell.
#include "editing/CheckTest.h"

namespace kxVsGrid::testing {
namespace {

class CodeCheck : public CheckTest {
  protected:
    /// The question that a text leads to; the text is committed by ValidTextData, which keys cannot clean.
    std::string questionFor(std::string_view text) {
        put(2, CodeCol, text);
        grid.ValidTextData();
        const Lines questions = named(heard(), "TxtValidBmS");
        EXPECT_EQ(questions.size(), 1u);
        return questions.empty() ? "" : questions[0];
    }
    void commit(std::int32_t row, std::int32_t col, std::string_view typed) {
        openAt(row, col);
        forget();
        desk.type(typed).press(Key::Enter);
    }
    void expectStored(std::int32_t row, const std::string& display, const std::string& data) {
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_FALSE(open());
        EXPECT_EQ(text(row, CodeCol), display);
        EXPECT_EQ(tag(row, CodeCol), data);
    }
};

TEST_F(CodeCheck, AsksTheHostWithTheQueryBothFieldsTheTextAndTwoEmptyAnswers) {
    put(2, CodeCol, "A1");
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked("A1"));
}

TEST_F(CodeCheck, AsksWithEmptyAnswersAlsoAfterAnEarlierAnswer) {
    knowCodes();
    commit(2, CodeCol, "A1");
    commit(3, CodeCol, "A2");
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked("A2"));
}

TEST_F(CodeCheck, AsksWithTheDefinitionOfTheCurrentColumn) {
    judge(1, ij编码型);
    commit(2, 1, "A1");
    const std::string empty;
    EXPECT_EQ(named(heard(), "TxtValidBmS"),
              Lines{line("TxtValidBmS", empty, empty, empty, std::string("A1"), empty, empty)});
}

TEST_F(CodeCheck, CutsEveryLineEndFromTheEndOfTheTextThatTheHostSees) {
    for (const char* typed : {"A1\n", "A1\r", "A1\r\n", "A1\n\r", "A1\n\n\r\r\n"})
        EXPECT_EQ(questionFor(typed), asked("A1")[0]) << typed;
    EXPECT_EQ(questionFor("\r\n"), asked("")[0]);
}

TEST_F(CodeCheck, CutsLineEndsOnlyFromTheEnd) {
    EXPECT_EQ(questionFor("\nA1"), asked("\nA1")[0]);
    EXPECT_EQ(questionFor("A\r\n1\n"), asked("A\r\n1")[0]);
    EXPECT_EQ(questionFor("A1\n "), asked("A1\n ")[0]);
    EXPECT_EQ(questionFor("A1\n \n"), asked("A1\n ")[0]);
}

TEST_F(CodeCheck, CutsNothingElse) {
    EXPECT_EQ(questionFor(" A1 "), asked(" A1 ")[0]);
    EXPECT_EQ(questionFor("A1\t"), asked("A1\t")[0]);
    EXPECT_EQ(questionFor("货 品"), asked("货 品")[0]);
    EXPECT_EQ(questionFor("A\xff\xe8"), asked("A\xff\xe8")[0]);
}

TEST_F(CodeCheck, SeesATextFromWhichEnterHasTakenAllLineEnds) {
    put(2, CodeCol, "A\r\n1\n");
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked("A1"));
}

TEST_F(CodeCheck, OfAColumnOfSeveralLinesSeesTheLinesThatWereTyped) {
    column(CodeCol).b是否编辑多行(true);
    openAt(2, CodeCol);
    desk.type("A").press(Key::Enter).type("1").press(Key::Enter);
    heard();
    desk.focusElsewhere();
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked("A\n1"));
}

TEST_F(CodeCheck, ShowsTheCodeAndKeepsTheNameInTheTagWhenTheTextIsTheCode) {
    column(CodeCol).i帮助返回值显示类型(iText记Code);
    answer("A001", "螺栓");
    commit(2, CodeCol, "a1");
    expectStored(2, "A001", "螺栓");
}

TEST_F(CodeCheck, ShowsTheNameAndKeepsTheCodeInTheTagWhenTheTextIsTheName) {
    column(CodeCol).i帮助返回值显示类型(iText记Name);
    answer("A001", "螺栓");
    commit(2, CodeCol, "a1");
    expectStored(2, "螺栓", "A001");
}

TEST_F(CodeCheck, ShowsTheCodeInAColumnThatSaysNothingAboutIt) {
    EXPECT_EQ(cVsControl().i帮助返回值显示类型(), iText记Code);
    answer("A001", "螺栓");
    commit(2, CodeCol, "a1");
    expectStored(2, "A001", "螺栓");
}

TEST_F(CodeCheck, AcceptsANameWithoutACode) {
    answer("", "螺栓");
    column(CodeCol).i帮助返回值显示类型(iText记Name);
    fill(2, CodeCol, "old", "old tag");
    commit(2, CodeCol, "a1");
    expectStored(2, "螺栓", "");
    column(CodeCol).i帮助返回值显示类型(iText记Code);
    fill(3, CodeCol, "old", "old tag");
    commit(3, CodeCol, "a1");
    expectStored(3, "", "螺栓");
}

TEST_F(CodeCheck, TakesANameOfBlanksForAName) {
    answer("A001", " ");
    commit(2, CodeCol, "a1");
    expectStored(2, "A001", " ");
}

TEST_F(CodeCheck, RefusesACodeWithoutAName) {
    answer("A001", "");
    put(2, CodeCol, "A1");
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), codeBox());
    expectRefused(2, CodeCol, "A1");
    EXPECT_EQ(desk.editor().tag, "");
}

TEST_F(CodeCheck, RefusesEveryTextWhenNobodyAnswers) {
    for (const char* typed : {"A1", "0", "货"}) {
        put(2, CodeCol, typed);
        desk.press(Key::Enter);
        EXPECT_EQ(boxes(), codeBox()) << typed;
        expectRefused(2, CodeCol, typed);
    }
}

TEST_F(CodeCheck, AsksAboutAnEmptyTextLikeAnyOther) {
    fill(2, CodeCol, "A1", "tag");
    put(2, CodeCol, "");
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked(""));
    EXPECT_EQ(boxes(), codeBox());
    expectRefused(2, CodeCol, "");
    EXPECT_EQ(text(2, CodeCol), "A1");
    EXPECT_EQ(tag(2, CodeCol), "tag");
    desk.press(Key::Escape);
    answer("", "(none)");
    put(2, CodeCol, "");
    desk.press(Key::Enter);
    expectStored(2, "", "(none)");
}

TEST_F(CodeCheck, StoresWhatTheHostReturnedAsTheTypeOfTheColumnHasIt) {
    answer(" 2*3 ", "六");
    commit(2, CodeCol, "a");
    expectStored(2, "2*3", "六");
    typed(CodeCol, flexDTEmpty);
    commit(3, CodeCol, "a");
    expectStored(3, " 2*3 ", "六");
    typed(CodeCol, flexDTDouble);
    commit(4, CodeCol, "a");
    expectStored(4, "6", "六");
}

TEST_F(CodeCheck, IsNotCutToTheLengthThatCanBeTyped) {
    column(CodeCol).iLimitLength(2);
    answer("A00001", "螺栓");
    commit(2, CodeCol, "a1");
    expectStored(2, "A00001", "螺栓");
}

TEST_F(CodeCheck, ComesBeforeTheCommitWhichComesOnce) {
    knowCodes();
    put(2, CodeCol, "A1");
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), asked("A1") + changed(2, CodeCol) + changed(2, CodeCol) + edited(2, CodeCol) +
                           moves(2, CodeCol, 2, CodeCol + 1));
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(CodeCheck, ComesBeforeTheQuestionForARow) {
    knowCodes();
    put(5, CodeCol, "A1");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(heard(), asked("A1") + changed(5, CodeCol) + changed(5, CodeCol) + edited(5, CodeCol) +
                           asksForRow(5, false));
}

TEST_F(CodeCheck, IsMadeByAHostThatReadsOrWritesCells) {
    knowCodes();
    put(2, CodeCol, "A1");
    EXPECT_EQ(grid.ReadCell(2, CodeCol, true), "A1");
    EXPECT_EQ(grid.ReadCell(2, CodeCol), "货 A1");
    put(3, CodeCol, "X1");
    grid.SetCell(4, 1, "written");
    EXPECT_EQ(boxes(), codeBox());
    EXPECT_EQ(text(4, 1), "written");
    expectRefused(3, CodeCol, "X1");
}

TEST_F(CodeCheck, IsNotMadeWhileARuleOfTheColumnRefuses) {
    knowCodes();
    column(CodeCol).sName("货号");
    column(CodeCol).i是否允许为空(i字段不能为空);
    put(2, CodeCol, "X1");
    EXPECT_FALSE(grid.ValidTextData()) << "the tag of a code just typed is still empty";
    EXPECT_EQ(boxes(), box("货号不能为空!", 64, "提示："));
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(desk.editor().refused);
    forget();
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), codeBox()) << "the rule has not taken the place of the check";
}

TEST_F(CodeCheck, IsSwitchedOffByAZero) {
    column(CodeCol).i有效性判断(0);
    fill(2, CodeCol, "", "tag");
    put(2, CodeCol, "X1");
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines{});
    expectStored(2, "X1", "tag");
}

TEST_F(CodeCheck, IsSwitchedOnByAnyOtherNumber) {
    for (const int on : {1, -1, 2, 32767, -32768}) {
        column(CodeCol).i有效性判断(static_cast<std::int16_t>(on));
        put(2, CodeCol, "X1");
        desk.press(Key::Enter);
        EXPECT_EQ(boxes(), codeBox()) << on;
        desk.press(Key::Escape);
    }
}

TEST_F(CodeCheck, IsNotMadeForOtherJudgeTypes) {
    EXPECT_EQ(cVsControl().i有效性判断(), 0);
    EXPECT_EQ(cVsControl().i字段有效性判断类型(), 0);
    for (const int type : {0, 3, 6, 7, -1, 255}) {
        judge(CodeCol, static_cast<gEmJudgeType>(type));
        fill(2, CodeCol, "", "tag");
        put(2, CodeCol, "2011-02-30");
        desk.press(Key::Enter);
        EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines{}) << type;
        expectStored(2, "2011-02-30", "tag");
    }
}

TEST_F(CodeCheck, IsNotMadeForTheTextThatTheCellHadOnEntryButForBlanks) {
    fill(2, CodeCol, "X1", "tag");
    put(2, CodeCol, "  X1 ");
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines{});
    expectStored(2, "X1", "tag");
}

TEST_F(CodeCheck, IsMadeForATextWhoseEntryTextHasBlanksAround) {
    fill(2, CodeCol, " A1", "tag");
    put(2, CodeCol, " A1 ");
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked(" A1 ")) << "only the typed text is trimmed";
}

TEST_F(CodeCheck, ShowsTheMessageOfTheColumnAsItStandsWhenTheHostHasAnswered) {
    column(CodeCol).s错误提示信息("");
    put(2, CodeCol, "X1");
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), box("", 16, "错误："));
    desk.press(Key::Escape);
    whenAsked([&] { column(CodeCol).s错误提示信息("货号\nX2 已停用"); });
    put(2, CodeCol, "X2");
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), box("货号\nX2 已停用", 16, "错误："));
}

TEST_F(CodeCheck, WritesBackAsTheColumnSaysWhenTheHostHasAnswered) {
    answer("A001", "螺栓");
    whenAsked([&] { column(CodeCol).i帮助返回值显示类型(iText记Name); });
    commit(2, CodeCol, "a1");
    expectStored(2, "螺栓", "A001");
}

TEST_F(CodeCheck, TakesTheDefinitionThatTheHostHasPutInPlace) {
    auto other = std::make_shared<cVsControl>();
    other->i帮助返回值显示类型(iText记Name);
    other->iType(flexDTEmpty);
    answer("A001", " 螺栓");
    whenAsked([&] { grid.SetVsControl(other); });
    commit(2, CodeCol, "a1");
    expectStored(2, " 螺栓", "A001");
    EXPECT_EQ(grid.VsCtrl(CodeCol), other);
}

TEST_F(CodeCheck, IsAnsweredByAllListenersInTurn) {
    answer("A001", "");
    answer("A002", "螺母");
    commit(2, CodeCol, "a");
    expectStored(2, "A002", "螺母");
}

}  // namespace
}  // namespace kxVsGrid::testing
