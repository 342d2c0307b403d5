#include "kxVsGrid/sheet/CodeSource.h"

#include "support/PlainSigns.h"
#include "support/Text.h"

namespace kxVsGrid::sheet {
namespace {

constexpr std::string_view WideBlank = "　";

const std::string CodeField = "code";
const std::string NameField = "name";
}  // namespace

std::string_view trimmedCode(std::string_view typed) {
    for (;;) {
        const std::size_t before = typed.size();
        typed = support::trim(support::withoutTrailingLineBreaks(typed));
        if (typed.starts_with(WideBlank)) typed.remove_prefix(WideBlank.size());
        if (typed.ends_with(WideBlank)) typed.remove_suffix(WideBlank.size());
        if (typed.size() == before) return typed;
    }
}

std::string plainCode(std::string_view typed) {
    return support::inPlainSigns(trimmedCode(typed));
}

/// Code and name are fields of their own, so that what is chosen does not hang on which columns there are.
CodeListing::CodeListing(const std::string& caption, std::size_t others)
    : table_(caption), hidden_(2 + others) {
    std::vector<std::string> searched{CodeField, NameField};
    for (std::size_t i = 0; i < others; ++i) searched.push_back("other" + std::to_string(i));
    for (const std::string& field : searched) table_.field(field, field).hidden();
    table_.result(CodeField, NameField).search(searched);
}

void CodeListing::column(const std::string& header, std::int32_t width, FieldKind kind,
                         std::optional<int> decimals) {
    table_.field("column" + std::to_string(kinds_.size()), header, width,
                 decimals ? HelpKind::Number : HelpKind::Text, decimals.value_or(0));
    table_.alignment(kind == FieldKind::Number ? flexAlignRightCenter
                     : kind == FieldKind::Text ? flexAlignLeftCenter
                                               : flexAlignCenterCenter);
    kinds_.push_back(kind);
}

void CodeListing::record(const std::vector<std::string>& texts) {
    std::vector<Variant> values(texts.begin(), texts.end());
    for (std::size_t i = hidden_; i < values.size(); ++i)
        if (kinds_[i - hidden_] == FieldKind::Flag) values[i] = texts[i].empty() ? "" : "是";
    table_.row(std::move(values));
}
}  // namespace kxVsGrid::sheet
