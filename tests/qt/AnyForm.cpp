#include "qt/AnyForm.h"

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::qt::testing {

AnyForm::AnyForm() : Form("AnyForm", "一个窗口", 5400, 5400) {
    add("Label", "Caption", "名称(&N)：", {120, 150, 1200, 240});
    add("TextBox", "Text", "名称", {1440, 120, 3840, 330});
    add("ComboBox", "Combo", "单位", {120, 600, 1800, 345}).list = {"箱", "件", "瓶"};
    add("CheckBox", "Check", "含税(&T)", {2160, 600, 1440, 300});
    add("DTPicker", "Time", "时间", {3720, 600, 1560, 345}).value = {2026, 11, 20, 8, 30, 0};
    add("Line", "Line", "", {120, 1080, 5160, 0});
    add("MonthView", "Month", "日期", {120, 1200, 3300, 3480}).value = {2026, 11, 20};
    add("CellGrid", "List", "列表", {3540, 1200, 1740, 3480}).grid = &grid;
    add("Picture", "Unknown", "未知", {4440, 4800, 600, 420});
    add("kxButton", "Extra", "其他(&E)", {2280, 4800, 960, 420});
    add("CommandButton", "Ok", "确定", {120, 4800, 960, 420}).isDefault = true;
    add("CommandButton", "Cancel", "取消", {1200, 4800, 960, 420}).isCancel = true;
    add("CommandButton", "Hidden", "隐藏", {3360, 4800, 960, 420}).visible = false;
    add("Label", "NoPlace", "无处", {});
    control("Text").text = "abc";
    control("Text").selStart = 3;
    control("Combo").text = "箱";
    grid.Cols(2);
    grid.FixedCols(0);
    grid.Rows(31);
    grid.ColWidth(0, ColumnWidth);
    grid.ColWidth(1, ColumnWidth);
    grid.SelectsRows(true);
    for (std::int32_t row = 0; row < grid.Rows(); ++row) grid.Text(row, 0, "行" + std::to_string(row));
    grid.Select(1, 0);
}

std::string AnyForm::words() const {
    std::string text;
    for (const std::string& word : heard) text += (text.empty() ? "" : ", ") + word;
    return text;
}

void AnyForm::note(const std::string& word) {
    heard.push_back(word);
    if (at) at(*this, word);
}

void AnyForm::load() {
    const Rect place = control("List").place;
    grid.Resize(place.width, place.height);
    resize_.py_Init(*this);
    note("load");
}

void AnyForm::resized() {
    resize_.ResizeForm(*this);
    note("resized");
}

void AnyForm::unload() {
    note("unload");
}

void AnyForm::pressed(FormControl& button) {
    note("press " + button.name);
    if (!keepsEnter && (button.isDefault || button.isCancel)) close();
}

void AnyForm::textChanged(FormControl& box) {
    note("text " + box.text);
}

void AnyForm::checkChanged(FormControl& box) {
    note(box.checked ? "check" : "uncheck");
}

void AnyForm::picked(FormControl& list) {
    note("pick " + list.text);
}

void AnyForm::chosen(FormControl& calendar) {
    const DateTime& v = calendar.value;
    note(calendar.name == "Month"
             ? "day " + std::to_string(v.year) + "-" + std::to_string(v.month) + "-" + std::to_string(v.day)
             : "time " + std::to_string(v.hour) + ":" + std::to_string(v.minute) + ":" +
                   std::to_string(v.second));
}

void AnyForm::doubleClicked(FormControl& control) {
    note("double " + control.name);
}

/// Has a use of its own for F5.
bool AnyForm::keyDown(FormControl& focused, std::int16_t code, std::int16_t) {
    constexpr std::int16_t F5 = 116;
    if (code != F5) return false;
    note("F5 in " + focused.name);
    return true;
}
}  // namespace kxVsGrid::qt::testing
