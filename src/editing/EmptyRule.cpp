#include "editing/EmptyRule.h"

#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

std::string brokenRule(const cVsControl& column, std::string_view tag) {
    const std::string_view value = support::trim(tag);
    const gEmNotAllowEmptyType rule = column.i是否允许为空();
    if (rule == i字段不能为空 && value.empty()) return column.sName() + "不能为空!";
    if (rule == i字段不能为零 && support::leadingNumber(value) == 0) return column.sName() + "不能为零!";
    return {};
}
}  // namespace kxVsGrid::editing
