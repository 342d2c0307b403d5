#include "grid/Settings.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>

#include "grid/SetUp.h"
#include "kxVsGrid/StoredKeys.h"

namespace kxVsGrid::grid {
namespace {

constexpr std::int32_t LeastRowHeight = 300;
constexpr std::int32_t LoadedDataRows = 5;

/// The grid-wide keys by their places in the order of reading.
enum GridKey : std::size_t {
    Editable,
    ShowZero,
    SumRow,
    Cols,
    Rows,
    FixedCols,
    FixedRows,
    Appearance,
    BackColor,
    BackColorBkg,
    BackColorFixed,
    ForeColor,
    ForeColorFixe,
    FormatString,
    SumBackColorBkg
};

std::uint32_t colorOf(const Variant& value) {
    return static_cast<std::uint32_t>(value.toInt32());
}
Variant fromColor(std::uint32_t color) {
    return static_cast<std::int32_t>(color);
}

/// A value with the type that its key is written with.
Variant typed(const Variant& value, Variant::Type type) {
    switch (type) {
        case Variant::Type::Boolean:
            return value.toBoolean();
        case Variant::Type::Int16:
            return value.toInt16();
        case Variant::Type::Int32:
            return value.toInt32();
        default:
            return value.toText();
    }
}
}  // namespace

// --- Reading --------------------------------------------------------------------------------------------

void Settings::read(PropertyBag& bag) {
    readGrid(bag);
    if (!flags_.ReDraw) totals_.setUp();
    columns_.resize(main_.Cols());
    for (std::int32_t col = 0; col < main_.Cols(); ++col) readColumn(bag, col);
    if (flags_.ReDraw) setUpGrid(main_, columns_, totals_);
}

void Settings::readGrid(PropertyBag& bag) {
    const auto ask = [&bag](GridKey key) { return bag.Read(gridKeys()[key].read, gridKeys()[key].fallback); };
    flags_.Editable = ask(Editable).toBoolean();
    flags_.bIsShowZero = ask(ShowZero).toBoolean();
    flags_.SumRow = ask(SumRow).toBoolean();
    layout_.showTotalRow(flags_.SumRow);
    main_.RowHeightMin(LeastRowHeight);
    main_.Cols(ask(Cols).toInt32());
    main_.Rows(bag.Read(gridKeys()[Rows].read, main_.FixedRows() + LoadedDataRows).toInt32());
    main_.FixedCols(ask(FixedCols).toInt32());
    main_.FixedRows(ask(FixedRows).toInt32());
    main_.Appearance(ask(Appearance).toInt32());
    main_.BackColor(colorOf(ask(BackColor)));
    main_.BackColorBkg(colorOf(ask(BackColorBkg)));
    main_.BackColorFixed(colorOf(ask(BackColorFixed)));
    main_.ForeColor(colorOf(ask(ForeColor)));
    main_.ForeColorFixed(colorOf(ask(ForeColorFixe)));
    main_.FormatString(ask(FormatString).toText());
    sums_.BackColorBkg(colorOf(ask(SumBackColorBkg)));
}

void Settings::readColumn(PropertyBag& bag, std::int32_t col) {
    columns_.shared(col);  // created when there is none yet, also when its first value fails
    for (const StoredKey& key : columnKeys()) {
        const Variant value = bag.Read(columnKey(col, key.read), key.fallback);
        columns_.shared(col)->Put(key.member, value);
    }
}

// --- Writing --------------------------------------------------------------------------------------------

void Settings::write(PropertyBag& bag) {
    for (const StoredKey& key : writtenGridKeys()) {
        const Variant value = gridValue(key.member);
        if (key.hasWriteDefault)
            bag.Write(key.written, value, key.fallback);
        else
            bag.Write(key.written, value);
    }
    for (std::int32_t col = 0; col < main_.Cols(); ++col) writeColumn(bag, col);
}

Variant Settings::gridValue(std::string_view member) const {
    struct Value {
        std::string_view member;
        Variant (*get)(const Settings&);
    };
    static constexpr Value values[] = {
        {"FormatString", [](const Settings& s) -> Variant { return s.main_.FormatString(); }},
        {"Editable", [](const Settings& s) -> Variant { return s.flags_.Editable; }},
        {"bIsShowZero", [](const Settings& s) -> Variant { return s.flags_.bIsShowZero; }},
        {"SumRow", [](const Settings& s) -> Variant { return s.flags_.SumRow; }},
        {"Cols", [](const Settings& s) -> Variant { return s.main_.Cols(); }},
        {"Rows", [](const Settings& s) -> Variant { return s.main_.Rows(); }},
        {"FixedCols", [](const Settings& s) -> Variant { return s.main_.FixedCols(); }},
        {"FixedRows", [](const Settings& s) -> Variant { return s.main_.FixedRows(); }},
        {"BackColor", [](const Settings& s) { return fromColor(s.main_.BackColor()); }},
        {"BackColorBkg", [](const Settings& s) { return fromColor(s.main_.BackColorBkg()); }},
        {"BackColorFixed", [](const Settings& s) { return fromColor(s.main_.BackColorFixed()); }},
        {"ForeColor", [](const Settings& s) { return fromColor(s.main_.ForeColor()); }},
        {"ForeColorFixed", [](const Settings& s) { return fromColor(s.main_.ForeColorFixed()); }},
        {"Appearance", [](const Settings& s) -> Variant { return s.main_.Appearance(); }},
    };
    const auto* const value = std::find_if(std::begin(values), std::end(values),
                                           [member](const Value& v) { return v.member == member; });
    if (value == std::end(values)) throw GridError("no stored setting: " + std::string(member));
    return value->get(*this);
}

void Settings::writeColumn(PropertyBag& bag, std::int32_t col) {
    for (const StoredKey& key : columnKeys()) {
        const Variant value = columns_.at(col).Get(key.member);
        bag.Write(columnKey(col, key.written), typed(value, key.type), key.fallback);
    }
}
}  // namespace kxVsGrid::grid
