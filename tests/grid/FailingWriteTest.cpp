// Writes that fail, and hosts that throw whatever they like: the box, and totals that stay right.
#include <stdexcept>
#include <string>

#include "kit/PlacedGrid.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

/// Column 2 is summed; its cell (3, 2) asks the host for a price, which may fail.
class FailingWrite : public PlacedGrid {
  protected:
    FailingWrite() {
        grid.Cols(4);
        summed(2);
        setUp();
        vs().ComputedText(3, 2, [this]() -> std::string {
            if (broken_) throw std::runtime_error("no price");
            return "1";
        });
    }
    void priceFails(bool fails) { broken_ = fails; }
    /// Every total is to be added up again.
    void refresh() { grid.Rows(grid.Rows()); }
    std::size_t boxesShown() const { return desk.messages().size(); }

  private:
    bool broken_ = false;
};

TEST_F(FailingWrite, WhoseTotalCannotBeAddedUpEndsNothing) {
    grid.CellChanged.connect([this](std::int32_t, std::int32_t) { grid.ReDraw(false); });
    grid.SetCell(1, 2, "1");
    grid.ReDraw(true);
    priceFails(true);
    EXPECT_NO_THROW(grid.SetCell(2, 2, "5"));
    EXPECT_EQ(text(2, 2), "5");
    priceFails(false);
    EXPECT_EQ(grid.ReadSum(2), "2") << "ReDraw was off when the cell had been written";
}

TEST_F(FailingWrite, OfAHostThatThrowsLeavesTheTotalWithoutIt) {
    bool throws = false;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        if (throws) throw std::runtime_error("host");
    });
    refresh();
    priceFails(true);
    throws = true;
    grid.SetCell(2, 2, "5");
    EXPECT_EQ(boxes(), (Lines{"错误|16|SetCell Error::host"}));
    priceFails(false);
    EXPECT_EQ(grid.ReadSum(2), "1");
    throws = false;
    grid.SetCell(1, 2, "2");
    EXPECT_EQ(grid.ReadSum(2), "8");
}

TEST_F(FailingWrite, StaysOutOfTheTotalUntilTheNextRecalculation) {
    bool throws = true;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t) {
        if (throws && row == 2) throw std::runtime_error("host");
    });
    refresh();
    grid.SetCell(2, 2, "5");
    vs().Text(1, 3, "elsewhere");
    grid.AddRow(1, false, false);
    EXPECT_EQ(grid.ReadSum(2), "6") << "adding a row makes the totals anew";
    throws = false;
    refresh();
    throws = true;
    grid.SetCell(2, 2, "50");
    vs().InsertRow(1);
    EXPECT_EQ(grid.ReadSum(2), "6");
    grid.RecalculateTotals();
    EXPECT_EQ(grid.ReadSum(2), "56");
}

TEST_F(FailingWrite, OverACellThatCannotBeReadForgetsNothingOfTheWritesAfterIt) {
    grid.CellChanged.connect([](std::int32_t, std::int32_t) {});
    grid.SetCell(1, 2, "100");
    refresh();
    priceFails(true);
    grid.SetCell(3, 2, "7");
    EXPECT_EQ(boxesShown(), 1u);
    priceFails(false);
    EXPECT_EQ(grid.ReadSum(2), "101");
    refresh();
    vs().Text(4, 2, "1000");
    EXPECT_EQ(grid.ReadSum(2), "101") << "the engine's write is followed by no recalculation";
    grid.SetCell(3, 2, "50");
    refresh();
    vs().Text(3, 2, "60");
    EXPECT_EQ(grid.ReadSum(2), "1150");
    refresh();
    EXPECT_EQ(grid.ReadSum(2), "1160");
}

// --- Whatever is thrown.

class AnythingThrown : public PlacedGrid {
  protected:
    static Lines box(const std::string& title, const std::string& start) {
        return {title + "|16|" + start + "未知错误"};
    }
};

TEST_F(AnythingThrown, InSetCellEndsInItsBox) {
    summed(1);
    setUp();
    auto failing = grid.CellChanged.connect([](std::int32_t, std::int32_t) { throw 42; });
    EXPECT_NO_THROW(grid.SetCell(1, 1, "5"));
    EXPECT_EQ(boxes(), box("错误", "SetCell Error::"));
    failing.disconnect();
    grid.SetCell(2, 1, "7");
    EXPECT_EQ(grid.ReadSum(1), "12");
}

TEST_F(AnythingThrown, InReadCellAndReadSumEndsInTheirBoxes) {
    summed(1);
    setUp();
    vs().ComputedText(2, 1, []() -> std::string { throw 42; });
    EXPECT_EQ(grid.ReadCell(2, 1, true), "");
    EXPECT_EQ(boxes(), box("错误：", "CellError"));
    desk.clear();
    grid.RecalculateTotals();
    EXPECT_EQ(grid.ReadSum(1), "");
    EXPECT_EQ(boxes(), box("错误：", "CellError"));
}

