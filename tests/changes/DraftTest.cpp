// Drafts: what is kept of what was keyed, and what comes back of it.
#include <map>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

#include "changes/DraftLine.h"
#include "kit/PlacedGrid.h"
#include "kit/Random.h"

namespace kxVsGrid::testing {
namespace {

/// Texts and tags of all data rows.
std::vector<std::string> contentOf(const kxGrid& grid) {
    std::vector<std::string> content;
    const CellGrid& cells = grid.Grid();
    for (std::int32_t row = cells.FixedRows(); row < cells.Rows(); ++row) {
        std::string line;
        for (std::int32_t col = 1; col < cells.Cols(); ++col)
            line += cells.Text(row, col) + "/" + cells.Data(row, col) + "|";
        content.push_back(line);
    }
    return content;
}

class DraftOfAGrid : public PlacedGrid {
  protected:
    DraftOfAGrid() {
        grid.Cols(5);
        setUp();
        for (std::int32_t row = 1; row < grid.Rows(); ++row)
            grid.SetCell(row, 1, "old " + std::to_string(row), "tag");
        desk.focusGrid();
    }
    void key(std::int32_t row, std::int32_t col, std::string_view typed) {
        vs().Select(row, col);
        desk.type(typed).press(Key::Enter);
    }
    void writeAll() {
        while (draft.writeSlice()) {
        }
    }
    /// What comes back in a control that holds nothing.
    std::vector<std::string> recovered(std::string_view kept) {
        kxGrid& other = anew.place();
        other.Cols(grid.Cols());
        const DraftInfo info = other.Recover(kept, false);
        EXPECT_EQ(info.refusal, "");
        return contentOf(other);
    }
    std::string bytes;
    bool keeps = true;
    Draft::Sink sink() {
        return [this](std::string_view more) {
            bytes += keeps ? more : more.substr(0, 3);
            return keeps;
        };
    }
    kxGrid& document() {
        kxGrid& one = anew.place();
        one.Cols(5);
        for (std::int32_t row = 1; row < 6; ++row) one.SetCell(row, 1, "old " + std::to_string(row), "tag");
        return one;
    }
    Draft draft{grid.Grid(), sink()};
    headless::Desk anew;
};

TEST_F(DraftOfAGrid, BringsKeyedLinesBackInAnEmptyGrid) {
    draft.begin("order 7", "3");
    writeAll();
    ASSERT_TRUE(draft.whole());
    key(1, 2, "12");
    key(3, 1, "new");
    EXPECT_TRUE(draft.kept());
    EXPECT_EQ(recovered(bytes), contentOf(grid));
    const DraftInfo info = lookAtDraft(bytes);
    EXPECT_EQ(info.key, "order 7");
    EXPECT_EQ(info.version, "3");
    EXPECT_EQ(info.steps, 2U);
    EXPECT_EQ(info.lastStep, "录入");
    EXPECT_TRUE(info.whole);
    EXPECT_EQ(info.damage, "");
}

TEST_F(DraftOfAGrid, IsGoodOverItsDocumentBeforeAllHasBeenGiven) {
    draft.begin("order 7", "3");
    key(2, 1, "new");
    grid.Grid().InsertRow(2);
    grid.Grid().Text(2, 3, "inserted");
    grid.Grid().RemoveRow(1);
    draft.flush();
    EXPECT_FALSE(lookAtDraft(bytes).whole);
    kxGrid& other = document();
    EXPECT_NE(other.Recover(bytes, false).refusal, "");
    EXPECT_EQ(other.RawText(1, 1), "old 1");
    EXPECT_EQ(other.Recover(bytes, true).refusal, "");
    EXPECT_EQ(contentOf(other), contentOf(grid));
}

TEST_F(DraftOfAGrid, LeavesTheDocumentsRowsWhoTheyAre) {
    draft.begin("order 7", "3");
    grid.Grid().RemoveRow(1);
    key(1, 2, "x");
    kxGrid& other = document();
    other.Changes().Saved();
    const RowId second = other.Grid().IdOf(2);
    other.Recover(bytes, true);
    EXPECT_EQ(other.Grid().RowOf(second), 1);
    EXPECT_EQ(other.Changes().Removed().size(), 1U);
    EXPECT_EQ(other.Changes().Changed().size(), 1U);
    EXPECT_TRUE(other.Changes().Added().empty());
    EXPECT_FALSE(other.History().CanUndo());
}

TEST_F(DraftOfAGrid, HasTheOrderOfItsRows) {
    draft.begin("order 7", "3");
    grid.Grid().Reorder(1, std::vector<std::int32_t>{4, 5, 2, 3, 1});
    key(2, 2, "x");
    EXPECT_NE(bytes.find("o\t1\t3\t4\t2\t2\t2\t1\t1"), std::string::npos) << bytes;
    kxGrid& other = document();
    const RowId fourth = other.Grid().IdOf(4);
    EXPECT_EQ(other.Recover(bytes, true).refusal, "");
    EXPECT_EQ(contentOf(other), contentOf(grid));
    EXPECT_EQ(other.Grid().RowOf(fourth), 1);
    writeAll();
    grid.Grid().MoveRows(5, 1, 2);
    grid.History().Undo();
    draft.flush();
    EXPECT_EQ(lookAtDraft(bytes).damage, "");
    EXPECT_EQ(recovered(bytes), contentOf(grid));
}

TEST_F(DraftOfAGrid, FollowsRowsThatChangePlacesWhileItIsGivenInSlices) {
    grid.Rows(1500);
    for (std::int32_t row = 1; row < 1500; ++row) grid.Grid().Text(row, 1, std::to_string(row));
    draft.begin("order 7", "3");
    ASSERT_TRUE(draft.writeSlice());
    grid.Grid().MoveRows(1400, 3, 20);
    grid.Grid().MoveRows(1, 2, 3);
    writeAll();
    EXPECT_TRUE(lookAtDraft(bytes).whole);
    EXPECT_EQ(recovered(bytes), contentOf(grid));
}

TEST_F(DraftOfAGrid, TakesNoOrderThatNamesARowTwiceOrNone) {
    for (const char* order : {"1\t2\t2\t1\t2\t1", "1\t1\t2\t2", "1\t2\t1\t2\t4\t1", "0\t2\t1\t1\t0\t1",
                              "1\t2\t1\t1", "1\t1\t1\t9", "1\t0"}) {
        bytes.clear();
        draft.begin("order 7", "3");
        changes::DraftPlace place{
            1, changes::readLine(std::string_view(bytes).substr(1, bytes.size() - 2), 0)->checksum};
        changes::appendLine(bytes, place, std::string("T\tname\t0\to\t") + order);
        EXPECT_NE(lookAtDraft(bytes).damage, "") << order;
        kxGrid& other = document();
        EXPECT_EQ(other.Recover(bytes, true).refusal, "");
        EXPECT_EQ(contentOf(other), contentOf(grid));
    }
}

TEST_F(DraftOfAGrid, FollowsUndo) {
    draft.begin("order 7", "3");
    writeAll();
    key(1, 2, "12");
    desk.press('Z', CtrlKey);
    EXPECT_EQ(recovered(bytes), contentOf(grid));
    EXPECT_EQ(grid.RawText(1, 2), "");
}

TEST_F(DraftOfAGrid, HoldsTheLastOfWhatWasPutBesideTheGrid) {
    draft.begin("order 7", "3");
    draft.put("remark", "first");
    draft.put("remark", "tab\t, line\n and \\");
    draft.put("customer", "0042");
    const DraftInfo info = lookAtDraft(bytes);
    EXPECT_EQ(info.puts.at("remark"), "tab\t, line\n and \\");
    EXPECT_EQ(info.puts.at("customer"), "0042");
    draft.begin("order 8", "1");
    EXPECT_TRUE(lookAtDraft(bytes).puts.empty());
}

TEST_F(DraftOfAGrid, GivesAgainWhatTheSinkCouldNotKeep) {
    draft.begin("order 7", "3");
    writeAll();
    keeps = false;
    key(1, 2, "12");
    key(2, 2, "13");
    EXPECT_FALSE(draft.kept());
    keeps = true;
    key(3, 2, "14");
    EXPECT_TRUE(draft.kept());
    EXPECT_EQ(recovered(bytes), contentOf(grid));
    EXPECT_EQ(lookAtDraft(bytes).damage, "");
}

TEST_F(DraftOfAGrid, IsGivenAnewWhenTheColumnsHaveChanged) {
    draft.begin("order 7", "3");
    writeAll();
    grid.Cols(7);
    key(1, 6, "far");
    EXPECT_TRUE(draft.kept());
    EXPECT_EQ(recovered(bytes), contentOf(grid));
    EXPECT_EQ(lookAtDraft(bytes).captions.size(), 7U);
}

TEST_F(DraftOfAGrid, CanBeWrittenShorter) {
    draft.begin("order 7", "3");
    writeAll();
    draft.put("remark", "kept");
    for (int i = 0; i < 50; ++i) key(1, 2, std::to_string(i));
    std::string shorter;
    EXPECT_TRUE(draft.rewrite([&](std::string_view all) {
        shorter = all;
        return true;
    }));
    EXPECT_LT(shorter.size(), bytes.size());
    EXPECT_EQ(draft.contentBytes(), shorter.size());
    bytes = shorter;
    key(2, 2, "after");
    EXPECT_EQ(recovered(bytes), contentOf(grid));
    EXPECT_EQ(lookAtDraft(bytes).puts.at("remark"), "kept");
}

TEST_F(DraftOfAGrid, RefusesWhatIsNoneAndOtherColumns) {
    EXPECT_NE(lookAtDraft("").refusal, "");
    EXPECT_NE(lookAtDraft("hello\nworld\n").refusal, "");
    draft.begin("order 7", "3");
    writeAll();
    kxGrid& other = anew.place();
    other.Cols(4);
    other.SetCell(1, 1, "stays");
    EXPECT_NE(other.Recover(bytes, false).refusal, "");
    EXPECT_EQ(other.RawText(1, 1), "stays");
}

TEST_F(DraftOfAGrid, StopsBeforeADamagedLineAndSaysWhere) {
    draft.begin("order 7", "3");
    writeAll();
    key(1, 2, "one");
    const auto state = contentOf(grid);
    const std::size_t place = bytes.size();
    key(2, 2, "two");
    key(3, 2, "three");
    bytes[place + 20] = static_cast<char>(bytes[place + 20] ^ 4);
    EXPECT_EQ(recovered(bytes), state);
    const DraftInfo info = lookAtDraft(bytes);
    EXPECT_EQ(info.steps, 1U);
    EXPECT_NE(info.damage.find("byte " + std::to_string(place)), std::string::npos) << info.damage;
}

TEST_F(DraftOfAGrid, ComesBackWithoutItsHostMakingOtherCellsOfIt) {
    draft.begin("order 7", "3");
    writeAll();
    key(1, 2, "12");
    grid.Grid().Text(1, 3, "twelve");
    draft.flush();
    kxGrid& other = anew.place();
    other.Cols(5);
    other.CellChanged.connect([&](std::int32_t row, std::int32_t) { other.Grid().Text(row, 3, "computed"); });
    other.Recover(bytes, false);
    EXPECT_EQ(contentOf(other), contentOf(grid));
}

TEST_F(DraftOfAGrid, HasTheTotalsOfWhatCameBack) {
    column(2).iType(flexDTDouble);
    summed(2);
    draft.begin("order 7", "3");
    writeAll();
    key(1, 2, "12");
    key(2, 2, "30");
    kxGrid& other = anew.place();
    other.Cols(5);
    other.VsCtrl(2)->iType(flexDTDouble);
    other.VsCtrl(2)->b是否合计数据(true);
    other.SumRow(true);
    other.ReDraw(true);
    other.Recover(bytes, false);
    EXPECT_EQ(other.ReadSum(2), "42");
    EXPECT_TRUE(other.bIsDirty());
    EXPECT_EQ(other.Row(), 1);
}

TEST_F(DraftOfAGrid, KeepsTheEditorWhereItRefuses) {
    desk.focusGrid();
    vs().Select(1, 1);
    desk.type("typing");
    EXPECT_NE(grid.Recover("nonsense", false).refusal, "");
    EXPECT_EQ(desk.editor().text, "typing");
}

TEST_F(DraftOfAGrid, WrittenAnewIsStillOneOverItsDocument) {
    draft.begin("order 7", "3");
    grid.Grid().RemoveRow(1);
    grid.Grid().InsertRow(4);
    grid.Grid().Text(4, 1, "inserted");
    key(1, 2, "x");
    std::string anewBytes;
    ASSERT_TRUE(draft.rewrite([&](std::string_view all) {
        anewBytes = all;
        return true;
    }));
    EXPECT_EQ(lookAtDraft(anewBytes).steps, 1U);
    kxGrid& other = document();
    other.Changes().Saved();
    EXPECT_EQ(other.Recover(anewBytes, true).refusal, "");
    EXPECT_EQ(contentOf(other), contentOf(grid));
    EXPECT_EQ(other.Changes().Removed().size(), 1U);
    EXPECT_EQ(other.Changes().Changed().size(), 1U);
    EXPECT_EQ(other.Changes().Added().size(), 1U);
}

TEST_F(DraftOfAGrid, GoesOnAfterARewriteThatFailed) {
    draft.begin("order 7", "3");
    writeAll();
    key(1, 2, "one");
    EXPECT_FALSE(draft.rewrite([](std::string_view) { return false; }));
    EXPECT_FALSE(draft.rewrite([](std::string_view) -> bool { throw std::runtime_error("disk"); }));
    key(2, 2, "two");
    draft.flush();
    EXPECT_TRUE(draft.kept());
    EXPECT_EQ(recovered(bytes), contentOf(grid));
    EXPECT_EQ(lookAtDraft(bytes).steps, 2U);
}

TEST_F(DraftOfAGrid, OfANewDocumentStandsApartFromTornBytesBeforeIt) {
    draft.begin("order 7", "3");
    writeAll();
    keeps = false;
    key(1, 2, "torn");
    keeps = true;
    draft.begin("order 8", "1");
    writeAll();
    key(2, 2, "new");
    EXPECT_EQ(lookAtDraft(bytes).key, "order 8");
    EXPECT_EQ(recovered(bytes), contentOf(grid));
}

TEST_F(DraftOfAGrid, NeverTakesTheLinesOfAnotherDraft) {
    draft.begin("order 7", "3");
    writeAll();
    key(1, 2, "seven");
    const auto state = contentOf(grid);
    const std::size_t second = bytes.size();
    draft.begin("order 8", "1");
    writeAll();
    for (int i = 0; i < 9; ++i) key(2, 2, "eight " + std::to_string(i));
    bytes[second + 20] = static_cast<char>(bytes[second + 20] ^ 1);
    const DraftInfo info = lookAtDraft(bytes);
    EXPECT_EQ(info.key, "order 7");
    EXPECT_NE(info.damage, "");
    EXPECT_EQ(recovered(bytes), state);
}

TEST_F(DraftOfAGrid, BegunInAStepCountsTheStepAsOne) {
    {
        const auto step = grid.Step("装载");
        grid.SetCell(1, 2, "before");
        draft.begin("order 7", "3");
        grid.SetCell(2, 2, "after");
        EXPECT_FALSE(draft.writeSlice());
        draft.flush();
        EXPECT_EQ(lookAtDraft(bytes).steps, 0U);
    }
    EXPECT_EQ(lookAtDraft(bytes).steps, 1U);
}

TEST_F(DraftOfAGrid, ThatEndsWithinItsFirstLineHoldsNothing) {
    draft.begin("order 7", "3");
    ASSERT_EQ(bytes.front(), '\n');
    for (const std::string& header : {bytes, bytes.substr(1)}) {
        for (std::size_t size = 0; size < header.size(); ++size) {
            const DraftInfo info = lookAtDraft(header.substr(0, size));
            ASSERT_TRUE(info.nothing) << size << " bytes";
            ASSERT_NE(info.refusal, "") << size << " bytes";
        }
        EXPECT_FALSE(lookAtDraft(header).nothing);
    }
    for (const char* other : {"hello", "1 hello", "12 3f2a91c0 B\t", "1 3f2a91c0 T\t", "1 3f2a91c0 B\tx\n\n"})
        EXPECT_FALSE(lookAtDraft(other).nothing) << other;
}

TEST_F(DraftOfAGrid, OfAnotherFormatIsRefusedByThatName) {
    draft.begin("order 7", "3");
    changes::DraftPlace place;
    std::string newer;
    changes::appendLine(newer, place, "B\t2\twhatever");
    EXPECT_NE(lookAtDraft(newer).refusal.find("format 2"), std::string::npos);
    EXPECT_EQ(lookAtDraft(bytes + newer).key, "order 7");
    EXPECT_NE(lookAtDraft(bytes + newer).damage, "");
}

TEST_F(DraftOfAGrid, WithAnyByteAlteredIsAnEarlierState) {
    draft.begin("order 7", "3");
    writeAll();
    std::vector<std::vector<std::string>> states{contentOf(grid)};
    for (int i = 0; i < 6; ++i) {
        key(1 + i % 3, 2, "value " + std::to_string(i));
        states.push_back(contentOf(grid));
    }
    kxGrid& other = anew.place();
    other.Cols(5);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        std::string altered = bytes;
        altered[at] = static_cast<char>(altered[at] ^ 0x10);
        const DraftInfo info = other.Recover(altered, false);
        if (!info.refusal.empty()) continue;
        ASSERT_EQ(contentOf(other), states[info.steps]) << "byte " << at;
        // the first line is empty, and without its end the last one is torn
        if (at > 0 && at + 1 < bytes.size()) {
            ASSERT_NE(info.damage, "") << "byte " << at;
        }
    }
}

TEST_F(DraftOfAGrid, CutAnywhereIsTheStateAfterSomeWholeStep) {
    kit::Random random;
    draft.begin("order 7", "3");
    std::map<std::size_t, std::vector<std::string>> states;
    std::size_t slicesEnd = std::string::npos;
    grid.Changes().After.connect([&](const StepChanges&) {
        if (bytes.size() >= slicesEnd) states[bytes.size()] = contentOf(grid);
    });
    for (int act = 0; act < 60; ++act) {
        const auto row = static_cast<std::int32_t>(random.between(1, grid.Rows() - 1));
        switch (random.between(0, 5)) {
            case 0:
                grid.Grid().InsertRow(row);
                break;
            case 1:
                if (grid.Rows() > 6) grid.Grid().RemoveRow(row);
                break;
            case 2:
                desk.press('Z', CtrlKey);
                break;
            case 3:
                grid.Grid().ClearText(row, row);
                break;
            default:
                key(row, static_cast<std::int32_t>(random.between(1, 4)), "t" + std::to_string(act));
        }
        draft.flush();
        if (act == 20) {
            writeAll();
            slicesEnd = bytes.size();
        }
        if (act >= 20) states[bytes.size()] = contentOf(grid);
    }
    for (std::size_t cut = slicesEnd; cut <= bytes.size(); ++cut) {
        const auto expected = std::prev(states.upper_bound(cut))->second;
        ASSERT_EQ(recovered(std::string_view(bytes).substr(0, cut)), expected) << "cut at " << cut;
    }
}
}  // namespace
}  // namespace kxVsGrid::testing
