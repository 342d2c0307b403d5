#include "kxVsGrid/HelpTable.h"

#include <stdexcept>

namespace kxVsGrid {

HelpTable::HelpTable(std::string_view caption) : caption_(caption) {}

HelpTable& HelpTable::field(std::string_view name, std::string_view header, std::int32_t width, HelpKind kind,
                            std::int32_t decimals, bool thousands) {
    fields_.push_back(
        {std::string(name), std::string(header), width, kind, decimals, thousands, flexAlignGeneral, true});
    return *this;
}

HelpTable& HelpTable::alignment(mEmflexAlign alignment) {
    if (fields_.empty()) throw std::logic_error("HelpTable::alignment: there is no field yet");
    fields_.back().alignment = alignment;
    return *this;
}

HelpTable& HelpTable::hidden() {
    if (fields_.empty()) throw std::logic_error("HelpTable::hidden: there is no field yet");
    fields_.back().visible = false;
    return *this;
}

HelpTable& HelpTable::result(std::string_view codeField, std::string_view nameField) {
    codeField_ = codeField;
    nameField_ = nameField;
    return *this;
}

HelpTable& HelpTable::search(std::initializer_list<std::string_view> fields) {
    return search(std::vector<std::string>(fields.begin(), fields.end()));
}

HelpTable& HelpTable::search(std::span<const std::string> fields) {
    searchFields_.clear();
    for (const std::string& field : fields) {
        if (!searchFields_.empty()) searchFields_ += ';';
        searchFields_ += field;
    }
    return *this;
}

HelpTable& HelpTable::editable(std::string_view component) {
    editable_ = true;
    component_ = component;
    return *this;
}

HelpTable& HelpTable::row(std::vector<Variant> values) {
    rows_.push_back(std::move(values));
    return *this;
}

Variant HelpTable::Grid_code() const {
    Table table(0, 1);
    table.at(0) = codeField_;
    table.at(1) = caption_;
    return table;
}

Variant HelpTable::GridInfo() const {
    namespace At = HelpPosition;
    // One entry more than there are fields: a table of a single entry would count as missing.
    Table table(0, static_cast<std::int32_t>(fields_.size()), 0, At::Last);
    table.at(0, At::EditComponent) = component_;
    table.at(0, At::CodeField) = codeField_;
    table.at(0, At::NameField) = nameField_;
    table.at(0, At::Editable) = editable_;
    table.at(0, At::SearchFields) = searchFields_;
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const Field& field = fields_[i];
        const auto entry = static_cast<std::int32_t>(i);
        table.at(entry, At::FieldName) = field.name;
        table.at(entry, At::Header) = field.header;
        table.at(entry, At::Width) = field.width;
        table.at(entry, At::Alignment) = static_cast<std::int32_t>(field.alignment);
        table.at(entry, At::Visible) = field.visible;
        table.at(entry, At::Decimals) = field.decimals;
        table.at(entry, At::Thousands) = field.thousands;
        table.at(entry, At::Kind) = static_cast<std::int32_t>(field.kind);
    }
    return table;
}

Variant HelpTable::GridData() const {
    const auto cols = static_cast<std::int32_t>(fields_.size());
    // Rows count from 1: a single one then counts as present, and none as missing.
    Table table(1, static_cast<std::int32_t>(rows_.size()), 0, cols - 1);
    for (std::size_t r = 0; r < rows_.size(); ++r) {
        const std::vector<Variant>& values = rows_[r];
        for (std::int32_t c = 0; c < cols && c < static_cast<std::int32_t>(values.size()); ++c)
            table.at(static_cast<std::int32_t>(r) + 1, c) = values[static_cast<std::size_t>(c)];
    }
    return table;
}

void HelpTable::answer(Variant& gridCode, Variant& gridInfo, Variant& gridData) const {
    gridCode = Grid_code();
    gridInfo = GridInfo();
    gridData = GridData();
}
}  // namespace kxVsGrid
