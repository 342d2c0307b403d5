// Bags that hold far too much, or that do something to the control while they are read or written.
#include <cstdint>
#include <memory>
#include <string>

#include "kit/SettingsTest.h"
#include "kxVsGrid/Frame.h"
#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/TextBag.h"

namespace kxVsGrid::testing {
namespace {

class HostileBag : public SettingsTest {
  protected:
    /// Sets up, paints and keys in whatever was loaded.
    static void work(headless::Desk& at, kxGrid& control) {
        control.Editable(true);
        control.SumRow(true);
        control.ReDraw(true);
        makeFrame(control.Grid());
        makeFrame(control.Grid_Sum());
        at.resize(5000, 3000).resize(9000, 6000);
        control.Rows(20);
        if (control.Cols() == 0) return;
        at.focusGrid();
        control.Grid().Select(control.Rows() - 1, control.Cols() - 1);
        at.type("1").press(Key::Enter).press(Key::Home).press(Key::Escape);
        at.wheel(3).scrollTo(5, control.Cols());
        makeFrame(control.Grid());
        at.ascii();
    }
};

TEST_F(HostileBag, WithTheMostColumnsAndRowsIsLoadedInFull) {
    constexpr std::int32_t Most = CellGrid::MaxCols;
    MemoryBag most;
    most.Write("Cols", Most);
    most.Write("Rows", CellGrid::MaxRows);
    most.Write(columnName(Most - 1, ""), "last");
    headless::Desk other;
    kxGrid& loaded = other.load(most);
    ASSERT_TRUE(other.messages().empty());
    EXPECT_EQ(loaded.Cols(), Most);
    EXPECT_EQ(loaded.Rows(), CellGrid::MaxRows);
    EXPECT_EQ(loaded.VsCtrl(static_cast<std::int16_t>(Most - 1))->sName(), "last");
    EXPECT_EQ(other.wheelHook()->step, 19'999'999);
}

TEST_F(HostileBag, WithAFormatStringOfTooManyColumnsIsAnError) {
    headless::Desk other;
    MemoryBag many;
    many.Write("FormatString", std::string(10'000'000, '|'));
    kxGrid& loaded = other.load(many);
    ASSERT_EQ(other.messages().size(), 1u);
    EXPECT_TRUE(other.messages()[0].text.starts_with("ReadProperError:"));
    EXPECT_LT(other.messages()[0].text.size(), 10'000u) << "a box that fits on a screen";
    EXPECT_EQ(loaded.Cols(), 10);
    work(other, loaded);
}

TEST_F(HostileBag, WithCaptionsOfMegabytesLeavesAControlThatWorks) {
    headless::Desk other;
    MemoryBag wide;
    const std::string caption(5'000'000, 'x');
    wide.Write("FormatString", caption + '|' + caption + "|>" + caption + '|' + caption);
    wide.Write("Cols", 6);
    wide.Write("FixedCols", 2);
    kxGrid& loaded = other.load(wide);
    EXPECT_EQ(loaded.Cols(), 6);
    work(other, loaded);
}

TEST_F(HostileBag, WithACaptionOfThirtyMegabytesLeavesAControlThatWorks) {
    headless::Desk other;
    MemoryBag wide;
    wide.Write("FormatString", std::string(30'000'000, 'x'));
    work(other, other.load(wide));
}

TEST_F(HostileBag, WithALongWrongNumberShowsABoxThatFitsOnAScreen) {
    store("Cols", std::string(10'000'000, '9') + "x");
    grid.ReadProperties(bag);
    ASSERT_EQ(desk.messages().size(), 1u);
    EXPECT_LT(desk.messages()[0].text.size(), 10'000u);
}

TEST_F(HostileBag, WithEveryNumberAtItsEndsLeavesAControlThatWorks) {
    for (const std::int32_t extreme : {INT32_MIN, INT32_MAX, -1}) {
        headless::Desk other;
        MemoryBag ends;
        const auto narrow = static_cast<std::int16_t>(extreme == INT32_MIN ? INT16_MIN
                                                      : extreme == -1      ? -1
                                                                           : INT16_MAX);
        ends.Write("Editable", true);
        for (std::int32_t col = 0; col < 10; ++col) {
            for (const char* suffix :
                 {"iType", "i帮助返回值显示类型", "i帮助类型", "i是否允许为空", "i字段有效性判断类型"})
                ends.Write(columnName(col, suffix), extreme);
            for (const char* suffix : {"iLimitLength", "i有效性判断", "iColAlignment"})
                ends.Write(columnName(col, suffix), narrow);
            ends.Write(columnName(col, "b是否提供帮助"), true);
        }
        for (const char* name : {"BackColor", "BackColorBkg", "BackColorFixed", "ForeColor", "ForeColorFixe"})
            ends.Write(name, extreme);
        kxGrid& loaded = other.load(ends);
        ASSERT_TRUE(other.messages().empty());
        work(other, loaded);
        other.focusGrid();
        loaded.Grid().Select(1, 1);
        other.type("12").press(Key::F2).press(Key::Enter);
        loaded.ValidTextData();
    }
}

TEST_F(HostileBag, WithFixedColumnsOnlyHasNoTotalsCaption) {
    store("SumRow", true);
    store("Cols", 3);
    store("FixedCols", 3);
    store("FixedRows", 6);
    read();
    for (std::int32_t col = 0; col < 3; ++col) EXPECT_EQ(grid.ReadSum(col), "");
    EXPECT_EQ(sum().FixedCols(), 3);
    grid.ReDraw(true);
    makeFrame(vs());
}

TEST_F(HostileBag, ThatLoadsAnotherControlMeanwhileLoadsBoth) {
    headless::Desk other;
    kxGrid& another = other.place();
    RecordingBag inner;
    inner.values["Cols"] = 4;
    bag.onRead = [&](const std::string& name) {
        if (name == "SetVsControl3iType") another.ReadProperties(inner);
    };
    store("Cols", 5);
    read();
    EXPECT_EQ(bag.names, readNames(5));
    EXPECT_EQ(inner.names, readNames(4));
    EXPECT_EQ(another.Cols(), 4);
    EXPECT_NE(saved(grid), Nothing);
    EXPECT_NE(saved(another), Nothing);
}

TEST_F(HostileBag, ThatLoadsTheSameControlMeanwhileEnds) {
    MemoryBag inner;
    inner.Write("Cols", 3);
    bag.onRead = [&](const std::string& name) {
        if (name == "SetVsControl7iType") grid.ReadProperties(inner);
    };
    grid.ReadProperties(bag);
    EXPECT_EQ(grid.Cols(), 3);
    EXPECT_EQ(bag.names.back().substr(0, 13), "SetVsControl7");
    bag.onRead = nullptr;
    desk.clear();
    read();
    work(desk, grid);
}

TEST_F(HostileBag, ThatReplacesDefinitionsMeanwhileIsReadIntoThemWithoutHarm) {
    const auto put = std::make_shared<cVsControl>();
    bag.onRead = [&](const std::string& name) {
        if (name != "SetVsControl3iType") return;
        vs().Col(3);
        grid.SetVsControl(nullptr);
        vs().Col(4);
        grid.SetVsControl(put);
    };
    store(4, "", "named");
    read();
    EXPECT_EQ(grid.VsCtrl(4), put);
    EXPECT_EQ(put->sName(), "named");
    EXPECT_TRUE(grid.VsCtrl(3));
}

TEST_F(HostileBag, ThatChangesTheColumnsWhileItIsWrittenGetsThoseThatAreThere) {
    bag.onWrite = [&](const std::string& name) {
        if (name == "SetVsControl2iType") vs().Cols(1);
    };
    grid.WriteProperties(bag);
    EXPECT_EQ(bag.writtenNames.back().substr(0, 13), "SetVsControl2");
    EXPECT_EQ(grid.Cols(), 1);
    desk.clear();
    bag.onWrite = [&](const std::string& name) {
        if (name == "SetVsControl0iType") grid.Cols(4);
    };
    grid.WriteProperties(bag);
    EXPECT_TRUE(bag.values.contains("SetVsControl3bIsPrint"));
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(HostileBag, ThatDestroysTheControlWhileItIsReadOrWrittenEndsQuietly) {
    for (const char* key :
         {"Editable", "Cols", "FormatString", "SetVsControl0bIsEditable", "SetVsControl9bIsPint"}) {
        headless::Desk other;
        kxGrid& doomed = other.place();
        RecordingBag last;
        last.onRead = [&](const std::string& name) {
            if (name == key) other.remove(doomed);
        };
        doomed.ReadProperties(last);
        EXPECT_TRUE(other.messages().empty()) << key;
    }
    for (const char* key :
         {"FormatString", "Appearance", "SetVsControl0bIsEditable", "SetVsControl9bIsPrint"}) {
        headless::Desk other;
        kxGrid& doomed = other.place();
        RecordingBag last;
        last.onWrite = [&](const std::string& name) {
            if (name == key) other.remove(doomed);
        };
        doomed.WriteProperties(last);
        EXPECT_TRUE(other.messages().empty()) << key;
    }
}

TEST_F(HostileBag, ThatIsDamagedShowsItsOwnWordsAndKeepsWhatStandsAbove) {
    TextBag damaged(
        "kxVsGrid settings 1\nEditable = Boolean True\nShowZero = Boolean True\nSumRow = Boolean False\n"
        "Cols = Int32 7\nRows = Int3",
        "orders.kx");
    headless::Desk other;
    kxGrid& loaded = other.load(damaged);
    ASSERT_EQ(other.messages().size(), 1u);
    EXPECT_TRUE(other.messages()[0].text.starts_with("ReadProperError:"));
    EXPECT_NE(other.messages()[0].text.find("orders.kx"), std::string::npos) << other.messages()[0].text;
    EXPECT_TRUE(loaded.bIsShowZero());
    EXPECT_EQ(loaded.Cols(), 7);
    EXPECT_EQ(loaded.Rows(), 6);
    EXPECT_EQ(saved(loaded), Nothing);
    work(other, loaded);
}

TEST_F(HostileBag, ThatIsReadUnderAnOpenEditorLeavesNoEditorOverACellThatHasGone) {
    typeInto(3, 8, "typed");
    store("Cols", 4);
    store("Editable", true);
    read();
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_LT(grid.Col(), 4);
    work(desk, grid);
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(HostileBag, OfManyKeysIsReadForThoseThatAreAskedFor) {
    MemoryBag many;
    for (std::int32_t i = 0; i < 200'000; ++i) many.Write(columnName(i, ""), "name");
    many.Write("Cols", 4);
    headless::Desk other;
    EXPECT_EQ(other.load(many).VsCtrl(3)->sName(), "name");
    EXPECT_EQ(other.grid().Cols(), 4);
}
}  // namespace
}  // namespace kxVsGrid::testing
