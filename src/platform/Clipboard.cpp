#include "kxVsGrid/Clipboard.h"

#include "support/BlockForm.h"
#include "support/HtmlTable.h"
#include "support/Numbers.h"
#include "support/TableText.h"

namespace kxVsGrid {
namespace {

support::HtmlAlign alignOf(std::string_view text) {
    const bool number = support::completeNumber(support::withoutGroups(text, true)).has_value();
    return number ? support::HtmlAlign::Right : support::HtmlAlign::Left;
}
}  // namespace

std::string htmlOf(const ClipboardContent& content) {
    std::string html;
    support::HtmlTableWriter table(html);
    const auto block = support::BlockReader::open(content.block);
    if (block && block->isOneCell()) {
        table.cell(content.text, alignOf(content.text));
        table.finish();
        return html;
    }
    for (support::TableReader reader(content.text); reader.next();) {
        const std::string_view text = reader.text();
        const support::HtmlAlign align = alignOf(text);
        if (content.headers && reader.row() == 0)
            table.heading(text, align);
        else
            table.cell(text, align);
        if (reader.endsRow()) table.endRow();
    }
    table.finish();
    return html;
}
}  // namespace kxVsGrid
