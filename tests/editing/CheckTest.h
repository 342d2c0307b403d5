// A clerk at columns whose typed texts are checked: column 2 takes codes, the columns 3, 4 and 5 the three
// date forms.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kit/ClerkTest.h"
#include "kit/PrintTo.h"
#include "kit/WatchedDesk.h"
#include "support/Text.h"

namespace kxVsGrid::testing {

using Boxes = std::vector<MessageBox>;

class CheckTest : public ClerkAt<WatchedDesk> {
  protected:
    static constexpr std::int32_t CodeCol = 2;
    static constexpr std::int32_t DateCol = 3;
    static constexpr std::int32_t HalfDayCol = 4;
    static constexpr std::int32_t TimeCol = 5;

    CheckTest() {
        judge(CodeCol, ij编码型);
        column(CodeCol).s有效性判断基础("select * from goods");
        column(CodeCol).s文本框对应编码字段("code");
        column(CodeCol).s文本框对应名称字段("name");
        column(CodeCol).s错误提示信息("没有此货号");
        judge(DateCol, ij日期型);
        judge(HalfDayCol, ij半日型);
        judge(TimeCol, ij时间型);
        desk.setNow(2026, 11, 20, 9, 30, 5);
    }

    void judge(std::int32_t col, gEmJudgeType type) {
        column(col).i有效性判断(1);
        column(col).i字段有效性判断类型(type);
    }
    /// The host answers every question so.
    Connection answer(std::string code, std::string name) {
        return grid.TxtValidBmS.connect([=](const std::string&, const std::string&, const std::string&,
                                            const std::string&, std::string& returnedCode,
                                            std::string& returnedName) {
            returnedCode = code;
            returnedName = name;
        });
    }
    /// Does this when the host is asked about a code, and answers nothing.
    Connection whenAsked(std::function<void()> act) {
        return grid.TxtValidBmS.connect([act = std::move(act)](const std::string&, const std::string&,
                                                               const std::string&, const std::string&,
                                                               std::string&, std::string&) { act(); });
    }
    /// The question about a code, as the host hears it.
    static Lines asked(const std::string& text) {
        return {line("TxtValidBmS", std::string("select * from goods"), std::string("code"),
                     std::string("name"), text, std::string(), std::string())};
    }

    /// Opens the editor over a cell and puts a text there, as pasting does; no trace is left.
    /// The cell is entered anew.
    void put(std::int32_t row, std::int32_t col, std::string_view text) {
        if (current() == Cell{row, col}) at(row, col == 1 ? 2 : 1);
        openAt(row, col);
        grid.Text(text);
        forget();
    }
    void forget() {
        log.clear();
        desk.clear();
        desk.takeSteps();
    }
    static Boxes box(std::string text, std::int32_t style, std::string title) {
        return {MessageBox{std::move(text), style, std::move(title)}};
    }
    static Boxes codeBox() { return box("没有此货号", 16, "错误："); }
    static Boxes dateBox(const std::string& example) {
        return box("非法公历日期!(格式:" + example + ")", 64, "提示：");
    }
    /// What the clerk reads after a refusal in one of the columns, at the time that the desk starts with.
    static Boxes refusalBox(std::int32_t col) {
        switch (col) {
            case DateCol:
                return dateBox("2026-11-20");
            case HalfDayCol:
                return dateBox("2026-11-20 上午");
            case TimeCol:
                return dateBox("2026-11-20 09:30:05");
            default:
                return codeBox();
        }
    }
    const Boxes& boxes() const { return desk.messages(); }

    /// The editor stands open over (row, col) with this text refused: wholly selected, with the keyboard.
    void expectRefused(std::int32_t row, std::int32_t col, const std::string& text) {
        const headless::SeenEditor editor = desk.editor();
        EXPECT_TRUE(editor.visible);
        EXPECT_TRUE(editor.refused);
        EXPECT_EQ(editor.text, text);
        EXPECT_EQ(editor.selStart, 0u);
        EXPECT_EQ(editor.selLength, support::characters(text));
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
        EXPECT_EQ(current(), (Cell{row, col}));
    }
};
}  // namespace kxVsGrid::testing
