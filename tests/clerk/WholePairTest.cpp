// Routines that write a tag and then its text, for a host that fails in between: no cell is left with half of
// a pair.
#include <stdexcept>

#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class WholePair : public MenuTest {
  protected:
    static constexpr std::int32_t Col = 2;

    /// The host fails as it hears of a cell's tag, once, and in all that it hears of the cell afterwards.
    void failsInTheTagOf(std::int32_t row, std::int32_t col) {
        grid.CellChanged.connect([=, this](std::int32_t r, std::int32_t c) {
            if (failing || (r == row && c == col)) {
                failing = true;
                throw HostFailure();
            }
        });
    }

    bool failing = false;
};

TEST_F(WholePair, StaysInTheCellThatAFillCouldNotWrite) {
    fill(1, Col, "new", "n");
    fill(3, Col, "old", "o");
    at(1, Col);
    failsInTheTagOf(3, Col);
    fillBy(caption::Copies);
    EXPECT_EQ(texts(1, Col), (Lines{"new", "new", "old", "", ""}));
    EXPECT_EQ(tags(1, Col), (Lines{"n", "n", "o", "", ""}));
    EXPECT_EQ(desk.messages().size(), 1U);
    EXPECT_EQ(desk.tips().size(), 1U);
}

TEST_F(WholePair, ComesBackWithoutAnEvent) {
    fill(1, Col, "new", "n");
    at(1, Col);
    failsInTheTagOf(2, Col);
    log.clear();
    fillBy(caption::Copies);
    EXPECT_EQ(named(heard(), "CellChanged"), changed(2, Col));
    EXPECT_EQ(tag(2, Col), "");
}

TEST_F(WholePair, IsPutBackInItsRowWhenTheHostMovesThatBeforeItFails) {
    fill(1, Col, "new", "n");
    fill(2, Col, "old", "o");
    at(1, Col);
    grid.CellChanged.connect([this](std::int32_t, std::int32_t) {
        if (std::exchange(failing, true)) return;
        grid.Grid().InsertRow(2);
        throw HostFailure();
    });
    fillBy(caption::Copies);
    EXPECT_EQ(text(3, Col), "old");
    EXPECT_EQ(tag(3, Col), "o");
    EXPECT_EQ(tag(2, Col), "");
}

TEST_F(WholePair, OfAFillIsNewWhenTheHostFailsOverTheText) {
    fill(1, Col, "new", "n");
    at(1, Col);
    int heardOf = 0;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        if (++heardOf == 2) throw HostFailure();
    });
    fillBy(caption::Copies);
    EXPECT_EQ(text(2, Col), "new");
    EXPECT_EQ(tag(2, Col), "n");
}

TEST_F(WholePair, StaysEmptyInACopiedRow) {
    fill(1, Col, "screw", "s");
    at(1, Col);
    consentToRows();
    confirmCopies();
    failsInTheTagOf(6, Col);
    EXPECT_THROW(run(caption::CopyRow), HostFailure);
    ASSERT_EQ(grid.Rows(), 7);
    EXPECT_EQ(text(6, Col), "");
    EXPECT_EQ(tag(6, Col), "");
}

TEST_F(WholePair, StaysEmptyInACopyWhoseSourceTheHostTakesAway) {
    fill(2, Col, "screw", "s");
    at(2, Col);
    consentToRows();
    confirmCopies();
    bool once = true;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        if (std::exchange(once, false)) grid.Grid().RemoveRow(2);
    });
    run(caption::CopyRow);
    ASSERT_EQ(grid.Rows(), 6);
    EXPECT_EQ(text(5, Col), "");
    EXPECT_EQ(tag(5, Col), "");
}

TEST_F(WholePair, StaysInACopyThatIsNotConfirmedAndCannotBeEmptied) {
    fill(1, Col, "screw", "s");
    at(1, Col);
    consentToRows();
    grid.AfterAddRow.connect([this](bool&, std::int32_t, bool, std::int32_t) {
        grid.CellChanged.connect([](std::int32_t, std::int32_t) { throw HostFailure(); });
    });
    EXPECT_THROW(run(caption::CopyRow), HostFailure);
    EXPECT_EQ(text(6, Col), "screw");
    EXPECT_EQ(tag(6, Col), "s");
}

TEST_F(WholePair, StaysEmptyWhereADefaultCouldNotBeFilledIn) {
    column(Col).sDefaultText_Code("01");
    column(Col).sDefaultText_Name("件");
    failsInTheTagOf(3, Col);
    EXPECT_THROW(grid.Grid().Select(3, 1), HostFailure);
    EXPECT_EQ(text(3, Col), "");
    EXPECT_EQ(tag(3, Col), "");
}

TEST_F(WholePair, OfADefaultIsItsCodeAloneWhereThereIsNoName) {
    column(Col).sDefaultText_Code("01");
    failsInTheTagOf(3, Col);
    EXPECT_THROW(grid.Grid().Select(3, 1), HostFailure);
    EXPECT_EQ(tag(3, Col), "01");
}

TEST_F(WholePair, IsWrittenOverATextThatItsHostCannotCompute) {
    fill(1, Col, "new", "n");
    at(1, Col);
    grid.Grid().ComputedText(2, Col, []() -> std::string { throw HostFailure(); });
    fillBy(caption::Copies);
    EXPECT_EQ(texts(1, Col), Lines(5, "new"));
    EXPECT_EQ(desk.messages().size(), 0U);
}
}  // namespace
}  // namespace kxVsGrid::testing
