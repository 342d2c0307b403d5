#include "editing/HelpDriver.h"

#include <utility>

#include "dialogs/CalendarForm.h"
#include "dialogs/ConstantForm.h"
#include "dialogs/LookupDefinition.h"
#include "dialogs/LookupForm.h"

namespace kxVsGrid::editing {
namespace {

using dialogs::CalendarForm;

int helpsOpen = 0;

/// Where the lookup's name stands in the host's first table.
constexpr std::int32_t ListName = 1;

std::string listName(const Variant& gridCode) {
    const Table* const table = gridCode.table();
    if (table && table->dimensions() == 2) return dialogs::textOf(dialogs::elementOf(gridCode, 0, ListName));
    const bool there = table && table->lower() <= ListName && table->upper() >= ListName;
    return there ? dialogs::textOf(&table->at(ListName)) : std::string();
}
}  // namespace

HelpDriver::HelpDriver(const EditingContext& context, const cVsControl& column, const Rect& cell)
    : c_(context), column_(column), cell_(cell) {
    if (helpsOpen++ > 0) outer_ = HelpExchange::shared();
}

HelpDriver::~HelpDriver() {
    if (--helpsOpen > 0) HelpExchange::shared() = std::move(outer_);
}

void HelpDriver::Drbmhelp(gEmHelpType type, const std::string& text, const std::string& helpCode) {
    HelpExchange& exchange = HelpExchange::shared();
    exchange.ReturnCode.clear();
    exchange.ReturnName.clear();
    exchange.SearchText = text;
    switch (static_cast<std::int32_t>(type)) {
        case ih通用型:
            return general(helpCode);
        case ih日期型:
        case ih半日型:
        case ih时间型:
            return date(type);
        case ih特殊型:
            return special(text);
        case ih常量型:
            return constants(helpCode);
        default:
            return;
    }
}

void HelpDriver::general(const std::string& helpCode) {
    HelpExchange& exchange = HelpExchange::shared();
    exchange.Grid_code = exchange.GridInfo = exchange.GridData = {};
    c_.host.raise(&GridEvents::GetHelpCodeInfo, Variant(helpCode), exchange.Grid_code, exchange.GridInfo,
                  exchange.GridData);
    if (!isPresent(exchange.Grid_code, "当前的帮助编码返回错误，或找不到当前的帮助编码")) return;
    if (!isPresent(exchange.GridInfo, "当前的帮助编码网络参数错误，或找不到当前的网格")) return;
    if (!isPresent(exchange.GridData, "当前的" + listName(exchange.Grid_code) + "数据为空,请先输入")) return;
    exchange.HelpCode = helpCode;
    dialogs::LookupForm form(c_.platform.textMetrics());
    form.EvHasGetHelpEdit.connect([this](Variant& data, const std::string& component) {
        c_.host.raise(&GridEvents::GetHelpEdit, component, data);
    });
    show(form);
}

/// Arrays with the upper bound 0 count as missing too, although they hold an element.
bool HelpDriver::isPresent(const Variant& table, const std::string& message) {
    if (table.isArray() && table.table()->upper() != 0) return true;
    c_.showMessage({message, MessageBox::Information, "Korvan软件"});
    return false;
}

void HelpDriver::date(gEmHelpType type) {
    using Mode = CalendarForm::Mode;
    const auto number = static_cast<std::int32_t>(type);
    CalendarForm form(number == ih半日型   ? Mode::HalfDay
                      : number == ih时间型 ? Mode::Time
                                           : Mode::Date,
                      [this] { return c_.platform.now(); });
    show(form);
}

void HelpDriver::special(const std::string& text) {
    const Rect cell = c_.owner.onScreen(cell_);
    std::string name = text;
    Variant value;
    c_.host.raise(&GridEvents::UserHelpEvent, cell.left, cell.bottom(), name, value);
    HelpExchange::shared().ReturnCode = dialogs::textOf(&value);
    HelpExchange::shared().ReturnName = std::move(name);
}

void HelpDriver::constants(const std::string& list) {
    HelpExchange::shared().HelpCode = list;
    dialogs::ConstantForm form(c_.platform.textMetrics());
    show(form);
}

void HelpDriver::show(Form& form) {
    form.startSize(column_.HelpWidth(), column_.HelpHeight());
    if (c_.host.there()) c_.platform.showForm(form, c_.owner.onScreen(cell_));
}
}  // namespace kxVsGrid::editing
