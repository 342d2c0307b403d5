#include "kxVsGrid/cVsControl.h"

#include <algorithm>
#include <array>
#include <type_traits>
#include <variant>

#include "support/Text.h"

namespace kxVsGrid {
namespace {

template <typename T>
struct Property {
    T (cVsControl::*get)() const;
    void (cVsControl::*put)(T);
};

struct TextProperty {
    const std::string& (cVsControl::*get)() const;
    void (cVsControl::*put)(std::string_view);
};

using AnyProperty =
    std::variant<Property<bool>, Property<std::int16_t>, Property<std::int32_t>, Property<double>,
                 TextProperty, Property<mEmflexAlign>, Property<mEmDataType>, Property<gEmHelpType>,
                 Property<gEmShowCodeName>, Property<gEmNotAllowEmptyType>, Property<gEmJudgeType>>;

struct PropertyEntry {
    std::string_view name;
    AnyProperty property;
};

// In the order of the interface; the position is the property's number.
using C = cVsControl;
constexpr PropertyEntry kEntries[] = {
    {"iColAlignment", Property<mEmflexAlign>{&C::iColAlignment, &C::iColAlignment}},
    {"iType", Property<mEmDataType>{&C::iType, &C::iType}},
    {"bIsEditable", Property<bool>{&C::bIsEditable, &C::bIsEditable}},
    {"bIsVisible", Property<bool>{&C::bIsVisible, &C::bIsVisible}},
    {"sName", TextProperty{&C::sName, &C::sName}},
    {"iLimitLength", Property<std::int16_t>{&C::iLimitLength, &C::iLimitLength}},
    {"b是否提供帮助", Property<bool>{&C::b是否提供帮助, &C::b是否提供帮助}},
    {"i帮助类型", Property<gEmHelpType>{&C::i帮助类型, &C::i帮助类型}},
    {"sHelp_Code", TextProperty{&C::sHelp_Code, &C::sHelp_Code}},
    {"i帮助返回值显示类型", Property<gEmShowCodeName>{&C::i帮助返回值显示类型, &C::i帮助返回值显示类型}},
    {"i是否允许为空", Property<gEmNotAllowEmptyType>{&C::i是否允许为空, &C::i是否允许为空}},
    {"i字段有效性判断类型", Property<gEmJudgeType>{&C::i字段有效性判断类型, &C::i字段有效性判断类型}},
    {"s文本框对应编码字段", TextProperty{&C::s文本框对应编码字段, &C::s文本框对应编码字段}},
    {"s文本框对应名称字段", TextProperty{&C::s文本框对应名称字段, &C::s文本框对应名称字段}},
    {"s有效性判断基础", TextProperty{&C::s有效性判断基础, &C::s有效性判断基础}},
    {"s错误提示信息", TextProperty{&C::s错误提示信息, &C::s错误提示信息}},
    {"i有效性判断", Property<std::int16_t>{&C::i有效性判断, &C::i有效性判断}},
    {"b是否合计数据", Property<bool>{&C::b是否合计数据, &C::b是否合计数据}},
    {"b是否编辑多行", Property<bool>{&C::b是否编辑多行, &C::b是否编辑多行}},
    {"HelpWidth", Property<std::int32_t>{&C::HelpWidth, &C::HelpWidth}},
    {"HelpHeight", Property<std::int32_t>{&C::HelpHeight, &C::HelpHeight}},
    {"b是否设列颜色", Property<bool>{&C::b是否设列颜色, &C::b是否设列颜色}},
    {"d列前景色", Property<double>{&C::d列前景色, &C::d列前景色}},
    {"d列背景色", Property<double>{&C::d列背景色, &C::d列背景色}},
    {"bIsPrint", Property<bool>{&C::bIsPrint, &C::bIsPrint}},
    {"sCellInput", TextProperty{&C::sCellInput, &C::sCellInput}},
    {"sDefaultText_Code", TextProperty{&C::sDefaultText_Code, &C::sDefaultText_Code}},
    {"sDefaultText_Name", TextProperty{&C::sDefaultText_Name, &C::sDefaultText_Name}},
};

// What a property is stored as: enumerations as the integer beneath them.
template <typename T>
struct Stored {
    using Type = T;
};
template <typename T>
requires std::is_enum_v<T>
struct Stored<T> {
    using Type = std::underlying_type_t<T>;
};

constexpr Variant::Type typeOf(TextProperty) {
    return Variant::Type::Text;
}
template <typename T>
constexpr Variant::Type typeOf(Property<T>) {
    using S = typename Stored<T>::Type;
    if constexpr (std::is_same_v<S, bool>) return Variant::Type::Boolean;
    if constexpr (std::is_same_v<S, std::int16_t>) return Variant::Type::Int16;
    if constexpr (std::is_same_v<S, std::int32_t>) return Variant::Type::Int32;
    return Variant::Type::Double;
}

constexpr auto membersOfEntries() {
    std::array<Member, std::size(kEntries)> members{};
    for (std::size_t i = 0; i < members.size(); ++i) {
        const auto type = std::visit([](auto property) { return typeOf(property); }, kEntries[i].property);
        members[i] = {kEntries[i].name, Member::Access::GetPut, type, static_cast<int>(i) + 1};
    }
    return members;
}
constexpr auto kMembers = membersOfEntries();

Variant read(const cVsControl& column, TextProperty property) {
    return (column.*property.get)();
}
template <typename T>
Variant read(const cVsControl& column, Property<T> property) {
    return static_cast<typename Stored<T>::Type>((column.*property.get)());
}

void write(cVsControl& column, TextProperty property, const Variant& value) {
    (column.*property.put)(value.toText());
}
template <typename T>
void write(cVsControl& column, Property<T> property, const Variant& value) {
    using S = typename Stored<T>::Type;
    if constexpr (std::is_same_v<S, bool>)
        (column.*property.put)(value.toBoolean());
    else if constexpr (std::is_same_v<S, std::int16_t>)
        (column.*property.put)(static_cast<T>(value.toInt16()));
    else if constexpr (std::is_same_v<S, std::int32_t>)
        (column.*property.put)(static_cast<T>(value.toInt32()));
    else
        (column.*property.put)(value.toDouble());
}

const PropertyEntry& entryOf(std::string_view name) {
    const auto* const entry =
        std::find_if(std::begin(kEntries), std::end(kEntries),
                     [name](const PropertyEntry& candidate) { return candidate.name == name; });
    if (entry == std::end(kEntries)) throw GridError("cVsControl has no property " + std::string(name));
    return *entry;
}

}  // namespace

void cVsControl::sCellInput(std::string_view value) {
    sCellInput_ = support::lowerCase(support::trim(value));
    if (sCellInput_ == "row") sCellInput_ = "r";
    if (sCellInput_ == "col") sCellInput_ = "c";
}

void cVsControl::sDefaultText_Code(std::string_view value) {
    sDefaultText_Code_ = support::trim(value);
}

void cVsControl::sDefaultText_Name(std::string_view value) {
    sDefaultText_Name_ = support::trim(value);
}

std::span<const Member> cVsControl::members() {
    return kMembers;
}

Variant cVsControl::Get(std::string_view name) const {
    return std::visit([this](auto property) { return read(*this, property); }, entryOf(name).property);
}

void cVsControl::Put(std::string_view name, const Variant& value) {
    std::visit([&](auto property) { write(*this, property, value); }, entryOf(name).property);
}
}  // namespace kxVsGrid
