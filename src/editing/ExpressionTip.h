// What a clerk is told of an expression that was refused.
#pragma once

#include <string>
#include <string_view>

namespace kxVsGrid::editing {

/// The place, counted in characters from 1 as the clerk sees the text, and the reason: 第 3
/// 个字符：此处应为数字. Empty for a text that can be evaluated. `grouped` says that numbers may have group
/// separators.
std::string expressionTip(std::string_view text, bool grouped);
}  // namespace kxVsGrid::editing
