#include "sheet/Constants.h"

#include <algorithm>

#include "kxVsGrid/Members.h"
#include "sheet/ThrownReason.h"

namespace kxVsGrid::sheet {

std::string constantsList(const ColumnPlan& plan) {
    std::string list;
    for (const std::string& text : plan.constants) {
        if (text.empty() || text.find_first_of("|;") != std::string::npos)
            throw GridError("constants: “" + text + "” cannot stand in a list");
        if (!list.empty()) list += '|';
        list += text;
    }
    return list;
}

SuggestionList suggestedConstants(const ColumnPlan& plan) {
    SuggestionList list;
    for (const std::string& text : plan.constants) {
        const std::string name = plan.otherName ? plan.otherName(text) : std::string();
        list.add({text}, {name});
    }
    return list;
}

std::string refusedConstant(const ColumnPlan& plan, const void* record, const std::string& text, bool typed) {
    if (plan.constants.empty() || text.empty()) return {};
    if (std::find(plan.constants.begin(), plan.constants.end(), text) != plan.constants.end()) return {};
    try {
        if (plan.otherConstants && plan.otherConstants(record, text)) return {};
    } catch (...) {
        return typed ? std::string() : thrownReason("不能检查");
    }
    if (!plan.refusal.empty()) return plan.refusal;
    std::string all;
    for (const std::string& one : plan.constants) all += (all.empty() ? "" : "、") + one;
    return "只能是 " + all;
}
}  // namespace kxVsGrid::sheet
