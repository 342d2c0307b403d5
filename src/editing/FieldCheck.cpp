#include "editing/FieldCheck.h"

#include <memory>

#include "editing/InputForms.h"
#include "support/Text.h"

namespace kxVsGrid::editing {
namespace {

/// The text is known when the host finds a name for it. Which half of the pair shows is the column's choice;
/// the other one becomes the tag.
FieldVerdict checkCode(const EditingContext& c, std::int32_t col, std::string_view text) {
    std::string code;
    std::string name;
    std::shared_ptr<cVsControl> column = c.columns.shared(col);
    c.host.raise(&GridEvents::TxtValidBmS, column->s有效性判断基础(), column->s文本框对应编码字段(),
                 column->s文本框对应名称字段(), std::string(support::withoutTrailingLineBreaks(text)), code,
                 name);
    if (col <= c.columns.upper()) column = c.columns.shared(col);
    if (name.empty()) return {MessageBox{column->s错误提示信息(), MessageBox::Critical, "错误："}, {}};
    if (column->i帮助返回值显示类型() == iText记Name) return {{}, FieldVerdict::Pair{name, code}};
    return {{}, FieldVerdict::Pair{code, name}};
}

FieldVerdict checkDate(const EditingContext& c, DateForm form, std::string_view text) {
    const DateTime now = c.platform.now();
    if (auto date = inDateForm(form, text, now)) return {{}, FieldVerdict::Pair{*date, *date}};
    const std::string example = "非法公历日期!(格式:" + exampleOf(form, now) + ")";
    return {MessageBox{example, MessageBox::Information, "提示："}, {}};
}
}  // namespace

FieldVerdict checkField(const EditingContext& c, std::int32_t col, std::string_view text) {
    const cVsControl& column = c.columns.at(col);
    if (column.i字段有效性判断类型() == ij编码型) return checkCode(c, col, text);
    if (const auto form = dateFormOf(column)) return checkDate(c, *form, text);
    return {};
}
}  // namespace kxVsGrid::editing
