// A clerk who chooses from the control's menus, at a machine that notes in what state it is asked and waits.
#pragma once

#include <functional>
#include <optional>

#include "kit/ClerkTest.h"
#include "kit/WatchedDesk.h"

namespace kxVsGrid::testing {

/// The captions of the menus as they stand.
namespace caption {
inline constexpr const char* AddRow = "新增行";
inline constexpr const char* CopyRow = "复制行";
inline constexpr const char* InsertRow = "插入行";
inline constexpr const char* InsertCopy = "复制插入行";
inline constexpr const char* AddRows = "新增..行";
inline constexpr const char* InsertRows = "插入..行";
inline constexpr const char* AddEmptyRow = "新增空行";
inline constexpr const char* InsertEmptyRow = "插入空行";
inline constexpr const char* AddEmptyRows = "新增空行..行";
inline constexpr const char* InsertEmptyRows = "插入空白..行";
inline constexpr const char* DeleteRow = "删除行";
inline constexpr const char* Fill = "填充列";
inline constexpr const char* Series = "序列方式填充(&S)";
inline constexpr const char* Days = "以天数填充(&D)";
inline constexpr const char* Years = "以年填充(&Y)";
inline constexpr const char* Months = "以月填充(&M)";
inline constexpr const char* Copies = "复制单元格(&C)";
inline constexpr const char* CopyCell = "复制单元格";
}  // namespace caption

class MenuTest : public ClerkAt<WatchfulDesk> {
  protected:
    /// Presses the right button on a header, which is always in view, and chooses.
    void run(std::string_view command, std::int16_t shift = 0) {
        desk.onPopup([command](headless::PoppedMenu& menu) { menu.choose(command); });
        desk.rightClick(0, 1, shift);
        desk.onPopup({});
    }
    /// The same for an item under the one that fills the column.
    void fillBy(std::string_view command) {
        desk.onPopup([command](headless::PoppedMenu& menu) { menu.choose(caption::Fill, command); });
        desk.rightClick(0, 1);
        desk.onPopup({});
    }
    bool popped() const {
        try {
            desk.lastMenu();
            return true;
        } catch (const std::logic_error&) {
            return false;
        }
    }
    /// What the host heard of a command: everything but the press that brought the menu up.
    Lines told() {
        const Lines lines = heardWithoutPlaces();
        EXPECT_FALSE(lines.empty());
        if (!lines.empty()) {
            EXPECT_EQ(lines.front(), "MouseDown");
        }
        return without(without(lines, "MouseDown"), "Click");
    }
    /// The texts of a column from a row to the last.
    Lines texts(std::int32_t from, std::int32_t col) const {
        Lines found;
        for (int r = from; r < grid.Rows(); ++r) found.push_back(text(r, col));
        return found;
    }
    Lines tags(std::int32_t from, std::int32_t col) const {
        Lines found;
        for (int r = from; r < grid.Rows(); ++r) found.push_back(tag(r, col));
        return found;
    }
    void confirmCopies() {
        grid.AfterAddRow.connect([](bool& keep, std::int32_t, bool, std::int32_t) { keep = true; });
    }
    void consentToDeletes() {
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    }

    static Lines asksTheHost(std::int32_t row) { return asksForRow(row, true); }
    static Lines tellsTheHost(std::int32_t row, bool copied, std::int32_t source) {
        return {line("AfterAddRow", false, row, copied, source)};
    }
    /// The direct filling of a new row with default texts.
    static Lines fillsInPlace(std::int32_t row, std::int32_t col) {
        return {line("AfterRowColChange", row, col, row, col)};
    }
};

}  // namespace kxVsGrid::testing
