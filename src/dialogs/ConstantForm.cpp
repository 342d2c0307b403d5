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
      list_(add("CellGrid", "CzxsGrid", captions::ConstantsTitle, {240, 240, 3720, 2760})),
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
    giveFocus(list_);
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

/// No text is cut that is not very long.
void ConstantForm::fitColumns() {
    constexpr std::size_t VeryLong = 200;
    for (const std::int32_t col : {Name, Value}) {
        std::int32_t width = grid_.ColWidth(col);
        for (std::int32_t row = grid_.FixedRows(); row < grid_.Rows() && width < WidestColumn; ++row) {
            const std::string text = grid_.Text(row, col);
            const bool longText = text.size() > VeryLong;
            width = std::max(width, longText ? WidestColumn : metrics_.textWidth(text) + metrics_.padding());
        }
        grid_.ColWidth(col, std::min(width, WidestColumn));
    }
}

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
