#include "dialogs/LookupDefinition.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "dialogs/Lists.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/HelpTable.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::dialogs {
namespace {

bool within(const Table& table, int dimension, std::int32_t i) {
    return i >= table.lower(dimension) && i <= table.upper(dimension);
}

std::string attribute(const Variant& info, std::int32_t entry, std::int32_t position) {
    return std::string(support::trim(textOf(elementOf(info, entry, position))));
}

bool isTrue(const Variant* value) {
    if (!value) return false;
    if (value->type() == Variant::Type::Boolean) return value->toBoolean();
    return support::trim(textOf(value)) == "1";
}

bool isFalse(const Variant* value) {
    if (!value) return false;
    if (value->type() == Variant::Type::Boolean) return !value->toBoolean();
    return support::trim(textOf(value)) == "0";
}

std::optional<std::int32_t> wholeNumber(const Variant& info, std::int32_t entry, std::int32_t position,
                                        std::int32_t least, std::int32_t most) {
    const auto number = support::completeNumber(attribute(info, entry, position));
    if (!number || std::floor(*number) != *number || *number < least || *number > most) return std::nullopt;
    return static_cast<std::int32_t>(*number);
}

HelpKind kindOf(const Variant& info, std::int32_t entry) {
    return static_cast<HelpKind>(wholeNumber(info, entry, HelpPosition::Kind, 0, 10).value_or(0));
}

bool isNumberKind(HelpKind kind) {
    return kind == HelpKind::Number || kind == HelpKind::Amount || kind == HelpKind::Quantity ||
           kind == HelpKind::Price;
}

/// Fixed widths for the kinds of business numbers, otherwise as many decimals as the field has.
std::string formatOf(const Variant& info, std::int32_t entry) {
    constexpr std::int32_t MostDecimals = 15;
    switch (kindOf(info, entry)) {
        case HelpKind::Amount:
        case HelpKind::Quantity:
            return "00";
        case HelpKind::Price:
            return "0000";
        case HelpKind::Date:
            return "yyyy-mm-dd";
        case HelpKind::Number:
            break;
        default:
            return {};
    }
    const auto decimals = wholeNumber(info, entry, HelpPosition::Decimals, 0, MostDecimals);
    if (!decimals) return "#,##0.00";
    const bool thousands = isTrue(elementOf(info, entry, HelpPosition::Thousands));
    return (thousands ? "#,##0." : "##0.") + std::string(static_cast<std::size_t>(*decimals), '0');
}

LookupField fieldOf(const Variant& info, std::int32_t entry) {
    constexpr std::int32_t LargestWidth = 100'000;
    LookupField field;
    field.name = attribute(info, entry, HelpPosition::FieldName);
    field.header = attribute(info, entry, HelpPosition::Header);
    if (field.header.empty()) field.header = field.name;
    field.width = wholeNumber(info, entry, HelpPosition::Width, 1, LargestWidth).value_or(field.width);
    field.number = isNumberKind(kindOf(info, entry));
    const auto alignment =
        wholeNumber(info, entry, HelpPosition::Alignment, flexAlignLeftTop, flexAlignGeneral);
    field.alignment = static_cast<mEmflexAlign>(alignment.value_or(flexAlignGeneral));
    // By its text a number with separators would count as a word, and stand at the left.
    if (field.number && field.alignment == flexAlignGeneral) field.alignment = flexAlignRightCenter;
    field.visible = !isFalse(elementOf(info, entry, HelpPosition::Visible));
    field.format = formatOf(info, entry);
    return field;
}
}  // namespace

const Variant* elementOf(const Variant& table, std::int32_t i, std::int32_t j) {
    const Table* const outer = table.table();
    if (!outer || !within(*outer, 1, i)) return nullptr;
    if (outer->dimensions() == 2) return within(*outer, 2, j) ? &outer->at(i, j) : nullptr;
    const Table* const inner = outer->at(i).table();
    if (!inner || inner->dimensions() != 1 || !within(*inner, 1, j)) return nullptr;
    return &inner->at(j);
}

std::string textOf(const Variant* value) {
    if (!value || value->isNull() || value->isArray()) return {};
    try {
        return value->toText();
    } catch (const ConversionError&) {
        return {};
    }
}

LookupDefinition::LookupDefinition(const Variant& info)
    : codeField_(attribute(info, 0, HelpPosition::CodeField)),
      nameField_(attribute(info, 0, HelpPosition::NameField)),
      editComponent_(attribute(info, 0, HelpPosition::EditComponent)),
      searchFields_(attribute(info, 0, HelpPosition::SearchFields)),
      editable_(isTrue(elementOf(info, 0, HelpPosition::Editable))) {
    const Table* const table = info.table();
    if (!table) return;
    for (std::int32_t entry = 0; entry <= std::min(table->upper(), CellGrid::MaxCols - 1); ++entry)
        fields_.push_back(fieldOf(info, entry));
    while (!fields_.empty() && fields_.back().name.empty()) fields_.pop_back();
}

std::vector<std::int32_t> LookupDefinition::searchColumns() const {
    std::vector<std::int32_t> columns;
    if (searchFields_.empty()) return columns;
    for (const std::string_view name : splitAt(searchFields_, ';')) columns.push_back(FindColumn(name));
    return columns;
}

std::int32_t LookupDefinition::FindColumn(std::string_view name) const {
    const auto found =
        std::find_if(fields_.begin(), fields_.end(), [&](const LookupField& f) { return f.name == name; });
    return found == fields_.end() ? 0 : static_cast<std::int32_t>(found - fields_.begin());
}
}  // namespace kxVsGrid::dialogs
