#include "dialogs/PageBoxes.h"

#include <array>
#include <string>

#include "dialogs/Captions.h"

namespace kxVsGrid {
namespace {

constexpr std::int32_t Margin = 240;
constexpr std::int32_t LineHeight = 450;
constexpr std::int32_t BoxHeight = 345;
constexpr std::int32_t LabelWidth = 2220;
constexpr std::int32_t BoxWidth = 2400;
constexpr std::int32_t HalfWidth = LabelWidth + BoxWidth + Margin;
constexpr std::int32_t FirstLine = 1;
constexpr std::int32_t FirstCheckLine = 8;

std::int32_t topOf(std::int32_t line) {
    return Margin + line * LineHeight;
}
/// Where the label and the box of a property stand, in the left (0) or right (1) half of the page.
struct Spot {
    std::int32_t half;
    std::int32_t line;

    Rect label() const { return {Margin + half * HalfWidth, topOf(line) + 60, LabelWidth, 240}; }
    Rect box() const { return {Margin + half * HalfWidth + LabelWidth, topOf(line), BoxWidth, BoxHeight}; }
};

struct TextSpot {
    std::string_view member;
    Spot spot;
};

/// The numbers of the boxes are their places here: down the left half, then down the right one, as the
/// keyboard goes.
constexpr std::array<TextSpot, 11> textSpots{{
    {"sHelp_Code", {0, FirstLine + 2}},
    {"s文本框对应编码字段", {0, FirstLine + 3}},
    {"s文本框对应名称字段", {0, FirstLine + 4}},
    {"s有效性判断基础", {0, FirstLine + 5}},
    {"s错误提示信息", {0, FirstLine + 6}},
    {"i帮助类型", {1, FirstLine + 1}},
    {"i帮助返回值显示类型", {1, FirstLine + 2}},
    {"i字段有效性判断类型", {1, FirstLine + 3}},
    {"i有效性判断", {1, FirstLine + 4}},
    {"d列前景色", {1, FirstLine + 5}},
    {"d列背景色", {1, FirstLine + 6}},
}};

constexpr std::array<std::string_view, 6> checkMembers{"b是否提供帮助", "bIsEditable",   "bIsVisible",
                                                       "b是否合计数据", "b是否编辑多行", "b是否设列颜色"};

std::string numbered(const char* array, std::size_t index) {
    return std::string(array) + "(" + std::to_string(index) + ")";
}

FormControl& labelled(const AddControl& add, std::string_view typeName, const std::string& name,
                      std::string_view member, Spot spot) {
    add("Label", "Label" + name, member, spot.label());
    return add(typeName, name, member, spot.box());
}
}  // namespace

const std::int32_t* ControlPage::Boxes::List::chosen() const {
    for (const Item& item : items)
        if (field.control.text == item.caption && !field.control.list.empty()) return &item.code;
    return nullptr;
}

void ControlPage::Boxes::List::choose(std::int32_t code) {
    if (field.control.list.empty()) return;
    for (const Item& item : items) {
        if (item.code != code) continue;
        field.control.text = item.caption;
        return;
    }
}

ControlPage::Boxes::Boxes(const AddControl& add)
    : columns(labelled(add, "ComboBox", "Combo1", "Col", {0, 0})),
      loadButton(add("CommandButton", "Command1", dialogs::captions::LoadColumns,
                     {Margin + HalfWidth, topOf(0), 1800, BoxHeight})),
      alignment{{"iColAlignment", labelled(add, "ComboBox", "Combo2", "iColAlignment", {0, FirstLine})},
                {{"居中", flexAlignCenterCenter},
                 {"左居中", flexAlignLeftCenter},
                 {"右居中", flexAlignRightCenter}}},
      type{{"iType", labelled(add, "ComboBox", "Combo3", "iType", {0, FirstLine + 1})},
           {{"空", flexDTEmpty},
            {"文本型", flexDTString},
            {"数字型", flexDTDouble},
            {"逻辑型", flexDTBoolean},
            {"日期型", flexDTDate}}},
      texts([&add] {
          std::vector<Field> fields;
          for (std::size_t i = 0; i < textSpots.size(); ++i)
              fields.push_back({textSpots[i].member, labelled(add, "TextBox", numbered("Txt", i),
                                                              textSpots[i].member, textSpots[i].spot)});
          return fields;
      }()),
      checks([&add] {
          std::vector<Field> fields;
          for (std::size_t i = 0; i < checkMembers.size(); ++i) {
              const auto line = static_cast<std::int32_t>(i / 3);
              const auto column = static_cast<std::int32_t>(i % 3);
              const Rect place{Margin + column * 3200, topOf(FirstCheckLine + line), 3000, 300};
              fields.push_back(
                  {checkMembers[i], add("CheckBox", numbered("Chk", i), checkMembers[i], place)});
          }
          return fields;
      }()),
      problem(add("Label", "Problem", "", {Margin, topOf(FirstCheckLine + 2), 2 * HalfWidth - Margin, 480})),
      ok(add("kxButton", "QdCommand", dialogs::captions::Ok, {5460, 5340, 1200, 360})),
      cancel(add("CommandButton", "QxCommand", dialogs::captions::Cancel, {6840, 5340, 1200, 360})),
      apply(add("CommandButton", "YyCommand", dialogs::captions::Apply, {8220, 5340, 1380, 360})) {
    ok.isDefault = true;
    cancel.isCancel = true;
    apply.enabled = false;
}
}  // namespace kxVsGrid
