// What goes wrong while settings are read: the box, what stays, and that nobody saves from then on.
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "kit/SettingsTest.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

class FailedRead : public SettingsTest {
  protected:
    /// Reads, and sees the read end at a key with the box of an error.
    void failsAt(const std::string& key, const std::string& description) {
        bag.names.clear();
        desk.clear();
        grid.ReadProperties(bag);
        EXPECT_EQ(boxes(), failedRead(description)) << key;
        ASSERT_FALSE(bag.names.empty());
        EXPECT_EQ(bag.names.back(), key) << "later keys are not asked for";
        EXPECT_FALSE(desk.wheelHook());
        EXPECT_EQ(saved(grid), Nothing) << "the flag stays set";
        clearLoadingFlag();
        EXPECT_NE(saved(grid), Nothing);
    }
    /// The same for a value whose error only has to name it.
    void failsOver(const std::string& key, const Variant& value, const std::string& named) {
        bag.values = {{key, value}};
        bag.names.clear();
        desk.clear();
        grid.ReadProperties(bag);
        ASSERT_EQ(desk.messages().size(), 1u) << key << " = " << typed(value);
        const MessageBox& box = desk.messages()[0];
        EXPECT_EQ(box.title, "错误:");
        EXPECT_EQ(box.style, 16);
        EXPECT_TRUE(box.text.starts_with("ReadProperError:")) << box.text;
        EXPECT_NE(box.text.find(named), std::string::npos) << box.text;
        EXPECT_EQ(bag.names.back(), key);
        EXPECT_EQ(saved(grid), Nothing);
        clearLoadingFlag();
    }
    /// Nothing that a host or a clerk does fails now.
    void expectUsable() {
        EXPECT_NO_THROW({
            for (std::int32_t col = 0; col < grid.Cols(); ++col) column(col).bIsEditable(true);
            grid.Editable(true);
            grid.ReDraw(true);
            grid.Rows(20);
            grid.SetCell(grid.FixedRows(), grid.Cols() - 1, "5", "tag");
        });
        EXPECT_EQ(grid.ReadCell(grid.FixedRows(), grid.Cols() - 1), "tag");
        desk.focusGrid();
        vs().Select(grid.FixedRows() + 1, grid.FixedCols());
        desk.type("typed");
        desk.press(Key::Enter);
        EXPECT_EQ(text(grid.FixedRows() + 1, grid.FixedCols()), "typed");
        EXPECT_EQ(grid.Cols(), sum().Cols());
    }
};

TEST_F(FailedRead, AtAnyKeyEndsThereWithTheBagsOwnWords) {
    store("Cols", 3);
    const Lines all = readNames(3);
    for (std::size_t failing = 0; failing < all.size(); ++failing) {
        bag.onRead = [&](const std::string&) {
            if (bag.names.size() == failing + 1) throw StoreGone();
        };
        failsAt(all[failing], "the store is gone");
        EXPECT_EQ(bag.names.size(), failing + 1);
    }
    bag.onRead = nullptr;
    expectUsable();
}

TEST_F(FailedRead, ComesOfEveryKeyThatIsNull) {
    const std::string description = errorOf([] { Variant::null().toInt32(); });
    for (const auto& name : upTo(readNames(1), "SetVsControl0bIsPint")) failsOver(name, Variant::null(), "");
    EXPECT_FALSE(description.empty());
}

TEST_F(FailedRead, ComesOfEveryKeyThatIsAnArray) {
    for (const auto& name : readNames(1)) failsOver(name, Variant(Table(0, 3)), "");
}

