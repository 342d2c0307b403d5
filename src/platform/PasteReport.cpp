#include "kxVsGrid/PasteReport.h"

namespace kxVsGrid {
namespace {

void append(std::string& summary, const char* what, std::int64_t count) {
    if (count == 0) return;
    if (!summary.empty()) summary += "，";
    summary += what + std::to_string(count) + " 格";
}

struct Words {
    const char* done;
    const char* nothing;
    const char* rest;
};
Words wordsOf(Command command) {
    if (command == Command::Cut || command == Command::ClearCells)
        return {"已清除 ", "没有清除", "，其余中断未清除"};
    if (command == Command::Replace) return {"替换 ", "没有替换", "，其余中断未替换"};
    return {"写入 ", "没有写入", "，其余中断未写"};
}
}  // namespace

std::string passedOverText(std::int64_t rows) {
    if (rows == 0) return {};
    return "有 " + std::to_string(rows) + " 行被筛选隐藏，未处理。";
}

std::string PasteReport::summary() const {
    if (cancelled) return "已取消，没有改动。";
    if (passedOver == 0 && refused == 0 && !cutShort) return passedOverText(filteredRows);
    const Words words = wordsOf(command);
    std::string summary;
    append(summary, words.done, written);
    append(summary, "跳过只读 ", passedOver);
    append(summary, "未通过 ", refused);
    if (summary.empty()) summary = words.nothing;
    if (cutShort) summary += words.rest;
    return summary + "。" + passedOverText(filteredRows);
}
}  // namespace kxVsGrid
