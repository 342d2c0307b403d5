#include "grid/GridProperties.h"

#include <string>

namespace kxVsGrid {
namespace grid {
namespace {

using Access = Member::Access;
using Type = Variant::Type;
using Text = std::string;
using Color = std::uint32_t;
using Storage = support::Storage<Loaded>;
using Load = void (*)(Loaded&, const Variant&);

constexpr std::int32_t LeastRowHeight = 300;

constexpr auto SystemColor = [](std::uint32_t number) {
    return static_cast<std::int32_t>(0x80000000 | number);
};
constexpr std::int32_t WindowBackground = SystemColor(5);
constexpr std::int32_t WindowText = SystemColor(8);
constexpr std::int32_t Workspace = SystemColor(12);
constexpr std::int32_t ButtonFace = SystemColor(15);
constexpr std::int32_t ButtonText = SystemColor(18);
constexpr std::int16_t No = 0;

Color colorOf(const Variant& value) {
    return support::InVariant<Color>::from(value);
}

/// Stored names that differ from the member's ("ShowZero", "ForeColorFixe") are those of files in use.
struct Stored {
    std::string_view name;
    Variant fallback;
    int readPlace;
    int writtenPlace;
    bool fallbackWritten;
    Load into;
};

Stored storedWithFallback(std::string_view name, Variant fallback, int readPlace, int writtenPlace,
                          Load into) {
    return {name, std::move(fallback), readPlace, writtenPlace, true, into};
}
/// Written without its default: every bag keeps it.
Stored storedAlways(std::string_view name, Variant fallback, int readPlace, int writtenPlace, Load into) {
    return {name, std::move(fallback), readPlace, writtenPlace, false, into};
}

template <class T, class Function>
GridProperty readOnly(std::string_view name, Function) {
    return {name, Access::Get, support::InVariant<T>::type(), 0, support::getBy<T, Function, kxGrid>};
}

template <class T, class Function>
GridProperty writeOnly(std::string_view name, Function) {
    return {name, Access::Put, support::InVariant<T>::type(),
            0,    nullptr,     support::putBy<T, Function, kxGrid>};
}

template <class T, class Function>
GridProperty row(std::string_view name, Function) {
    return {name,
            Access::GetPut,
            support::InVariant<T>::type(),
            0,
            support::getBy<T, Function, kxGrid>,
            support::putBy<T, Function, kxGrid>};
}

template <class T, class Function>
GridProperty row(std::string_view name, Stored stored, Function function) {
    GridProperty property = row<T>(name, function);
    property.storage.emplace(Storage{stored.name,
                                     stored.name,
                                     property.type,
                                     std::move(stored.fallback),
                                     stored.fallbackWritten,
                                     stored.writtenPlace,
                                     {{stored.readPlace, stored.into}}});
    return property;
}

GridProperty indexed(std::string_view name, Type type) {
    return {name, Access::GetPut, type, 1};
}
GridProperty object(std::string_view name, Access access, int arguments) {
    return {name, access, Type::Empty, arguments};
}
GridProperty method(std::string_view name, int arguments) {
    return {name, Access::Method, Type::Empty, arguments};
}

/// The background beside the cells is asked for a second time at the end, for the total row.
GridProperty background() {
    GridProperty property =
        row<Color>("BackColorBkg",
                   storedAlways("BackColorBkg", Workspace, 10, 10,
                                [](Loaded& l, const Variant& v) { l.main.BackColorBkg(colorOf(v)); }),
                   [](auto& g, auto... v) { return g.BackColorBkg(v...); });
    property.storage->loadings.push_back(
        {15, [](Loaded& l, const Variant& v) { l.sums.BackColorBkg(colorOf(v)); }});
    return property;
}
}  // namespace

const std::vector<GridProperty>& gridProperties() {
    static const std::vector<GridProperty> rows{
        method("ValidTextData", 0),
        row<Text>("Text", [](auto& g, auto... v) { return g.Text(v...); }),
        row<Text>("TextTag", [](auto& g, auto... v) { return g.TextTag(v...); }),
        method("SetCell", 4),
        object("VsCtrl", Access::Get, 1),
        readOnly<bool>("bIsDirty", [](auto& g) { return g.bIsDirty(); }),
        row<Text>("FormatString",
                  storedWithFallback("FormatString", "", 14, 1,
                                     [](Loaded& l, const Variant& v) { l.main.FormatString(v.toText()); }),
                  [](auto& g, auto... v) { return g.FormatString(v...); }),
        row<bool>("Editable",
                  storedWithFallback("Editable", No, 1, 2,
                                     [](Loaded& l, const Variant& v) { l.flags.Editable = v.toBoolean(); }),
                  [](auto& g, auto... v) { return g.Editable(v...); }),
        row<bool>("SumRow",
                  storedWithFallback("SumRow", No, 3, 4,
                                     [](Loaded& l, const Variant& v) {
                                         l.flags.SumRow = v.toBoolean();
                                         l.layout.showTotalRow(l.flags.SumRow);
                                         l.main.RowHeightMin(LeastRowHeight);  // before rows come
                                     }),
                  [](auto& g, auto... v) { return g.SumRow(v...); }),
        row<std::int32_t>("FixedCols",
                          storedAlways("FixedCols", std::int32_t{1}, 6, 7,
                                       [](Loaded& l, const Variant& v) { l.main.FixedCols(v.toInt32()); }),
                          [](auto& g, auto... v) { return g.FixedCols(v...); }),
        row<std::int32_t>("FixedRows",
                          storedAlways("FixedRows", std::int32_t{1}, 7, 8,
                                       [](Loaded& l, const Variant& v) { l.main.FixedRows(v.toInt32()); }),
                          [](auto& g, auto... v) { return g.FixedRows(v...); }),
        row<std::int32_t>("Col", [](auto& g, auto... v) { return g.Col(v...); }),
        indexed("ColHidden", Type::Boolean),
        indexed("ColFormat", Type::Text),
        row<std::int32_t>("Cols",
                          storedAlways("Cols", std::int32_t{10}, 4, 5,
                                       [](Loaded& l, const Variant& v) { l.main.Cols(v.toInt32()); }),
                          [](auto& g, auto... v) { return g.Cols(v...); }),
        indexed("ColWidth", Type::Int32),
        row<std::int32_t>("Row", [](auto& g, auto... v) { return g.Row(v...); }),
        indexed("RowHeight", Type::Int32),
        row<std::int32_t>("SumRowHeight", [](auto& g, auto... v) { return g.SumRowHeight(v...); }),
        row<std::int32_t>(
            "Rows",
            storedAlways("Rows", {}, 5, 6, [](Loaded& l, const Variant& v) { l.main.Rows(v.toInt32()); }),
            [](auto& g, auto... v) { return g.Rows(v...); }),
        object("SetVsControl", Access::GetPut, 0),
        row<Color>("BackColor",
                   storedAlways("BackColor", WindowBackground, 9, 9,
                                [](Loaded& l, const Variant& v) { l.main.BackColor(colorOf(v)); }),
                   [](auto& g, auto... v) { return g.BackColor(v...); }),
        background(),
        row<Color>("BackColorFixed",
                   storedAlways("BackColorFixed", ButtonFace, 11, 11,
                                [](Loaded& l, const Variant& v) { l.main.BackColorFixed(colorOf(v)); }),
                   [](auto& g, auto... v) { return g.BackColorFixed(v...); }),
        row<Color>("ForeColor",
                   storedAlways("ForeColor", WindowText, 12, 12,
                                [](Loaded& l, const Variant& v) { l.main.ForeColor(colorOf(v)); }),
                   [](auto& g, auto... v) { return g.ForeColor(v...); }),
        row<Color>("ForeColorFixed",
                   storedAlways("ForeColorFixe", ButtonText, 13, 13,
                                [](Loaded& l, const Variant& v) { l.main.ForeColorFixed(colorOf(v)); }),
                   [](auto& g, auto... v) { return g.ForeColorFixed(v...); }),
        indexed("ColAlignment", Type::Int16),
        row<mEmflexMerge>("MergeCells", [](auto& g, auto... v) { return g.MergeCells(v...); }),
        indexed("MergeCol", Type::Boolean),
        indexed("MergeRow", Type::Boolean),
        object("Grid", Access::Get, 0),
        object("Grid_Sum", Access::Get, 0),
        row<bool>("ReDraw", [](auto& g, auto... v) { return g.ReDraw(v...); }),
        method("ReadCell", 3),
        readOnly<bool>("IsActive", [](auto& g) { return g.IsActive(); }),
        readOnly<bool>("IsValid", [](auto& g) { return g.IsValid(); }),
        row<bool>(
            "bIsShowZero",
            storedWithFallback("ShowZero", false, 2, 3,
                               [](Loaded& l, const Variant& v) { l.flags.bIsShowZero = v.toBoolean(); }),
            [](auto& g, auto... v) { return g.bIsShowZero(v...); }),
        method("Clear", 0),
        row<std::int32_t>(
            "Appearance",
            storedWithFallback("Appearance", std::int32_t{1}, 8, 14,
                               [](Loaded& l, const Variant& v) { l.main.Appearance(v.toInt32()); }),
            [](auto& g, auto... v) { return g.Appearance(v...); }),
        method("ReadSum", 1),
        writeOnly<Color>("VsSumCellBackColor", [](auto& g, auto v) { g.VsSumCellBackColor(v); }),
    };
    return rows;
}

namespace {
const GridProperty& propertyOf(std::string_view name) {
    if (const GridProperty* property = support::find(gridProperties(), name)) return *property;
    throw GridError("kxGrid has no member " + std::string(name));
}
}  // namespace
}  // namespace grid

std::span<const Member> kxGrid::members() {
    static const std::vector<Member> members = support::membersOf(grid::gridProperties());
    return members;
}

Variant kxGrid::Get(std::string_view name) {
    const auto get = grid::propertyOf(name).get;
    if (!get) throw GridError("kxGrid." + std::string(name) + " cannot be read by name");
    return get(*this);
}

void kxGrid::Put(std::string_view name, const Variant& value) {
    const auto put = grid::propertyOf(name).put;
    if (!put) throw GridError("kxGrid." + std::string(name) + " cannot be put by name");
    put(*this, value);
}
}  // namespace kxVsGrid
