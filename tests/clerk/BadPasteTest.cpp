// Clipboards that nobody meant for this grid: far too large, far too long, broken.
#include <string>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

class BadPaster : public BlockTest {
  protected:
    static std::string table(int rows, int cols) {
        std::string line;
        for (int col = 0; col < cols; ++col) line += col == 0 ? "v" : "\tv";
        std::string all;
        for (int row = 0; row < rows; ++row) all += line + '\n';
        return all;
    }
    /// Every cell of the block is accounted for.
    void expectAccounted(std::int64_t cells) {
        const PasteReport last = report();
        EXPECT_EQ(last.written + last.same + last.passedOver + last.refused, cells);
        std::int64_t listed = 0;
        for (const auto& refusal : last.refusals) listed += refusal.cells;
        EXPECT_EQ(listed, last.refused);
    }
};

TEST_F(BadPaster, IsToldWhatOfAHugeBlockHasNoPlace) {
    at(1, 1);
    paste(table(2'000, 200));
    EXPECT_EQ(grid.Rows(), 6);
    expectCounts(25, 0, 0, 2'000 * 200 - 25);
    expectAccounted(2'000 * 200);
    EXPECT_LE(report().refusals.size(), 3U);
    undo();
    for (int row = 1; row < 6; ++row) expectEmpty(row);
}

TEST_F(BadPaster, GetsTheRowsThatTheHostGives) {
    consentToRows();
    at(1, 1);
    paste(table(2'000, 200));
    EXPECT_EQ(grid.Rows(), 2'002);
    EXPECT_EQ(report().rowsAdded, 1'996);
    expectCounts(10'000, 0, 0, 2'000 * 195);
    expectAccounted(2'000 * 200);
    undo();
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(BadPaster, PutsFiveMillionBytesIntoATextCell) {
    const std::string text(5'000'000, 'x');
    at(2, 1);
    paste(text);
    EXPECT_TRUE(this->text(2, 1) == text);
    EXPECT_FALSE(open());
    undo();
    EXPECT_EQ(this->text(2, 1), "");
}

TEST_F(BadPaster, KeepsFiveMillionBytesOutOfANumberCell) {
    typed(2, flexDTDouble);
    fill(2, 2, "5");
    choose(2, 2, 3, 2);
    paste(std::string(5'000'000, 'x'));
    EXPECT_EQ(text(2, 2), "5");
    expectCounts(0, 0, 0, 2);
    EXPECT_TRUE(problemAt(2, 2));
    at(2, 2);
    paste(std::string(5'000'000, '('));
    EXPECT_EQ(text(2, 2), "5");
    desk.press(Key::Escape);
    EXPECT_EQ(text(2, 2), "5");
}

TEST_F(BadPaster, KeepsFiveMillionBytesOutOfACellOfLimitedLength) {
    column(1).iLimitLength(10);
    choose(2, 1, 3, 1);
    paste(std::string(5'000'000, 'x'));
    EXPECT_EQ(text(2, 1), "");
    expectCounts(0, 0, 0, 2);
}

TEST_F(BadPaster, OutlivesBytesThatAreNoText) {
    const std::string nul("a\0b\t\0\n\0\0\tc", 11);
    for (const std::string& bytes :
         {nul, std::string("\xFF\xFE\t\xC3(\n\xED\xA0\x80\tz"), std::string("\xF0\x9F\x98"),
          std::string(1, '\0'), std::string("\r\r\r"), std::string("\t\t\t\t\t\t\t\t"),
          std::string("\xEF\xBB\xBF"
                      "a\tb")}) {
        at(2, 1);
        const std::string was = texts(1, 1, 5, 5);
        paste(bytes);
        if (open()) desk.press(Key::Escape);
        EXPECT_EQ(grid.Rows(), 6);
        if (texts(1, 1, 5, 5) != was) undo();
        EXPECT_EQ(texts(1, 1, 5, 5), was);
    }
}

TEST_F(BadPaster, OutlivesQuotesThatNeverEnd) {
    at(1, 1);
    paste("\"a\tb\nc\td");
    EXPECT_EQ(grid.Rows(), 6);
    undo();
    for (int row = 1; row < 6; ++row) expectEmpty(row);
    std::string quotes(100'001, '"');
    at(1, 1);
    paste(quotes);
    EXPECT_EQ(grid.Rows(), 6);
    at(1, 1);
    paste("a\t\"" + std::string(100'000, '\n'));
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(BadPaster, DoesNothingWithAnEmptyClipboard) {
    content(2);
    at(2, 2);
    const Lines before = wholeOf(grid);
    paste("");
    EXPECT_EQ(wholeOf(grid), before);
    EXPECT_FALSE(open());
}

TEST_F(BadPaster, PastesIntoAGridWithoutCellsNothing) {
    grid.Cols(0);
    EXPECT_FALSE(paste("a\tb"));
    grid.Cols(6);
    grid.Grid().Rows(1);
    EXPECT_FALSE(paste("a\tb"));
    EXPECT_EQ(grid.Rows(), 1);
}

TEST_F(BadPaster, PastesIntoHiddenCellsNothing) {
    content(2);
    at(2, 2);
    for (std::int32_t col = 1; col < 6; ++col) grid.ColHidden(col, true);
    const std::string before = texts(1, 1, 5, 5);
    paste("a\tb\nc\td");
    paste("a");
    EXPECT_EQ(texts(1, 1, 5, 5), before);
    EXPECT_FALSE(open());
}

TEST_F(BadPaster, ReadsNoOwnFormThatItHasNotWritten) {
    at(1, 1);
    choose(1, 1, 1, 2);
    content(1);
    choose(1, 1, 1, 2);
    run(Command::Copy);
    ClipboardContent content = desk.clipboardContent();
    const std::string whole = content.block;
    for (std::size_t cut = 0; cut <= whole.size(); cut += 1 + whole.size() / 200) {
        content.block = whole.substr(0, cut);
        desk.copyToClipboard(content);
        at(4, 1);
        run(Command::Paste);
        EXPECT_EQ(texts(4, 1, 4, 2), "t11|t12") << "cut at " << cut;
        undo();
    }
    for (std::size_t at = 0; at < whole.size(); at += 1 + whole.size() / 200) {
        content.block = whole;
        content.block[at] = static_cast<char>(content.block[at] ^ 0x15);
        desk.copyToClipboard(content);
        grid.Grid().Select(4, 1);
        run(Command::Paste);
        EXPECT_EQ(grid.Rows(), 6);
        while (grid.CanRun(Command::Undo)) undo();
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
