// Tables as a fragment of HTML, for what takes more from the clipboard than plain text: texts come out as they
// are, whatever stands in them.
#pragma once

#include <string>
#include <string_view>

namespace kxVsGrid::support {

enum class HtmlAlign { Left, Center, Right };

/// Appends a table to a text in UTF-8, with a <meta> that says so:
///
///     <meta charset="utf-8"><table style="white-space:pre"><tr><th>货号</th></tr><tr><td>1</td></tr></table>
///
/// Markup in a cell is escaped; a line end (\n, \r\n or \r) is <br>; the style keeps blanks and tabs as they
/// are, which other characters in their place would not. NULs are left out, a byte that is no part of valid
/// UTF-8 is U+FFFD. A text that a spreadsheet would read as a formula, or as a number that loses zeros or digits,
/// is marked as a text (sdnum).
class HtmlTableWriter {
  public:
    /// `out` has to outlive the writer.
    explicit HtmlTableWriter(std::string& out);

    /// A cell of a row of headings.
    void heading(std::string_view text, HtmlAlign align = HtmlAlign::Left);
    void cell(std::string_view text, HtmlAlign align = HtmlAlign::Left);
    void endRow();
    /// Ends the table, and the row if that is still open. Nothing may be written behind it.
    void finish();

  private:
    void element(std::string_view tag, std::string_view text, HtmlAlign align);

    std::string& out_;
    bool rowOpen_ = false;
};
}  // namespace kxVsGrid::support
