// The check of a typed text before it is written into its cell.
//
// A column that asks for it takes codes that the host knows, dates in one of three forms, or anything. An
// accepted text is rewritten: a code as its pair of code and name, a date in its column's form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "editing/EditorOwner.h"
#include "kxVsGrid/Platform.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid::editing {

struct FieldVerdict {
    struct Pair {
        std::string text;
        std::string tag;
    };
    std::optional<MessageBox> refusal;  ///< what the clerk is told; nothing when the text is accepted
    std::optional<Pair> rewritten;      ///< what the editor holds from now on; nothing leaves it as it is
};

/// Applies the column's kind of check to the editor's text. Codes are asked of the host through `owner`.
FieldVerdict checkField(const cVsControl& column, std::string_view text, EditorOwner& owner);
}  // namespace kxVsGrid::editing
