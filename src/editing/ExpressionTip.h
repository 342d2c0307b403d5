// What a clerk is told of an expression that was refused.
#pragma once

#include <string>
#include <string_view>

#include "editing/InputForms.h"

namespace kxVsGrid::editing {

/// The place, counted in characters from 1 as the clerk sees the text, and the reason: 第 3
/// 个字符：此处应为数字. Empty for a text that can be evaluated in a column whose numbers may have these forms.
std::string expressionTip(std::string_view text, NumberForms forms);
}  // namespace kxVsGrid::editing
