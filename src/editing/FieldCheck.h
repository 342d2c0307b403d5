// The check of a typed text before it is written into its cell.
#pragma once

#include "editing/TextBox.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid::editing {

/// True when the column accepts the text. No rule is applied yet: every text is accepted.
inline bool passesFieldCheck(TextBox&, const cVsControl&) {
    return true;
}
}  // namespace kxVsGrid::editing
