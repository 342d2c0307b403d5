#include "kxVsGrid/ControlPage.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "cellgrid/format/FormatString.h"
#include "dialogs/Captions.h"
#include "dialogs/PageBoxes.h"

namespace kxVsGrid {
namespace {

using Type = Variant::Type;

constexpr std::int32_t Width = 9960;
constexpr std::int32_t Height = 5940;

Type typeOf(std::string_view member) {
    for (const Member& entry : cVsControl::members())
        if (entry.name == member) return entry.type;
    return Type::Empty;
}

/// What a box of that type has to hold, for one who has typed something else.
std::string rangeOf(Type type) {
    const auto between = [](auto least, auto most) {
        return "需要 " + std::to_string(least) + " 到 " + std::to_string(most) + " 之间的整数";
    };
    if (type == Type::Int16)
        return between(std::numeric_limits<std::int16_t>::min(), std::numeric_limits<std::int16_t>::max());
    if (type == Type::Int32)
        return between(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
    return "需要数字";
}
}  // namespace

ControlPage::ControlPage()
    : Form("ControlPage", dialogs::captions::ControlPageTitle, Width, Height),
      boxes_(std::make_unique<Boxes>(
          [this](std::string_view typeName, std::string_view name, std::string_view caption,
                 Rect place) -> FormControl& { return add(typeName, name, caption, place); })) {
    enable(false);
}

ControlPage::~ControlPage() = default;

void ControlPage::load() {
    resize_.py_Init(*this);
    giveFocus(boxes_->columns);
}

void ControlPage::resized() {
    resize_.ResizeForm(*this);
}

// --- Choosing

void ControlPage::select(const std::vector<ColumnSource*>& grids) {
    source_ = grids.empty() ? nullptr : grids.front();
    col_ = source_ != nullptr ? source_->Col() : -1;
    const bool listed = !boxes_->columns.list.empty();
    boxes_->columns.list.clear();
    if (listed && source_ != nullptr) fillLists();
    show();
}

void ControlPage::loadColumns() {
    press(boxes_->loadButton);
}

/// One entry per column: what its header shows, and its number.
void ControlPage::fillLists() {
    Boxes& b = *boxes_;
    const std::string format = source_->FormatString();
    const auto fields = cellgrid::parseFormatString(format).columns;
    b.columns.list.clear();
    for (std::int32_t col = 0; col < source_->Cols(); ++col) {
        const auto place = static_cast<std::size_t>(col);
        std::string entry(place < fields.size() ? fields[place].caption : std::string_view());
        b.columns.list.push_back(entry.append("  ").append(std::to_string(col)));
    }
    for (Boxes::List* list : {&b.alignment, &b.type}) {
        std::vector<std::string>& entries = list->field.control.list;
        entries.clear();
        for (const Boxes::Item& item : list->items) entries.emplace_back(item.caption);
    }
}

void ControlPage::chooseColumn(std::int32_t col) {
    const bool dropped = changed_;
    const std::int32_t before = col_;
    if (col < source_->Cols()) source_->Col(col);
    col_ = source_->Col();
    show();
    if (col_ != col)
        explain("不能选择列 " + std::to_string(col) + "。");
    else if (dropped && before != col_)
        explain("列 " + std::to_string(before) + " 的修改没有应用，已放弃。");
}

// --- Showing

void ControlPage::show() {
    Boxes& b = *boxes_;
    const bool there = source_ != nullptr && col_ >= 0;
    const std::shared_ptr<cVsControl> definition = there ? source_->SetVsControl() : nullptr;
    for (const Boxes::Field& check : b.checks)
        check.control.checked = definition && definition->Get(check.member).toBoolean();
    for (const Boxes::Field& text : b.texts) {
        text.control.text = definition ? definition->Get(text.member).toText() : std::string();
        text.control.selStart = text.control.selLength = 0;
    }
    if (definition) {
        b.alignment.choose(definition->iColAlignment());
        b.type.choose(definition->iType());
    }
    showChoice();
    enable(there);
    explain({});
    for (const auto& control : controls()) Form::changed(*control);
    markChanged(false);
}

void ControlPage::showChoice() {
    FormControl& columns = boxes_->columns;
    const bool listed = col_ >= 0 && static_cast<std::size_t>(col_) < columns.list.size();
    columns.text = listed ? columns.list[static_cast<std::size_t>(col_)] : std::string();
}

void ControlPage::enable(bool there) {
    Boxes& b = *boxes_;
    b.loadButton.enabled = source_ != nullptr;
    b.columns.enabled = there;
    b.alignment.field.control.enabled = there;
    b.type.field.control.enabled = there;
    for (const Boxes::Field& text : b.texts) text.control.enabled = there;
    for (const Boxes::Field& check : b.checks) check.control.enabled = there;
}

const std::string& ControlPage::problem() const {
    return boxes_->problem.caption;
}

void ControlPage::explain(std::string_view text) {
    boxes_->problem.caption = text;
    Form::changed(boxes_->problem);
}

void ControlPage::markChanged(bool now) {
    const bool differs = changed_ != now;
    changed_ = now;
    boxes_->apply.enabled = now;
    Form::changed(boxes_->apply);
    if (differs && listener_) listener_(now);
}

// --- Working on it

void ControlPage::pressed(FormControl& button) {
    Boxes& b = *boxes_;
    if (&button == &b.cancel) {
        close();
    } else if (&button == &b.apply) {
        Apply();
    } else if (&button == &b.ok) {
        if (!changed_ || Apply()) close();
    } else if (source_ != nullptr) {
        fillLists();
        showChoice();
        if (!changed_) return show();  // the lists can show the column's alignment and type now
        for (FormControl* list : {&b.columns, &b.alignment.field.control, &b.type.field.control})
            Form::changed(*list);
    }
}

void ControlPage::textChanged(FormControl&) {
    markChanged(true);
}

void ControlPage::checkChanged(FormControl&) {
    markChanged(true);
}

void ControlPage::picked(FormControl& list) {
    if (&list != &boxes_->columns) return markChanged(true);
    const auto entry = std::find(list.list.begin(), list.list.end(), list.text);
    if (source_ != nullptr) chooseColumn(static_cast<std::int32_t>(entry - list.list.begin()));
}

bool ControlPage::Apply() {
    if (source_ == nullptr || col_ < 0) return false;
    if (col_ >= source_->Cols()) {
        explain("列 " + std::to_string(col_) + " 已不存在，没有应用修改。");
        return false;
    }
    std::vector<std::pair<std::string_view, Variant>> values;
    for (const Boxes::Field& text : boxes_->texts) {
        const Type type = typeOf(text.member);
        try {
            values.emplace_back(text.member, Variant(text.control.text).as(type));
        } catch (const ConversionError&) {
            explain(std::string(text.member) + "：“" + text.control.text + "” 不行，" + rangeOf(type) +
                    "。没有应用修改。");
            giveFocus(text.control);
            return false;
        }
    }
    for (const Boxes::Field& check : boxes_->checks) values.emplace_back(check.member, check.control.checked);
    for (const Boxes::List* list : {&boxes_->alignment, &boxes_->type})
        if (const std::int32_t* code = list->chosen()) values.emplace_back(list->field.member, *code);

    if (source_->Col() != col_) source_->Col(col_);
    if (source_->Col() != col_) {  // the host has refused the move: the definition would be another column's
        explain("不能选择列 " + std::to_string(col_) + "，没有应用修改。");
        return false;
    }
    std::shared_ptr<cVsControl> definition = source_->SetVsControl();
    if (!definition) definition = std::make_shared<cVsControl>();
    for (const auto& [member, value] : values) definition->Put(member, value);
    source_->SetVsControl(std::move(definition));
    explain({});
    markChanged(false);
    source_->applied();
    return true;
}
}  // namespace kxVsGrid