TEST_F(FailedRead, ComesOfTextsThatAreNoNumbers) {
    for (const char* key :
         {"Cols", "Rows", "FixedCols", "FixedRows", "Appearance", "BackColor", "BackColorBkg",
          "BackColorFixed", "ForeColor", "ForeColorFixe", "SetVsControl9iLimitLength", "SetVsControl0iType",
          "SetVsControl0i帮助返回值显示类型", "SetVsControl0i帮助类型", "SetVsControl0i是否允许为空",
          "SetVsControl0i字段有效性判断类型", "SetVsControl0i有效性判断", "SetVsControl0iColAlignment"}) {
        failsOver(key, "abc", "abc");
        failsOver(key, "", "");
        failsOver(key, "12 pieces", "12 pieces");
        failsOver(key, "&H10", "&H10");
    }
}

TEST_F(FailedRead, ComesOfTextsThatAreNeitherTrueNorFalse) {
    for (const char* key :
         {"Editable", "ShowZero", "SumRow", "SetVsControl0bIsEditable", "SetVsControl0bIsVisible",
          "SetVsControl0b是否提供帮助", "SetVsControl0b是否合计数据", "SetVsControl0bIsPint"}) {
        failsOver(key, "yes", "yes");
        failsOver(key, "", "");
    }
}

TEST_F(FailedRead, ComesOfNumbersOutOfTheRangeOfTheirProperty) {
    failsOver("Cols", 2147483648.0, "");
    failsOver("BackColor", 2147483653.0, "");
    failsOver("ForeColor", "1e300", "");
    failsOver("SetVsControl0iLimitLength", 32768, "32768");
    failsOver("SetVsControl0iLimitLength", -32769, "-32769");
    failsOver("SetVsControl0i有效性判断", "70000", "70000");
    failsOver("SetVsControl0iColAlignment", 32768, "32768");
    failsOver("SetVsControl0iType", 2147483648.0, "");
}

