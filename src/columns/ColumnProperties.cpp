#include "columns/ColumnProperties.h"

#include <string>

namespace kxVsGrid {
namespace columns {
namespace {

using Text = std::string;

/// How a property is stored: its place among the stored ones, its default when reading, and what differs from
/// its name and type.
struct Stored {
    struct Differs {
        std::optional<std::string_view> name{}, asked{};
        std::optional<Variant::Type> type{};
    };
    int place;
    Variant fallback;
    Differs differs;
};

Stored stored(int place, Variant fallback, Stored::Differs differs = {}) {
    return {place, std::move(fallback), differs};
}

template <class T, class Function>
ColumnProperty row(std::string_view name, Function) {
    using Kept = support::InVariant<T>;
    return {name,
            Member::Access::GetPut,
            Kept::type(),
            0,
            support::getBy<T, Function, const cVsControl>,
            support::putBy<T, Function, cVsControl>};
}

template <class T, class Function>
ColumnProperty row(std::string_view name, Stored stored, Function function) {
    ColumnProperty property = row<T>(name, function);
    const std::string_view written = stored.differs.name.value_or(name);
    property.storage.emplace(support::Storage<cVsControl>{written,
                                                          stored.differs.asked.value_or(written),
                                                          stored.differs.type.value_or(property.type),
                                                          std::move(stored.fallback),
                                                          true,
                                                          stored.place,
                                                          {{stored.place, property.put}}});
    return property;
}
}  // namespace

/// "bIsPrint" is asked for under a name that nothing is stored under, so that it always loads as True.
/// Programs in use read and write these files that way; a correction would change what they print.
const std::vector<ColumnProperty>& columnProperties() {
    static const std::vector<ColumnProperty> rows{
        row<mEmflexAlign>("iColAlignment", stored(18, std::int32_t{1}, {.type = Variant::Type::Int32}),
                          [](auto& c, auto... v) { return c.iColAlignment(v...); }),
        row<mEmDataType>("iType", stored(5, "1"), [](auto& c, auto... v) { return c.iType(v...); }),
        row<bool>("bIsEditable", stored(1, true), [](auto& c, auto... v) { return c.bIsEditable(v...); }),
        row<bool>("bIsVisible", stored(2, true), [](auto& c, auto... v) { return c.bIsVisible(v...); }),
        row<Text>("sName", stored(11, "-1", {.name = ""}), [](auto& c, auto... v) { return c.sName(v...); }),
        row<std::int16_t>("iLimitLength", stored(4, "0"),
                          [](auto& c, auto... v) { return c.iLimitLength(v...); }),
        row<bool>("b是否提供帮助", stored(3, "0"), [](auto& c, auto... v) { return c.b是否提供帮助(v...); }),
        row<gEmHelpType>("i帮助类型", stored(7, "0"), [](auto& c, auto... v) { return c.i帮助类型(v...); }),
        row<Text>("sHelp_Code", stored(10, ""), [](auto& c, auto... v) { return c.sHelp_Code(v...); }),
        row<gEmShowCodeName>("i帮助返回值显示类型", stored(6, "1"),
                             [](auto& c, auto... v) { return c.i帮助返回值显示类型(v...); }),
        row<gEmNotAllowEmptyType>("i是否允许为空", stored(8, true),
                                  [](auto& c, auto... v) { return c.i是否允许为空(v...); }),
        row<gEmJudgeType>("i字段有效性判断类型", stored(9, "0"),
                          [](auto& c, auto... v) { return c.i字段有效性判断类型(v...); }),
        row<Text>("s文本框对应编码字段", stored(13, ""),
                  [](auto& c, auto... v) { return c.s文本框对应编码字段(v...); }),
        row<Text>("s文本框对应名称字段", stored(14, ""),
                  [](auto& c, auto... v) { return c.s文本框对应名称字段(v...); }),
        row<Text>("s有效性判断基础", stored(15, ""),
                  [](auto& c, auto... v) { return c.s有效性判断基础(v...); }),
        row<Text>("s错误提示信息", stored(12, "Error"),
                  [](auto& c, auto... v) { return c.s错误提示信息(v...); }),
        row<std::int16_t>("i有效性判断", stored(16, std::int16_t{0}),
                          [](auto& c, auto... v) { return c.i有效性判断(v...); }),
        row<bool>("b是否合计数据", stored(17, std::int16_t{0}),
                  [](auto& c, auto... v) { return c.b是否合计数据(v...); }),
        row<bool>("b是否编辑多行", [](auto& c, auto... v) { return c.b是否编辑多行(v...); }),
        row<std::int32_t>("HelpWidth", [](auto& c, auto... v) { return c.HelpWidth(v...); }),
        row<std::int32_t>("HelpHeight", [](auto& c, auto... v) { return c.HelpHeight(v...); }),
        row<bool>("b是否设列颜色", [](auto& c, auto... v) { return c.b是否设列颜色(v...); }),
        row<double>("d列前景色", [](auto& c, auto... v) { return c.d列前景色(v...); }),
        row<double>("d列背景色", [](auto& c, auto... v) { return c.d列背景色(v...); }),
        row<bool>("bIsPrint", stored(19, true, {.asked = "bIsPint"}),
                  [](auto& c, auto... v) { return c.bIsPrint(v...); }),
        row<Text>("sCellInput", [](auto& c, auto... v) { return c.sCellInput(v...); }),
        row<Text>("sDefaultText_Code", [](auto& c, auto... v) { return c.sDefaultText_Code(v...); }),
        row<Text>("sDefaultText_Name", [](auto& c, auto... v) { return c.sDefaultText_Name(v...); }),
    };
    return rows;
}

namespace {
const ColumnProperty& propertyOf(std::string_view name) {
    if (const ColumnProperty* property = support::find(columnProperties(), name)) return *property;
    throw GridError("cVsControl has no property " + std::string(name));
}
}  // namespace
}  // namespace columns

std::span<const Member> cVsControl::members() {
    static const std::vector<Member> members = support::membersOf(columns::columnProperties());
    return members;
}

Variant cVsControl::Get(std::string_view name) const {
    return columns::propertyOf(name).get(*this);
}

void cVsControl::Put(std::string_view name, const Variant& value) {
    columns::propertyOf(name).put(*this, value);
}
}  // namespace kxVsGrid
