// Random settings survive the way through a widget's properties.
#include <algorithm>
#include <utility>
#include <vector>

#include "kit/Dice.h"
#include "kxVsGrid/StoredKeys.h"
#include "qt/Settings.h"
#include "qt/Window.h"
#include "qt/settings/PropertyValues.h"

namespace kxVsGrid::qt::testing {
namespace {

using kit::Dice;

std::uint32_t color(Dice& dice) {
    constexpr std::uint32_t System = 0x80000000;
    return dice.oneIn(2) ? System + static_cast<std::uint32_t>(dice.between(0, 24))
                         : static_cast<std::uint32_t>(dice.between(0, 0xFFFFFF));
}

std::string format(Dice& dice, std::int32_t cols) {
    std::string format;
    for (std::int32_t fields = dice.between(0, cols); fields > 0; --fields) {
        static const char* const Fields[] = {"<货号   |", ">数量|", "|", "^ \"x\" |", "备注 <&>\\ |"};
        format += Fields[dice.between(0, 4)];
    }
    if (!format.empty()) format.pop_back();
    return format;
}

Variant value(Dice& dice, Variant::Type type) {
    switch (type) {
        case Variant::Type::Boolean:
            return dice.oneIn(2);
        case Variant::Type::Int16:
            return static_cast<std::int16_t>(dice.between(-32768, 32767));
        case Variant::Type::Int32:
            return dice.oneIn(3) ? dice.between(-32768, 32767)
                                 : dice.between(-2, 12);  // some members have 16 bits
        default:
            return dice.text();
    }
}

void describe(Dice& dice, kxGrid& grid) {
    grid.Cols(dice.between(1, 12));
    grid.FixedCols(dice.between(0, grid.Cols()));
    grid.Rows(dice.between(6, 40));
    grid.FixedRows(dice.between(0, grid.Rows()));
    grid.FormatString(format(dice, grid.Cols()));
    grid.Editable(dice.oneIn(2));
    grid.bIsShowZero(dice.oneIn(2));
    grid.SumRow(dice.oneIn(2));
    grid.Appearance(dice.between(0, 1));
    grid.BackColor(color(dice));
    grid.BackColorBkg(color(dice));
    grid.BackColorFixed(color(dice));
    grid.ForeColor(color(dice));
    grid.ForeColorFixed(color(dice));
    for (std::int32_t col = 0; col < grid.Cols(); ++col)
        for (const StoredKey& key : columnKeys())
            if (!dice.oneIn(4))
                grid.VsCtrl(static_cast<std::int16_t>(col))->Put(key.member, value(dice, key.type));
}

MemoryBag written(kxGrid& grid) {
    MemoryBag bag;
    grid.WriteProperties(bag);
    return bag;
}

/// Whether a column is printed is stored, but never read back.
void expectSame(const MemoryBag& first, const MemoryBag& second) {
    ASSERT_EQ(first.size(), second.size());
    for (std::size_t i = 0; i < first.size(); ++i) {
        const MemoryBag::Entry& entry = first.entries()[i];
        const Variant& again = second.entries()[i].value;
        ASSERT_EQ(entry.name, second.entries()[i].name);
        EXPECT_EQ(again, entry.name.ends_with("bIsPrint") ? Variant(true) : entry.value) << entry.name;
    }
}
}  // namespace

TEST(RandomSettings, AreTheSameAfterTheWayThroughProperties) {
    Dice dice;
    for (int turn = 0; turn < 60 && !::testing::Test::HasFailure(); ++turn) {
        SCOPED_TRACE("seed " + std::to_string(dice.seed()) + ", turn " + std::to_string(turn));
        kxGridWidget first;
        describe(dice, first.grid());
        const MemoryBag bag = written(first.grid());
        std::vector<MemoryBag::Entry> entries = bag.entries();
        for (std::size_t i = entries.size(); i > 1; --i)
            std::swap(entries[i - 1], entries[static_cast<std::size_t>(dice.between(0, int(i) - 1))]);
        kxGridWidget second;
        for (const MemoryBag::Entry& entry : entries)
            second.setProperty(entry.name.c_str(), toProperty(entry.value));
        expectSame(bag, written(second.grid()));
    }
}
}  // namespace kxVsGrid::qt::testing
