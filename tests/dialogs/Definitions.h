// Tables of a code lookup made by hand: any field of any entry, any value in any cell.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "kxVsGrid/HelpTable.h"

namespace kxVsGrid::testing {

/// GridInfo with one entry per name, nothing but the names filled in.
inline Variant definition(std::initializer_list<const char*> names) {
    Table info(0, static_cast<std::int32_t>(names.size()) - 1, 0, HelpPosition::Last);
    std::int32_t entry = 0;
    for (const char* name : names) info.at(entry++, HelpPosition::FieldName) = name;
    return info;
}
/// The same with one attribute changed.
inline Variant with(Variant info, std::int32_t entry, std::int32_t position, Variant value) {
    info.table()->at(entry, position) = std::move(value);
    return info;
}
/// GridData of these records.
inline Variant records(const std::vector<std::vector<Variant>>& rows, std::int32_t lower = 1) {
    std::size_t fields = 1;
    for (const auto& row : rows) fields = row.size() > fields ? row.size() : fields;
    Table data(lower, lower + static_cast<std::int32_t>(rows.size()) - 1, lower,
               lower + static_cast<std::int32_t>(fields) - 1);
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (std::size_t f = 0; f < rows[r].size(); ++f)
            data.at(lower + static_cast<std::int32_t>(r), lower + static_cast<std::int32_t>(f)) = rows[r][f];
    return data;
}
/// An array of one dimension.
inline Variant list(const std::vector<Variant>& values, std::int32_t lower = 0) {
    Table table(lower, lower + static_cast<std::int32_t>(values.size()) - 1);
    for (std::size_t i = 0; i < values.size(); ++i)
        table.at(lower + static_cast<std::int32_t>(i)) = values[i];
    return table;
}
/// Grid_code that counts as present.
inline Variant codes() {
    return list({"goods", "货号"});
}
}  // namespace kxVsGrid::testing