TEST_F(AnythingThrown, InABagEndsInItsBoxAndNobodySavesWhatWasHalfRead) {
    struct Throwing : MemoryBag {
        Variant Read(std::string_view, const Variant&) override { throw 42; }
    } bag;
    EXPECT_NO_THROW(grid.ReadProperties(bag));
    EXPECT_EQ(boxes(), box("错误:", "ReadProperError:"));
    MemoryBag saved;
    grid.WriteProperties(saved);
    EXPECT_EQ(saved.find("Cols"), nullptr);
    grid.InitProperties();
    grid.WriteProperties(saved);
    EXPECT_NE(saved.find("Cols"), nullptr);
}

TEST_F(AnythingThrown, InABagThatIsWrittenEndsInItsBox) {
    struct Throwing : MemoryBag {
        void Write(std::string_view, const Variant&) override { throw 42; }
        void Write(std::string_view, const Variant&, const Variant&) override { throw 42; }
    } bag;
    EXPECT_NO_THROW(grid.WriteProperties(bag));
    EXPECT_EQ(boxes(), box("错误:", "WriteProperError:"));
}

TEST_F(AnythingThrown, InASetUpSkipsTheRest) {
    desk.resize(3000, 6000);
    vs().LeftCol(7);
    vs().AfterScroll.connect([](auto, auto, auto, auto) { throw 42; });
    for (std::int32_t c = 5; c < grid.Cols(); ++c) column(c).bIsVisible(false);
    EXPECT_NO_THROW(grid.ReDraw(true));
    EXPECT_TRUE(grid.ReDraw());
}

// --- A host that writes while it hears.

TEST_F(FailingWrite, OfAnInnerCellLeavesTheOuterOneCounted) {
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (col == 2 && row == 1) grid.SetCell(2, 2, "10");
        if (row == 2) throw std::runtime_error("inner");
    });
    refresh();
    grid.SetCell(1, 2, "5");
    EXPECT_EQ(grid.ReadSum(2), "16");
    EXPECT_EQ(boxesShown(), 1u);
}

class HostThatComputes : public PlacedGrid {
  protected:
    HostThatComputes() {
        summed(2);
        summed(3);
        setUp();
        vs().ComputedText(1, 2, [this] {
            ++asked;
            return std::string("1");
        });
    }
    int asked = 0;
};

TEST_F(HostThatComputes, LetsNoTotalBeAddedUpForEveryRowOfAColumnWithTags) {
    grid.Rows(102);
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
        if (col == 2) grid.SetCell(row, 3, grid.ReadCell(row, 2, true), "computed");
    });
    asked = 0;
    for (std::int32_t row = 2; row < grid.Rows(); ++row) grid.SetCell(row, 2, std::to_string(row), "tag");
    EXPECT_LE(asked, 1);
    EXPECT_EQ(grid.ReadSum(2), "5151");
    EXPECT_EQ(grid.ReadSum(3), "5150");
}

TEST_F(HostThatComputes, SeesTheTotalWithoutTheCellAlsoAfterItWroteAnotherColumn) {
    Lines seen;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        if (col != 2) return;
        grid.SetCell(row, 3, "4");
        seen.push_back(grid.ReadSum(2));
    });
    grid.RecalculateTotals();
    grid.SetCell(2, 2, "5", "tag");
    EXPECT_EQ(seen, (Lines{"1", "1"}));
    EXPECT_EQ(grid.ReadSum(2), "6");
    EXPECT_EQ(grid.ReadSum(3), "4");
}

TEST_F(HostThatComputes, SeesItsOwnWriteOfTheSameColumnInTheTotal) {
    Lines seen;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        if (col != 2 || row != 2) return;
        grid.SetCell(3, 2, "30");
        seen.push_back(grid.ReadSum(2));
    });
    grid.RecalculateTotals();
    grid.SetCell(2, 2, "5", "tag");
    EXPECT_EQ(seen, (Lines{"31", "36"})) << "made anew by the inner write, before and after the text";
    EXPECT_EQ(grid.ReadSum(2), "36");
}

TEST_F(HostThatComputes, RecalculatesAfterItWroteThroughTheGrid) {
    vs().Text(2, 2, "5");
    vs().Text(2, 3, "7");
    EXPECT_EQ(grid.ReadSum(2), "0");
    grid.RecalculateTotals();
    EXPECT_EQ(grid.ReadSum(2), "6");
    EXPECT_EQ(grid.ReadSum(3), "7");
    grid.ReDraw(false);
    vs().Text(2, 2, "50");
    EXPECT_EQ(grid.ReadSum(2), "6");
    grid.RecalculateTotals();
    EXPECT_EQ(grid.ReadSum(2), "51");
    EXPECT_EQ(heard().size(), 3u) << "only the cells were told of";
}
}  // namespace
}  // namespace kxVsGrid::testing
