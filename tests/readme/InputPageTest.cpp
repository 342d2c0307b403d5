// The tables of the manual's page "Forgiving input" say what the code does: the signs are those of its table, and each
// form becomes on the desk what the page says.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "kxVsGrid/headless/Desk.h"
#include "support/PlainSigns.h"

namespace kxVsGrid {
namespace {

std::string inputPage() {
    std::ifstream file(KX_INPUT_PAGE);
    std::stringstream page;
    page << file.rdbuf();
    return page.str();
}

/// A column of the page, and what is entered there.
struct ShownColumn {
    const char* name;
    mEmDataType type;
    const char* format;
    gEmJudgeType check;
    std::vector<const char*> entries;
};

const ShownColumn ShownColumns[] = {
    {"a number", flexDTDouble, "", ij其他类型, {"-３×（２＋１）", "19。5", "1,234", "12%"}},
    {"a number, `#,##0.00`",
     flexDTDouble,
     "#,##0.00",
     ij其他类型,
     {"1,234", "1,234.5", "-1,234.50", "１，２３４．５０", "1,5", "1234,567", "1+1,234"}},
    {"a number, `0.0%`", flexDTDouble, "0.0%", ij其他类型, {"12%", "１２％", "-0.5%", "12", "1+2%"}},
    {"a number, `#,##0%`", flexDTDouble, "#,##0%", ij其他类型, {"1,234%"}},
    {"a date, form 2",
     flexDTDate,
     "",
     ij日期型,
     {"20240105", "1-5", "1/5", "1月5日", "２０２４。１。５", "2月30日", "13-1", "2024010"}},
    {"a date, form 4", flexDTString, "", ij半日型, {"1-5 上午", "20240105 下午"}},
    {"a date, form 5", flexDTString, "", ij时间型, {"1月5日 8:05:09", "1-5"}},
    {"a text", flexDTString, "", ij其他类型, {"１２％", "1-5"}},
};

std::string code(const std::string& text) {
    return "`" + text + "`";
}

class InputPage : public ::testing::Test {
  protected:
    InputPage() {
        desk.setNow(2026, 11, 20);
        grid.Cols(2);
    }

    void setUp(const ShownColumn& shown) {
        grid.VsCtrl(1)->iType(shown.type);
        grid.VsCtrl(1)->i有效性判断(shown.check == ij其他类型 ? 0 : 1);
        grid.VsCtrl(1)->i字段有效性判断类型(shown.check);
        grid.ReDraw(true);
        grid.ColFormat(1, shown.format);
    }
    /// What becomes of an entry, as the page says it.
    std::string outcome(const char* entry) {
        grid.SetCell(1, 1, "");
        grid.Grid().Select(1, 1);
        desk.clear().focusGrid().type(entry).press(Key::Enter);
        const headless::SeenEditor editor = desk.editor();
        if (!editor.visible) return code(grid.Grid().Text(1, 1));
        const std::string reason = desk.messages().empty() ? editor.tip : desk.messages().front().text;
        desk.press(Key::Escape);
        return "refused: " + reason;
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
};

TEST(InputPageSigns, AreThoseOfTheCode) {
    std::string table = "\n\n| Full width | Taken as |\n|---|---|\n";
    for (const auto& sign : support::plainSigns())
        table += "| " + std::string(sign.fullWidth) + " | " + code(std::string(1, sign.plain)) + " |\n";
    EXPECT_NE(inputPage().find(table + "\n<!-- end of signs -->"), std::string::npos)
        << "the code has:" << table;
}

TEST_F(InputPage, SaysWhatBecomesOfEachForm) {
    std::string table = "\n\n| Column | Entered | Becomes |\n|---|---|---|\n";
    for (const ShownColumn& shown : ShownColumns) {
        setUp(shown);
        for (const char* entry : shown.entries)
            table += "| " + std::string(shown.name) + " | " + code(entry) + " | " + outcome(entry) + " |\n";
    }
    EXPECT_NE(inputPage().find(table + "\n<!-- end of forms -->"), std::string::npos)
        << "the code does:" << table;
}
}  // namespace
}  // namespace kxVsGrid
