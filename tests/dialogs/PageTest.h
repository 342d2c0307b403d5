// The column page over a real grid on a desk, and the hands at it. Controls are found by what they show.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "kit/PlacedGrid.h"
#include "kxVsGrid/ControlPage.h"
#include "kxVsGrid/GridColumns.h"
#include "kxVsGrid/headless/Dialogs.h"

namespace kxVsGrid::testing {

inline const Lines YesNoNames = {"b是否提供帮助", "bIsEditable",   "bIsVisible",
                                 "b是否合计数据", "b是否编辑多行", "b是否设列颜色"};
inline const Lines TextNames = {"s有效性判断基础", "s文本框对应名称字段", "s文本框对应编码字段",
                                "s错误提示信息", "sHelp_Code"};
inline const Lines NumberNames = {"i字段有效性判断类型", "i帮助类型", "i帮助返回值显示类型",
                                  "i有效性判断",         "d列前景色", "d列背景色"};

/// The page's window.
class PageWindow : public headless::DialogBase {
  public:
    using DialogBase::DialogBase;

    /// The text box or check box that shows a property.
    FormControl& of(std::string_view property) {
        FormControl* found = nullptr;
        for (const auto& control : form().controls())
            if (control->caption == property &&
                (control->typeName == "TextBox" || control->typeName == "CheckBox")) {
                if (found) throw std::logic_error("two boxes of " + std::string(property));
                found = control.get();
            }
        if (!found) throw std::logic_error("no box of " + std::string(property));
        return *found;
    }
    std::string text(std::string_view property) { return of(property).text; }
    bool checked(std::string_view property) { return of(property).checked; }
    void put(std::string_view property, std::string_view text) { setText(of(property), text); }
    void check(std::string_view property, bool checked) { form().check(of(property), checked); }

    const Lines& list(std::string_view combo) { return control(combo).list; }
    const std::string& chosen(std::string_view combo) { return control(combo).text; }
    void pick(std::string_view combo, std::int32_t index) { form().pick(control(combo), index); }
    void pick(std::string_view combo, std::string_view entry) {
        const auto& entries = list(combo);
        const auto found = std::find(entries.begin(), entries.end(), entry);
        if (found == entries.end()) throw std::logic_error("no entry " + std::string(entry));
        pick(combo, static_cast<std::int32_t>(found - entries.begin()));
    }
    bool applyEnabled() { return control("YyCommand").enabled; }
};

class PageTest : public PlacedGrid {
  protected:
    PageTest() {
        grid.FormatString("行号|<货号    |>数量|^ 单价 ");
        heard();
        reported();
    }
    /// Selects the grid, loads the list and chooses a column.
    void openAt(std::int32_t col) {
        page.select({&columns});
        page.loadColumns();
        window.pick("Combo1", col);
        EXPECT_EQ(grid.Col(), col);
        EXPECT_FALSE(page.Changed());
        desk.clear();
    }

    GridColumns columns{grid};
    ControlPage page;
    PageWindow window{page};
};
}  // namespace kxVsGrid::testing
