#include "kxVsGrid/headless/Dialogs.h"

#include <algorithm>
#include <stdexcept>

#include "headless/TextLine.h"
#include "support/Text.h"

namespace kxVsGrid::headless {
namespace {

TextLine lineOf(const FormControl& box) {
    TextLine line;
    line.text = box.text;
    line.selStart = static_cast<std::size_t>(box.selStart);
    line.selLength = static_cast<std::size_t>(box.selLength);
    return line;
}
}  // namespace

DialogBase::DialogBase(Form& form) : form_(form) {
    form_.open(*this);
}

DialogBase::~DialogBase() {
    if (open_) form_.closed();
}

void DialogBase::requireOpen(const char* what) const {
    if (!open_) throw std::logic_error(std::string(what) + ": the dialog " + form_.name() + " has closed");
}

const std::string& DialogBase::focused() const {
    return focused_;
}

void DialogBase::close() {
    if (!open_) return;
    open_ = false;
    form_.closed();
}

void DialogBase::closeByFrame() {
    requireOpen("close");
    close();
}

void DialogBase::focus(std::string_view name) {
    focused_ = control(name).name;
}

void DialogBase::setText(FormControl& box, std::string_view text) {
    requireOpen("type");
    focused_ = box.name;
    const auto end = static_cast<std::int32_t>(support::characters(text));
    form_.edit(box, text, end, 0);
}

void DialogBase::type(std::string_view text) {
    requireOpen("type");
    FormControl& box = control(focused_);
    if (box.typeName != "TextBox") throw std::logic_error("type: " + focused_ + " is no text box");
    while (!text.empty() && open_) {
        const std::string character(support::left(text, 1));
        text.remove_prefix(character.size());
        TextLine line = lineOf(box);
        line.insert(character);
        form_.edit(box, line.text, static_cast<std::int32_t>(line.selStart),
                   static_cast<std::int32_t>(line.selLength));
    }
}

void DialogBase::press(Key key, std::int16_t shift) {
    requireOpen("press");
    FormControl& box = control(focused_);
    if (form_.key(box, static_cast<std::int16_t>(key), shift) || !open_) return;
    if (box.typeName == "CellGrid") {
        box.grid->keyDown(static_cast<std::int16_t>(key), shift);
    } else if (box.typeName == "TextBox") {
        TextLine line = lineOf(box);
        line.key(key);
        form_.edit(box, line.text, static_cast<std::int32_t>(line.selStart),
                   static_cast<std::int32_t>(line.selLength));
    }
}

void DialogBase::click(std::string_view button) {
    requireOpen("click");
    FormControl& pressed = control(button);
    if (!pressed.visible || !pressed.enabled)
        throw std::logic_error("click: " + pressed.name + " is hidden or disabled");
    form_.press(pressed);
}

void DialogBase::clickRow(FormControl& shown, std::int32_t row) {
    requireOpen("click");
    CellGrid& grid = *shown.grid;
    const Rect cell = grid.CellRect(row, grid.LeftCol());
    const std::int32_t x = cell.left + 1;
    const std::int32_t y = cell.top + cell.height / 2;
    if (grid.HitTest(x, y).row != row)
        throw std::logic_error("click: row " + std::to_string(row) + " is not in view");
    focused_ = shown.name;
    grid.mouseDown(LeftButton, 0, x, y);
    grid.mouseUp(LeftButton, 0, x, y);
}

void DialogBase::idle() {
    requireOpen("idle");
    while (!slices_.empty()) {
        const auto slice = slices_.front();
        slices_.erase(slices_.begin());
        if (slice()) slices_.push_back(slice);
    }
}

// --- The dialogs

FormControl& FormDialog::reach(const char* what, std::string_view name,
                               std::initializer_list<const char*> types) {
    FormControl& wanted = reach(what, name);
    if (std::find(types.begin(), types.end(), wanted.typeName) == types.end())
        throw std::logic_error(std::string(what) + ": " + wanted.name + " is a " + wanted.typeName);
    return wanted;
}

FormControl& FormDialog::reach(const char* what, std::string_view name) {
    requireOpen(what);
    FormControl& wanted = control(name);
    if (!wanted.visible || !wanted.enabled)
        throw std::logic_error(std::string(what) + ": " + wanted.name + " is hidden or disabled");
    return wanted;
}

CellGrid& FormDialog::grid(std::string_view name) const {
    const FormControl& wanted = control(name);
    if (!wanted.grid) throw std::logic_error("grid: " + wanted.name + " is a " + wanted.typeName);
    return *wanted.grid;
}

FormDialog& FormDialog::focus(std::string_view name) {
    DialogBase::focus(reach("focus", name).name);
    return *this;
}

FormDialog& FormDialog::click(std::string_view button) {
    DialogBase::click(reach("click", button, {"CommandButton", "kxButton"}).name);
    return *this;
}

FormDialog& FormDialog::text(std::string_view box, std::string_view text) {
    setText(reach("text", box, {"TextBox"}), text);
    return *this;
}

FormDialog& FormDialog::check(std::string_view box, bool checked) {
    form().check(reach("check", box, {"CheckBox"}), checked);
    return *this;
}

FormDialog& FormDialog::pick(std::string_view list, std::string_view entry) {
    FormControl& wanted = reach("pick", list, {"ComboBox"});
    const auto found = std::find(wanted.list.begin(), wanted.list.end(), entry);
    if (found == wanted.list.end())
        throw std::logic_error("pick: " + wanted.name + " has no entry " + std::string(entry));
    form().pick(wanted, static_cast<std::int32_t>(found - wanted.list.begin()));
    return *this;
}

FormDialog& FormDialog::choose(std::string_view calendar, const DateTime& value) {
    form().choose(reach("choose", calendar, {"MonthView", "DTPicker"}), value);
    return *this;
}

FormDialog& FormDialog::clickRow(std::string_view grid, std::int32_t row) {
    DialogBase::clickRow(reach("click", grid, {"CellGrid"}), row);
    return *this;
}

FormDialog& FormDialog::doubleClick(std::string_view name) {
    form().doubleClick(reach("double click", name));
    return *this;
}

void LookupDialog::doubleClickRow(std::int32_t row) {
    clickRow(row);
    form().doubleClick(control("CzxsGrid"));
}

void ConstantDialog::doubleClickRow(std::int32_t row) {
    clickRow(row);
    form().doubleClick(control("CzxsGrid"));
}

void CalendarDialog::day(std::int32_t year, std::int32_t month, std::int32_t day) {
    requireOpen("choose");
    form().choose(control("MonthView1"), {year, month, day});
}

void CalendarDialog::time(std::int32_t hour, std::int32_t minute, std::int32_t second) {
    requireOpen("choose");
    FormControl& picker = control("DTPTime");
    if (!picker.visible) throw std::logic_error("choose: the calendar shows no time");
    DateTime value = picker.value;
    value.hour = hour;
    value.minute = minute;
    value.second = second;
    form().choose(picker, value);
}

void CalendarDialog::half(std::string_view word) {
    requireOpen("choose");
    FormControl& list = control("Cob");
    if (!list.visible) throw std::logic_error("choose: the calendar shows no half-days");
    const auto found = std::find(list.list.begin(), list.list.end(), word);
    if (found == list.list.end()) throw std::logic_error("choose: no half-day " + std::string(word));
    form().pick(list, static_cast<std::int32_t>(found - list.list.begin()));
}

void CalendarDialog::doubleClickDay() {
    requireOpen("double click");
    form().doubleClick(control("MonthView1"));
}
}  // namespace kxVsGrid::headless
