#include "kxVsGrid/Clipboard.h"

#include "support/BlockForm.h"
#include "support/HtmlTable.h"
#include "support/Numbers.h"
#include "support/TableText.h"

namespace kxVsGrid {
namespace {

support::HtmlAlign alignmentOf(std::string_view text) {
    const bool number = support::completeNumber(support::withoutGroups(text, true)).has_value();
    return number ? support::HtmlAlign::Right : support::HtmlAlign::Left;
}
}  // namespace

/// One cell is put there bare. The control's own form tells it from a table; where the two say different things,
/// as a cell that is displayed otherwise than it is stored does, the text is read as any other.
bool isOneCell(const ClipboardContent& content) {
    auto block = support::BlockReader::open(content.block);
    if (!block || block->rows() != 1 || block->columns().size() != 1) return false;
    return block->next() && block->text() == content.text;
}

std::string htmlOf(const ClipboardContent& content) {
    std::string html;
    support::HtmlTableWriter table(html);
    if (isOneCell(content)) {
        table.cell(content.text, alignmentOf(content.text));
        table.finish();
        return html;
    }
    for (support::TableReader reader(content.text); reader.next();) {
        const std::string_view text = reader.text();
        const auto align = alignmentOf(text);
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
