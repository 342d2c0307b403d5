// What a host's definition of a code lookup says, read from its table (see HelpTable.h). What is missing in
// it or cannot be read counts as empty.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Enumerations.h"
#include "kxVsGrid/Variant.h"

namespace kxVsGrid::dialogs {

struct LookupField {
    std::string name;
    std::string header;
    std::int32_t width = 1500;
    mEmflexAlign alignment = flexAlignGeneral;
    bool visible = true;
    bool number = false;
    std::string format;  ///< of the column's cells; empty for texts
};

class LookupDefinition {
  public:
    explicit LookupDefinition(const Variant& GridInfo);

    const std::vector<LookupField>& fields() const { return fields_; }
    const std::string& codeField() const { return codeField_; }
    const std::string& nameField() const { return nameField_; }
    const std::string& editComponent() const { return editComponent_; }
    bool editable() const { return editable_; }
    /// The columns that are searched, in the order of the list.
    std::vector<std::int32_t> searchColumns() const;

    /// The column of the first field of exactly this name; 0 when there is none.
    std::int32_t FindColumn(std::string_view name) const;

  private:
    std::vector<LookupField> fields_;
    std::string codeField_;
    std::string nameField_;
    std::string editComponent_;
    std::string searchFields_;
    bool editable_ = false;
};

/// An element of a table of one dimension, or of two; an array in an array counts as a row of it. nullptr
/// where there is none.
const Variant* elementOf(const Variant& table, std::int32_t i, std::int32_t j);
/// The value as text; empty when there is none or it has no text.
std::string textOf(const Variant* value);
}  // namespace kxVsGrid::dialogs
