#include "dialogs/ConstantForm.h"

#include <algorithm>
#include <vector>

#include "dialogs/Captions.h"
#include "dialogs/Lists.h"
#include "kxVsGrid/HelpExchange.h"
#include "support/Text.h"

namespace kxVsGrid::dialogs {
namespace {

constexpr std::int32_t Name = 1;
constexpr std::int32_t Value = 2;
constexpr std::int32_t RowHeight = 300;
constexpr std::int32_t WidestColumn = 6000;
}  // namespace

ConstantForm::ConstantForm(const TextMetrics& metrics)
    : Form("XT_Const", captions::ConstantsTitle, 4200, 3900),
      metrics_(metrics),
      grid_(metrics),
      text_(add("TextBox", "CodeText", captions::Search, {240, 150, 1920, 330})),
      list_(add("CellGrid", "CzxsGrid", captions::ConstantsTitle, {240, 810, 3720, 2190})),
      notFound_(add("Label", "NotFound", "", {2250, 195, 960, 240})),
      ok_(add("kxButton", "QdCommand", captions::Ok, {1440, 3180, 1200, 360})) {
    list_.grid = &grid_;
    ok_.isDefault = true;
    add("CommandButton", "QxCommand", captions::Cancel, {2760, 3180, 1200, 360}).isCancel = true;
}

void ConstantForm::load() {
    grid_.Redraw(0);
    grid_.Resize(list_.place.width, list_.place.height);
    grid_.Cols(3);
    grid_.FixedRows(1);
    grid_.FixedCols(1);
    grid_.Rows(1);
    grid_.RowHeightMin(RowHeight);
    grid_.FormatString(" |名称          |值");
    grid_.ColAlignment(Name, flexAlignLeftCenter);
    grid_.FixedAlignment(Name, flexAlignCenterCenter);
    grid_.FixedAlignment(Value, flexAlignCenterCenter);
    grid_.SelectsRows(true);
    fill();
    fitColumns();
    grid_.Redraw(1);
    resize_.py_Init(*this);
    giveFocus(text_);
    const std::string present(support::trim(HelpExchange::shared().SearchText));
    text_.text = present;
    text_.selStart = 0;
    text_.selLength = static_cast<std::int32_t>(support::characters(present));
    changed(text_);
    if (present.empty()) return;
    const std::int32_t row = rowOf(present, true);
    sayWhetherFound(row >= 0);
    if (row >= 0) show(row);
}

void ConstantForm::fill() {
    const std::string list = HelpExchange::shared().HelpCode;
    std::string_view items = list;
    if (items.starts_with('|')) items.remove_prefix(1);
    if (items.empty()) return;
    for (const std::string_view item : splitAt(items, '|')) {
        const std::int32_t row = grid_.Rows();
        grid_.Rows(row + 1);
        const std::vector<std::string_view> parts = splitAt(item, ';');
        grid_.Text(row, Name, parts[0]);
        grid_.Text(row, Value, parts.size() > 1 ? parts[1] : parts[0]);
    }
}

/// Two columns of the same texts say no more than one.
bool ConstantForm::valuesAreNames() const {
    if (grid_.Rows() == grid_.FixedRows()) return false;
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row)
        if (grid_.Text(row, Name) != grid_.Text(row, Value)) return false;
    return true;
}

/// No text is cut that is not very long.
void ConstantForm::fitColumns() {
    constexpr std::size_t VeryLong = 200;
    grid_.ColHidden(Value, valuesAreNames());
    for (const std::int32_t col : {Name, Value}) {
        std::int32_t width = grid_.ColWidth(col);
        for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows() && width < WidestColumn; ++row) {
            const std::string text = grid_.Text(row, col);
            const bool longText = text.size() > VeryLong;
            width = std::max(width, longText ? WidestColumn : metrics_.textWidth(text) + metrics_.padding());
        }
        grid_.ColWidth(col, std::min(width, WidestColumn));
    }
    if (grid_.ColHidden(Value)) grid_.ColWidth(Name, std::max(grid_.ColWidth(Name), roomForOne()));
}

// --- Finding

/// The first constant whose name or value is the text, or begins with it; -1 when there is none.
std::int32_t ConstantForm::rowOf(std::string_view text, bool whole) const {
    const auto fits = [&](const std::string& cell) {
        const std::string_view trimmed = support::trim(cell);
        return whole ? trimmed == text : trimmed.starts_with(text);
    };
    for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows(); ++row)
        if (fits(grid_.Text(row, Name)) || fits(grid_.Text(row, Value))) return row;
    return -1;
}

void ConstantForm::show(std::int32_t row) {
    grid_.Select(row, Name);
    if (!grid_.RowIsVisible(row)) grid_.TopRow(row);
}

/// The width that the only column has in the list, beside the header column and the scroll bar.
std::int32_t ConstantForm::roomForOne() const {
    constexpr std::int32_t Edges = 90;
    return list_.place.width - grid_.ColWidth(0) - CellGrid::VerticalBarWidth - Edges;
}

void ConstantForm::sayWhetherFound(bool found) {
    notFound_.caption = found ? "" : captions::NotFound;
    changed(notFound_);
}

/// A constant that is wholly typed is meant before longer ones that begin with it.
void ConstantForm::textChanged(FormControl& box) {
    if (&box != &text_) return;
    const std::string_view typed = support::trim(text_.text);
    const std::int32_t exact = typed.empty() ? -1 : rowOf(typed, true);
    const std::int32_t row = exact >= 0 || typed.empty() ? exact : rowOf(typed, false);
    sayWhetherFound(typed.empty() || row >= 0);
    if (row >= 0) return show(row);
    const std::int32_t current = grid_.Row();
    if (current >= grid_.FixedRows() && !grid_.RowIsVisible(current))
        grid_.BringRowIntoView(current, grid_.ClientHeight());
}

/// Keys that move the highlight do so from the search box too.
bool ConstantForm::keyDown(FormControl& focused, std::int16_t code, std::int16_t shift) {
    if (&focused != &text_ || shift != 0) return false;
    const auto key = static_cast<Key>(code);
    if (key != Key::Up && key != Key::Down && key != Key::PageUp && key != Key::PageDown) return false;
    grid_.keyDown(code, 0);
    return true;
}

// --- The clerk

void ConstantForm::resized() {
    resize_.ResizeForm(*this);
    grid_.Resize(list_.place.width, list_.place.height);
}

void ConstantForm::pressed(FormControl& button) {
    if (&button == &ok_)
        accept();
    else
        finish({}, {});
}

void ConstantForm::doubleClicked(FormControl& control) {
    if (&control == &list_) accept();
}

void ConstantForm::accept() {
    const std::int32_t row = grid_.Row();
    if (row < grid_.FixedRows()) return finish({}, {});
    finish(std::string(support::trim(grid_.Text(row, Value))),
           std::string(support::trim(grid_.Text(row, Name))));
}

void ConstantForm::finish(std::string code, std::string name) {
    HelpExchange::shared().ReturnCode = std::move(code);
    HelpExchange::shared().ReturnName = std::move(name);
    close();
}
}  // namespace kxVsGrid::dialogs
