// A clerk at a column that offers help, column 2 of a small grid. What is chosen shows in the editor: the
// code is its text, the name its tag. A help that chose nothing leaves there what openWith() put.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kit/ClerkTest.h"
#include "kit/PrintTo.h"
#include "kxVsGrid/HelpExchange.h"
#include "kxVsGrid/HelpTable.h"
#include "support/Text.h"

namespace kxVsGrid::testing {

using headless::CalendarDialog;
using headless::ConstantDialog;
using headless::LookupDialog;

/// What a clerk does in a dialog.
using CalendarScript = std::function<void(CalendarDialog&)>;
using ConstantScript = std::function<void(ConstantDialog&)>;
using LookupScript = std::function<void(LookupDialog&)>;

/// What stands in the editor.
struct Pair {
    std::string text;
    std::string tag;
    friend bool operator==(const Pair&, const Pair&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Pair& pair) {
        return out << '"' << pair.text << "\" / \"" << pair.tag << '"';
    }
};

inline std::vector<MessageBox> helpBox(std::string text) {
    return {MessageBox{std::move(text), 64, "Korvan软件"}};
}

class HelpTest : public ClerkTest {
  protected:
    static constexpr std::int32_t HelpRow = 2;
    static constexpr std::int32_t HelpCol = 2;
    static constexpr const char* KeptTag = "the tag before";

    void offer(gEmHelpType type, std::string_view code = {}) {
        column(HelpCol).b是否提供帮助(true);
        column(HelpCol).i帮助类型(type);
        column(HelpCol).sHelp_Code(std::string(code));
    }
    /// The host answers every question for a list with this one.
    Connection answer(Variant Grid_code, Variant GridInfo, Variant GridData) {
        return grid.GetHelpCodeInfo.connect([=](const Variant&, Variant& code, Variant& info, Variant& data) {
            code = Grid_code;
            info = GridInfo;
            data = GridData;
        });
    }
    Connection answer(const HelpTable& table) {
        return answer(table.Grid_code(), table.GridInfo(), table.GridData());
    }

    /// Opens the editor over the cell and puts a text and a tag there; no trace is left.
    void openWith(std::string_view text) {
        if (desk.editor().visible) desk.press(Key::Escape);
        desk.focusGrid();
        openAt(HelpRow, HelpCol);
        grid.Text(text);
        grid.TextTag(KeptTag);
        log.clear();
        desk.clear();
    }
    /// Opens the editor with a text, presses F2 and works the dialog that comes.
    template <class Dialog>
    void help(std::string_view text, const std::function<void(Dialog&)>& script) {
        openWith(text);
        helpAgain<Dialog>(script);
    }
    /// The same in the editor that is open.
    template <class Dialog>
    void helpAgain(const std::function<void(Dialog&)>& script) {
        int shown = 0;
        desk.onDialog(std::function<void(Dialog&)>([&](Dialog& dialog) {
            ++shown;
            script(dialog);
        }));
        desk.press(Key::F2);
        desk.onDialog(std::function<void(Dialog&)>());
        EXPECT_EQ(shown, 1) << "dialogs that came";
    }
    Pair inEditor() const {
        EXPECT_TRUE(desk.editor().visible);
        return {desk.editor().text, desk.editor().tag};
    }
    static Pair kept(std::string text) { return {std::move(text), KeptTag}; }
    const std::vector<MessageBox>& boxes() const { return desk.messages(); }
};

inline void keys(headless::DialogBase& dialog, std::initializer_list<Key> pressed) {
    for (const Key key : pressed) dialog.press(key);
}

/// A grid's texts as they are shown, data rows only, cells separated by '|'.
inline Lines rowsOf(const CellGrid& grid) {
    Lines rows;
    for (std::int32_t row = grid.FixedRows(); row < grid.Rows(); ++row) {
        std::string shown;
        for (std::int32_t col = 0; col < grid.Cols(); ++col)
            shown += (col ? "|" : "") + grid.DisplayText(row, col);
        rows.push_back(shown);
    }
    return rows;
}
}  // namespace kxVsGrid::testing
