#include "support/HtmlTable.h"

#include <gtest/gtest.h>

#include <string>

namespace kxVsGrid::support {
namespace {

using namespace std::string_literals;

const std::string HtmlStart = "<meta charset=\"utf-8\"><table style=\"white-space:pre\">";
const std::string HtmlEnd = "</table>";

std::string htmlOf(std::string_view text) {
    std::string html;
    HtmlTableWriter writer(html);
    writer.cell(text);
    writer.endRow();
    writer.finish();
    const std::string before = HtmlStart + "<tr><td>";
    const std::string behind = "</td></tr>" + HtmlEnd;
    EXPECT_TRUE(html.starts_with(before) && html.ends_with(behind)) << html;
    return html.substr(before.size(), html.size() - before.size() - behind.size());
}

TEST(HtmlTable, HasARowOfHeadingsAndRowsOfCells) {
    std::string html;
    HtmlTableWriter writer(html);
    writer.heading("货号");
    writer.heading("数量", HtmlAlign::Right);
    writer.endRow();
    writer.cell("a");
    writer.cell("1.50", HtmlAlign::Right);
    writer.cell("是", HtmlAlign::Center);
    writer.cell("");
    writer.finish();
    EXPECT_EQ(html, HtmlStart +
                        "<tr><th>货号</th><th align=\"right\">数量</th></tr>"
                        "<tr><td>a</td><td align=\"right\">1.50</td><td align=\"center\">是</td>"
                        "<td></td></tr>" +
                        HtmlEnd);
}

TEST(HtmlTable, MayHaveNoRowsAndRowsOfNoCell) {
    std::string html;
    HtmlTableWriter(html).finish();
    EXPECT_EQ(html, HtmlStart + HtmlEnd);
    HtmlTableWriter writer(html);
    writer.endRow();
    writer.finish();
    EXPECT_EQ(html, HtmlStart + HtmlEnd + HtmlStart + "<tr></tr>" + HtmlEnd);
}

TEST(HtmlTable, ShowsMarkupAsText) {
    EXPECT_EQ(htmlOf("</td></table><script>alert(\"&amp;\")</script>"),
              "&lt;/td&gt;&lt;/table&gt;&lt;script&gt;alert(&quot;&amp;amp;&quot;)&lt;/script&gt;");
    EXPECT_EQ(htmlOf("<!-- '"), "&lt;!-- '");
}

TEST(HtmlTable, SaysWhichTextsASpreadsheetWouldReadAsSomethingElse) {
    const auto isKept = [](std::string_view text) {
        std::string html;
        HtmlTableWriter writer(html);
        writer.cell(text);
        writer.finish();
        return html.find("<td sdnum=\"1033;0;@\">" + std::string(text) + "</td>") != std::string::npos;
    };
    for (const std::string_view text : {"=1+1", "=", "007", "00", "6901234567890123"})
        EXPECT_TRUE(isKept(text)) << text;
    for (const std::string_view text :
         {"", "0", "7", "0.5", "-007", "1,234.50", "690123456789012", "货号", "a=1"})
        EXPECT_FALSE(isKept(text)) << text;
}

TEST(HtmlTable, KeepsBlanksAndBreaksLines) {
    EXPECT_EQ(htmlOf("  a \t b  "), "  a \t b  ");
    EXPECT_EQ(htmlOf("a\nb\r\nc\rd\r\r\n"), "a<br>b<br>c<br>d<br><br>");
}

TEST(HtmlTable, IsValidUtf8) {
    EXPECT_EQ(htmlOf("合\xFF<\xE5\x90"), "合\uFFFD&lt;\uFFFD\uFFFD");
    EXPECT_EQ(htmlOf("a\0<\0"s), "a&lt;");
}

}  // namespace
}  // namespace kxVsGrid::support