TEST_F(FailedRead, ComesOfSizesThatTheGridRefuses) {
    failsOver("Cols", -1, "-1");
    failsOver("Cols", 32'767, "32767");
    failsOver("Cols", 2'000'000'000, "2000000000");
    failsOver("Rows", -1, "-1");
    failsOver("Rows", 0, "0");
    failsOver("Rows", 2'000'000'000, "2000000000");
    failsOver("FixedCols", -1, "-1");
    failsOver("FixedCols", 11, "11");
    failsOver("FixedRows", -1, "-1");
    failsOver("FixedRows", 7, "7");
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(FailedRead, SaysWhatTheGridItselfSays) {
    store("Cols", -1);
    failsAt("Cols", errorOf([] { CellGrid().Cols(-1); }));
    bag.values.clear();
    store("FixedRows", 7);
    failsAt("FixedRows", errorOf([] { CellGrid().FixedRows(7); }));
    bag.values.clear();
    store("Rows", "x");
    failsAt("Rows", errorOf([] { Variant("x").toInt32(); }));
}

TEST_F(FailedRead, KeepsWhatWasAppliedAndLeavesTheRest) {
    store("Editable", false);
    store("ShowZero", true);
    store("SumRow", true);
    store("Cols", 7);
    store("Rows", "x");
    store("FixedCols", 2);
    store("ForeColor", 1);
    store("FormatString", "a|b");
    store(0, "", "name");
    const auto fore = grid.ForeColor();
    grid.ReadProperties(bag);
    EXPECT_FALSE(grid.Editable());
    EXPECT_TRUE(grid.bIsShowZero());
    EXPECT_TRUE(grid.totalRowShown());
    EXPECT_EQ(grid.Cols(), 7);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.FixedCols(), 1);
    EXPECT_EQ(grid.ForeColor(), fore);
    EXPECT_EQ(grid.FormatString(), "");
    EXPECT_EQ(column(0).sName(), "");
    EXPECT_EQ(bag.names, upTo(readNames(7), "Rows"));
}

TEST_F(FailedRead, InTheMiddleOfAColumnLeavesTheRestOfItAndTheFollowingFresh) {
    headless::Desk other;
    store("Cols", 12);
    store(3, "bIsEditable", false);
    store(3, "iType", "x");
    store(3, "", "name");
    store(4, "", "next");
    kxGrid& loaded = other.load(bag);
    ASSERT_EQ(other.messages().size(), 1u);
    EXPECT_EQ(loaded.Cols(), 12);
    EXPECT_EQ(loaded.VsCtrl(2)->sName(), "-1");
    EXPECT_FALSE(loaded.VsCtrl(3)->bIsEditable());
    EXPECT_EQ(loaded.VsCtrl(3)->iType(), flexDTString);
    EXPECT_EQ(loaded.VsCtrl(3)->sName(), "");
    EXPECT_EQ(loaded.VsCtrl(4)->iType(), flexDTString);
    EXPECT_EQ(loaded.VsCtrl(11)->sName(), "");
}

TEST_F(FailedRead, LeavesDefinitionsForEveryColumnAlsoBeforeTheColumnsAreReached) {
    headless::Desk other;
    store("Cols", 12);
    store("Rows", "x");
    kxGrid& loaded = other.load(bag);
    EXPECT_EQ(loaded.Cols(), 12);
    for (std::int16_t col = 0; col < 12; ++col) {
        ASSERT_NO_THROW(loaded.VsCtrl(col)) << col;
        EXPECT_EQ(loaded.VsCtrl(col)->iType(), flexDTString);
    }
    EXPECT_NO_THROW(loaded.ReDraw(true));
}

TEST_F(FailedRead, KeepsTheChangedDataFlag) {
    typeInto(1, 1, "typed");
    ASSERT_TRUE(grid.ValidTextData());
    store("Editable", true);
    store(9, "bIsPint", "x");
    grid.ReadProperties(bag);
    EXPECT_EQ(desk.messages().size(), 1u);
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(FailedRead, RunsNoFullSetUp) {
    grid.ReDraw(true);
    store(2, "iType", 5);
    store(9, "bIsPint", "x");
    grid.ReadProperties(bag);
    EXPECT_EQ(vs().ColDataType(2), flexDTString);
    expectUsable();
}

TEST_F(FailedRead, KeepsEverybodyFromSavingUntilSomebodyReadsCompletely) {
    headless::Desk elsewhere;
    kxGrid& another = elsewhere.place();
    kxGrid& third = elsewhere.place();
    store("Cols", -1);
    grid.ReadProperties(bag);
    EXPECT_EQ(saved(grid), Nothing);
    EXPECT_EQ(saved(another), Nothing);
    another.ReadProperties(bag);
    EXPECT_EQ(saved(third), Nothing) << "another one that failed";
    bag.values.clear();
    another.ReadProperties(bag);
    EXPECT_NE(saved(grid), Nothing);
    EXPECT_NE(saved(another), Nothing);
    EXPECT_NE(saved(third), Nothing);
}

TEST_F(FailedRead, KeepsEverybodyFromSavingUntilAControlIsPlaced) {
    headless::Desk elsewhere;
    store("Cols", -1);
    grid.ReadProperties(bag);
    EXPECT_EQ(saved(grid), Nothing);
    elsewhere.place();
    EXPECT_NE(saved(grid), Nothing);
}

TEST_F(FailedRead, KeepsEverybodyFromSavingAlsoWhenItsControlHasGone) {
    {
        headless::Desk elsewhere;
        MemoryBag broken;
        broken.Write("Cols", -1);
        elsewhere.load(broken);
        EXPECT_EQ(elsewhere.messages().size(), 1u);
    }
    EXPECT_EQ(saved(grid), Nothing);
    grid.InitProperties();
    EXPECT_NE(saved(grid), Nothing);
}

TEST_F(FailedRead, IsMendedByTheNextOne) {
    store("Cols", 4);
    store(2, "iType", "x");
    grid.ReadProperties(bag);
    desk.clear();
    store(2, "iType", 5);
    bag.names.clear();
    read();
    EXPECT_EQ(bag.names, readNames(4));
    EXPECT_EQ(column(2).iType(), flexDTDouble);
    EXPECT_TRUE(desk.wheelHook());
    expectUsable();
}

TEST_F(FailedRead, OfALoadedControlLeavesItUsable) {
    for (const char* key : {"Cols", "Rows", "FixedRows", "FormatString", "SetVsControl0iType"}) {
        headless::Desk other;
        RecordingBag broken;
        broken.values["Cols"] = 4;
        broken.values["Editable"] = true;
        broken.values[key] = Variant::null();
        kxGrid& loaded = other.load(broken);
        ASSERT_EQ(other.messages().size(), 1u) << key;
        EXPECT_NO_THROW({
            loaded.ReDraw(true);
            loaded.Rows(9);
            loaded.SetCell(1, 2, "text", "tag");
            other.focusGrid();
            loaded.Grid().Select(2, 2);
            other.type("typed");
            other.press(Key::Enter);
        }) << key;
        EXPECT_EQ(loaded.ReadCell(1, 2), "tag") << key;
        EXPECT_EQ(loaded.ReadCell(2, 2, true), "typed") << key;
        EXPECT_EQ(other.messages().size(), 1u) << key;
    }
}

TEST_F(FailedRead, IsNoMatterOfABagThatChangesTheControlMeanwhile) {
    bag.onRead = [&](const std::string& name) {
        if (name == "SetVsControl2iType") vs().Cols(1);
    };
    grid.ReadProperties(bag);
    EXPECT_EQ(grid.Cols(), 1);
    EXPECT_EQ(bag.names.back().substr(0, 13), "SetVsControl2") << "no column after that";
    bag.onRead = nullptr;
    desk.clear();
    read();
    EXPECT_EQ(grid.Cols(), 10);
}

class FailedWrite : public SettingsTest {};

TEST_F(FailedWrite, AtAnyKeyEndsThereWithTheBagsOwnWords) {
    grid.Cols(2);
    grid.WriteProperties(bag);
    const Lines all = bag.writtenNames;
    const Lines whole = bag.written;
    ASSERT_EQ(all.size(), storedValues(2));
    for (std::size_t failing = 0; failing < all.size(); ++failing) {
        RecordingBag target;
        target.onWrite = [&](const std::string&) {
            if (target.writtenNames.size() == failing + 1) throw StoreGone();
        };
        desk.clear();
        grid.WriteProperties(target);
        EXPECT_EQ(boxes(), failedWrite("the store is gone"));
        EXPECT_EQ(target.writtenNames.back(), all[failing]);
        EXPECT_EQ(target.written, Lines(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(failing)));
    }
}

TEST_F(FailedRead, OfAHandlerThatThrowsInTheMoveOutOfTheFixedAreaGivesOneBox) {
    desk.focusGrid();
    store("FixedRows", 3);
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool&) { throw StoreGone(); });
    EXPECT_NO_THROW(grid.ReadProperties(bag));
    EXPECT_EQ(boxes(), failedRead("the store is gone"));
    EXPECT_EQ(grid.FixedRows(), 3);
}

TEST_F(FailedWrite, HoldsNobodyBackAfterwards) {
    bag.onWrite = [](const std::string&) { throw StoreGone(); };
    grid.WriteProperties(bag);
    bag.onWrite = nullptr;
    desk.clear();
    bag.writtenNames.clear();
    grid.WriteProperties(bag);
    EXPECT_EQ(bag.writtenNames.size(), storedValues(10));
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(FailedWrite, ShowsNoBoxWhileLoadingHoldsItBack) {
    store("Cols", -1);
    grid.ReadProperties(bag);
    desk.clear();
    bag.onWrite = [](const std::string&) { throw StoreGone(); };
    grid.WriteProperties(bag);
    EXPECT_EQ(boxes(), Nothing);
}
}  // namespace
}  // namespace kxVsGrid::testing
