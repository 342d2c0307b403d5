#include "editing/ExpressionTip.h"

#include <algorithm>

#include "support/ExpressionFault.h"
#include "support/Text.h"

namespace kxVsGrid::editing {
namespace {

using support::ExpressionFault;

/// Where a byte of the evaluated text stands in the one that was typed: the former is the latter with some
/// blanks and separators left out.
std::size_t placeInTyped(std::string_view typed, std::string_view evaluated, std::size_t place) {
    std::size_t found = 0;
    for (std::size_t at = 0;; ++at, ++found) {
        if (at == evaluated.size()) return found;  // something is missing behind the last character
        while (found < typed.size() && typed[found] != evaluated[at]) ++found;
        if (at == place) return found;
    }
}

/// A character that cannot be seen is not shown.
std::string unknownCharacter(std::string_view character) {
    const char32_t code = support::firstCodePoint(character);
    const bool unseen = code <= 0x20 || (code >= 0x7F && code <= 0xA0) ||
                        (code >= 0x2000 && code <= 0x200F) || (code >= 0x2028 && code <= 0x202F) ||
                        code == 0x3000 || code == 0xFEFF || code == 0xFFFD;
    return unseen ? "无法识别的字符" : "无法识别“" + std::string(character) + "”";
}

std::string reasonFor(ExpressionFault::Reason reason, std::string_view character) {
    using enum ExpressionFault::Reason;
    switch (reason) {
        case OperandMissing:
            return "此处应为数字";
        case Unpaired:
            return "括号不配对";
        case DecimalPoint:
            return "多余的小数点";
        case UnknownCharacter:
            return unknownCharacter(character);
        case DivisionByZero:
            return "除数为零";
        case UndefinedPower:
            return "负数不能开方";
        case TooLarge:
            return "数值太大";
        case TooLong:
            return "算式太长";
    }
    return {};
}
/// A percent sign is known, but not here.
std::string reasonAtPercent(NumberForms forms) {
    return forms.percent ? "百分号只能写在单个数的末尾" : "此栏不用百分号";
}

/// What is evaluated to find the fault: separators that stand in place are none.
std::string withoutGoodSeparators(std::string_view text, NumberForms forms) {
    std::string plain = plainNumber(text, forms);
    if (forms.groups && isNumberInParts(plain)) std::erase(plain, ',');
    return plain;
}

std::string tipAt(std::string_view text, std::size_t place, const std::string& reason) {
    const std::size_t number = support::characters(text.substr(0, place)) + 1;
    return "第 " + std::to_string(number) + " 个字符：" + reason;
}
}  // namespace

std::string expressionTip(std::string_view text, NumberForms forms) {
    if (forms.groups) {
        if (const auto separator = misplacedSeparator(text))
            return tipAt(text, *separator, "千位逗号的位置不对");
    }
    const std::string evaluated = withoutGoodSeparators(text, forms);
    const auto fault = support::expressionFault(evaluated);
    if (!fault) return {};
    const std::size_t place = placeInTyped(text, evaluated, fault->place);
    const std::string_view at = support::left(text.substr(std::min(place, text.size())), 1);
    const bool percent = fault->reason == ExpressionFault::Reason::UnknownCharacter && at == "%";
    return tipAt(text, place, percent ? reasonAtPercent(forms) : reasonFor(fault->reason, at));
}
}  // namespace kxVsGrid::editing
