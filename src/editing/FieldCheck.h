// The check of a typed text before it is written into its cell.
//
// A column that asks for it takes codes that the host knows, dates in one of three forms, or anything. An
// accepted text is rewritten: a code as its pair of code and name, a date in its column's form.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "editing/EditingContext.h"

namespace kxVsGrid::editing {

struct FieldVerdict {
    struct Pair {
        std::string text;
        std::string tag;
    };
    std::optional<MessageBox> refusal;  ///< what the clerk is told; nothing when the text is accepted
    std::optional<Pair> rewritten;      ///< what the editor holds from now on; nothing leaves it as it is
};

/// Applies the kind of check of column `col` to a text. Codes are asked of the host, who may change anything
/// meanwhile: the column's definition is read again once it has answered.
FieldVerdict checkField(const EditingContext& context, std::int32_t col, std::string_view text);
}  // namespace kxVsGrid::editing
