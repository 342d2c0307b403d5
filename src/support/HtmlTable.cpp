#include "support/HtmlTable.h"

#include "support/Text.h"

namespace kxVsGrid::support {
namespace {

void appendEscaped(std::string& out, std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        switch (const char c = text[at]) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            case '\r':
                if (text.substr(at, 2) == "\r\n") ++at;
                [[fallthrough]];
            case '\n':
                out += "<br>";
                break;
            case '\0':
                break;
            default:
                out += c;
        }
    }
}

std::string_view attribute(HtmlAlign align) {
    switch (align) {
        case HtmlAlign::Left:
            break;
        case HtmlAlign::Center:
            return " align=\"center\"";
        case HtmlAlign::Right:
            return " align=\"right\"";
    }
    return "";
}

/// What a spreadsheet would take for something else than it is: a formula, or a number that loses its zeros or its
/// last digits. LibreOffice Calc leaves a cell of the number format @ the text that it is.
bool misreadAsTyped(std::string_view text) {
    constexpr std::size_t DigitsOfANumber = 15;
    if (text.starts_with('=')) return true;
    const bool digits = text.find_first_not_of("0123456789") == std::string_view::npos;
    return digits && ((text.size() > 1 && text.front() == '0') || text.size() > DigitsOfANumber);
}

constexpr std::string_view KeptAsText = " sdnum=\"1033;0;@\"";
}  // namespace

HtmlTableWriter::HtmlTableWriter(std::string& out) : out_(out) {
    out_ += "<meta charset=\"utf-8\"><table style=\"white-space:pre\">";
}

void HtmlTableWriter::heading(std::string_view text, HtmlAlign align) {
    element("th", text, align);
}

void HtmlTableWriter::cell(std::string_view text, HtmlAlign align) {
    element("td", text, align);
}

void HtmlTableWriter::element(std::string_view tag, std::string_view text, HtmlAlign align) {
    if (!rowOpen_) out_ += "<tr>";
    rowOpen_ = true;
    out_ += '<';
    out_ += tag;
    out_ += attribute(align);
    if (misreadAsTyped(text)) out_ += KeptAsText;
    out_ += '>';
    if (validBytes(text) == text.size()) {
        appendEscaped(out_, text);
    } else {
        std::string valid;
        appendValid(valid, text);
        appendEscaped(out_, valid);
    }
    out_ += "</";
    out_ += tag;
    out_ += '>';
}

void HtmlTableWriter::endRow() {
    out_ += rowOpen_ ? "</tr>" : "<tr></tr>";
    rowOpen_ = false;
}

void HtmlTableWriter::finish() {
    if (rowOpen_) endRow();
    out_ += "</table>";
}
}  // namespace kxVsGrid::support
