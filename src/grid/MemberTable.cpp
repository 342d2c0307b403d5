// The control describes itself: its members in interface order, and those without arguments by name.
#include <algorithm>
#include <array>
#include <functional>

#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid {
namespace {

using Access = Member::Access;
using Type = Variant::Type;

struct Entry {
    std::string_view name;
    Access access;
    Type type;
    int arguments;
    Variant (*get)(kxGrid&);
    void (*put)(kxGrid&, const Variant&);
};

/// Colours are unsigned, the settings they are kept in are not.
Variant fromColor(std::uint32_t color) {
    return static_cast<std::int32_t>(color);
}
std::uint32_t toColor(const Variant& value) {
    return static_cast<std::uint32_t>(value.toInt32());
}

#define KX_BOOL(name)                                                                                       \
    {                                                                                                       \
#name, Access::GetPut, Type::Boolean, 0,                                                            \
            [](kxGrid & g) -> Variant { return g.name(); }, [](kxGrid & g,                                  \
                                                               const Variant& v) { g.name(v.toBoolean()); } \
    }
#define KX_INT(name)                                                                                      \
    {                                                                                                     \
#name, Access::GetPut, Type::Int32, 0,                                                            \
            [](kxGrid & g) -> Variant { return g.name(); }, [](kxGrid & g,                                \
                                                               const Variant& v) { g.name(v.toInt32()); } \
    }
#define KX_TEXT(name)                                                                                    \
    {                                                                                                    \
#name, Access::GetPut, Type::Text, 0,                                                            \
            [](kxGrid & g) -> Variant { return g.name(); }, [](kxGrid & g,                               \
                                                               const Variant& v) { g.name(v.toText()); } \
    }
#define KX_COLOR(name)                                                                                   \
    {                                                                                                    \
#name, Access::GetPut, Type::Int32, 0,                                                           \
            [](kxGrid & g) { return fromColor(g.name()); }, [](kxGrid & g,                               \
                                                               const Variant& v) { g.name(toColor(v)); } \
    }
#define KX_GET_BOOL(name)                                                                             \
    {                                                                                                 \
#name, Access::Get, Type::Boolean, 0, [](kxGrid & g) -> Variant { return g.name(); }, nullptr \
    }
#define KX_INDEXED(name, type) \
    { #name, Access::GetPut, Type::type, 1, nullptr, nullptr }
#define KX_OBJECT(name, access, arguments) \
    { #name, Access::access, Type::Empty, arguments, nullptr, nullptr }
#define KX_METHOD(name, arguments) \
    { #name, Access::Method, Type::Empty, arguments, nullptr, nullptr }

const Entry entries[] = {
    KX_METHOD(ValidTextData, 0),
    KX_TEXT(Text),
    KX_TEXT(TextTag),
    KX_METHOD(SetCell, 4),
    KX_OBJECT(VsCtrl, Get, 1),
    KX_GET_BOOL(bIsDirty),
    KX_TEXT(FormatString),
    KX_BOOL(Editable),
    KX_BOOL(SumRow),
    KX_INT(FixedCols),
    KX_INT(FixedRows),
    KX_INT(Col),
    KX_INDEXED(ColHidden, Boolean),
    KX_INDEXED(ColFormat, Text),
    KX_INT(Cols),
    KX_INDEXED(ColWidth, Int32),
    KX_INT(Row),
    KX_INDEXED(RowHeight, Int32),
    KX_INT(SumRowHeight),
    KX_INT(Rows),
    KX_OBJECT(SetVsControl, GetPut, 0),
    KX_COLOR(BackColor),
    KX_COLOR(BackColorBkg),
    KX_COLOR(BackColorFixed),
    KX_COLOR(ForeColor),
    KX_COLOR(ForeColorFixed),
    KX_INDEXED(ColAlignment, Int16),
    {"MergeCells", Access::GetPut, Type::Int32, 0,
     [](kxGrid& g) -> Variant { return static_cast<std::int32_t>(g.MergeCells()); },
     [](kxGrid& g, const Variant& v) { g.MergeCells(static_cast<mEmflexMerge>(v.toInt32())); }},
    KX_INDEXED(MergeCol, Boolean),
    KX_INDEXED(MergeRow, Boolean),
    KX_OBJECT(Grid, Get, 0),
    KX_OBJECT(Grid_Sum, Get, 0),
    KX_BOOL(ReDraw),
    KX_METHOD(ReadCell, 3),
    KX_GET_BOOL(IsActive),
    KX_GET_BOOL(IsValid),
    KX_BOOL(bIsShowZero),
    KX_METHOD(Clear, 0),
    KX_INT(Appearance),
    KX_METHOD(ReadSum, 1),
    {"VsSumCellBackColor", Access::Put, Type::Int32, 0, nullptr,
     [](kxGrid& g, const Variant& v) { g.VsSumCellBackColor(toColor(v)); }},
};

#undef KX_BOOL
#undef KX_INT
#undef KX_TEXT
#undef KX_COLOR
#undef KX_GET_BOOL
#undef KX_INDEXED
#undef KX_OBJECT
#undef KX_METHOD

constexpr std::size_t Count = std::size(entries);

const Entry& find(std::string_view name) {
    const auto* found =
        std::find_if(std::begin(entries), std::end(entries), [&](const Entry& e) { return e.name == name; });
    if (found == std::end(entries)) throw GridError("kxGrid has no member " + std::string(name));
    return *found;
}
}  // namespace

std::span<const Member> kxGrid::members() {
    static const std::array<Member, Count> table = [] {
        std::array<Member, Count> members{};
        for (std::size_t i = 0; i < Count; ++i) {
            const Entry& e = entries[i];
            members[i] = {e.name, e.access, e.type, static_cast<int>(i) + 1, e.arguments};
        }
        return members;
    }();
    return table;
}

Variant kxGrid::Get(std::string_view name) {
    const Entry& entry = find(name);
    if (!entry.get) throw GridError("kxGrid." + std::string(name) + " cannot be read by name");
    return entry.get(*this);
}

void kxGrid::Put(std::string_view name, const Variant& value) {
    const Entry& entry = find(name);
    if (!entry.put) throw GridError("kxGrid." + std::string(name) + " cannot be put by name");
    entry.put(*this, value);
}
}  // namespace kxVsGrid
