// A clerk at columns that take values in more than one form, who enters each as he likes: by keys, by an input
// method, by pasting into the editor or onto the closed cell.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {

enum class Entry { Typed, Composed, PastedInto, PastedOnto };
inline constexpr Entry Entries[] = {Entry::Typed, Entry::Composed, Entry::PastedInto, Entry::PastedOnto};

inline std::ostream& operator<<(std::ostream& out, Entry entry) {
    static constexpr const char* Names[] = {"typed", "composed", "pasted into the editor",
                                            "pasted onto the cell"};
    return out << Names[static_cast<int>(entry)];
}

class InputFormsTest : public ClerkTest {
  protected:
    /// A plain number, a number in groups, in percent, in both; a date; column 1 is text.
    enum : std::int32_t { Plain = 2, Grouped, Percent, Both, Day, Half, Moment, Dated, Count };

    InputFormsTest() {
        grid.Cols(Count);
        for (const std::int32_t col : {Plain, Grouped, Percent, Both}) column(col).iType(flexDTDouble);
        column(Dated).iType(flexDTDate);
        grid.ReDraw(true);
        grid.ColFormat(Grouped, "#,##0.00");
        grid.ColFormat(Percent, "0.0%");
        grid.ColFormat(Both, "#,##0%");
        judge(Day, ij日期型);
        judge(Half, ij半日型);
        judge(Moment, ij时间型);
        judge(Dated, ij日期型);
        desk.setNow(2026, 11, 20, 9, 30, 5);
        log.clear();
    }

    void judge(std::int32_t col, gEmJudgeType kind) {
        column(col).i有效性判断(1);
        column(col).i字段有效性判断类型(kind);
    }

    /// Puts a text into row 2 and leaves the row by Enter. False when it was refused: the editor stays open then.
    bool enter(std::int32_t col, std::string_view text, Entry entry = Entry::Typed) {
        at(2, col);
        desk.clear();
        if (entry == Entry::PastedOnto) {
            desk.clipboard(text);
            desk.run(Command::Paste);
            return !desk.editor().visible;
        }
        if (entry == Entry::Typed) desk.type(text);
        if (entry == Entry::Composed) desk.compose(text).commitComposition(text);
        if (entry == Entry::PastedInto) {
            desk.press(Key::Space);
            desk.clipboard(text);
            desk.press('V', CtrlKey);
        }
        desk.press(Key::Enter);
        return !desk.editor().visible;
    }
    /// What the cell holds then; "refused", with the editor closed again, when it does not take it.
    std::string entered(std::int32_t col, std::string_view text, Entry entry = Entry::Typed) {
        grid.SetCell(2, col, "");
        if (enter(col, text, entry)) return this->text(2, col);
        desk.press(Key::Escape);
        return "refused";
    }
};
}  // namespace kxVsGrid::testing
