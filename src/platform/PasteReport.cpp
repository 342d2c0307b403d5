#include "kxVsGrid/PasteReport.h"

namespace kxVsGrid {
namespace {

void append(std::string& summary, const char* what, std::int64_t count) {
    if (count == 0) return;
    if (!summary.empty()) summary += "，";
    summary += what + std::to_string(count) + " 格";
}
}  // namespace

std::string passedOverText(std::int64_t rows) {
    if (rows == 0) return {};
    return "有 " + std::to_string(rows) + " 行被筛选隐藏，未处理。";
}

std::string PasteReport::summary() const {
    if (cancelled) return "已取消，没有改动。";
    if (passedOver == 0 && refused == 0 && !cutShort) return passedOverText(filteredRows);
    const bool clears = command == Command::Cut || command == Command::ClearCells;
    std::string summary;
    append(summary, clears ? "已清除 " : "写入 ", written);
    append(summary, "跳过只读 ", passedOver);
    append(summary, "未通过 ", refused);
    if (summary.empty()) summary = clears ? "没有清除" : "没有写入";
    if (cutShort) summary += "，其余中断" + std::string(clears ? "未清除" : "未写");
    return summary + "。" + passedOverText(filteredRows);
}
}  // namespace kxVsGrid
