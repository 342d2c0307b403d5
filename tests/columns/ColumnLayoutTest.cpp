// A clerk's layout of the columns, kept in a bag by their names and read into grids that have changed since.
#include "kxVsGrid/ColumnLayout.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>

#include "clerk/ColumnTest.h"
#include "kit/Random.h"

namespace kxVsGrid::testing {
namespace {

/// A later run of the program: the same columns as they are designed.
class NextRun {
  public:
    explicit NextRun(const std::string& format) {
        grid.FormatString(format);
        grid.ReDraw(true);
    }
    headless::Desk desk;
    kxGrid& grid = desk.place();
};
constexpr const char* Same = "行号|货号    |品名        |>数量    |备注    ";

class KeptLayout : public ColumnTest {
  protected:
    void hide(std::int32_t col) {
        grid.Grid().SelectCols(col, col);
        ASSERT_TRUE(desk.run(Command::HideColumn));
    }
    void freezeAt(std::int32_t col) {
        at(1, col);
        ASSERT_TRUE(desk.run(Command::Freeze));
    }
    MemoryBag bag;
};

TEST_F(KeptLayout, ComesBackInALaterRun) {
    desk.dragColumn(Name, 2345);
    hide(Quantity);
    freezeAt(Code);
    grid.Layout().Write(bag);
    NextRun next(Same);
    next.grid.Layout().Read(bag);
    EXPECT_EQ(next.grid.ColWidth(Name), 2345);
    EXPECT_EQ(next.grid.ColWidth(Remark), grid.ColWidth(Remark));
    EXPECT_EQ(next.grid.ColSample(Remark), grid.ColSample(Remark)) << "not the clerk's";
    EXPECT_TRUE(next.grid.ColHidden(Quantity));
    EXPECT_EQ(next.grid.FrozenCols(), 1);
    EXPECT_EQ(next.grid.Grid_Sum().ColWidth(Name), 2345);
    EXPECT_TRUE(next.grid.Grid_Sum().ColHidden(Quantity));
    EXPECT_TRUE(next.grid.CanRun(Command::ShowColumns));
}

TEST_F(KeptLayout, GoesByTheNamesOfTheColumns) {
    desk.dragColumn(Name, 2345);
    hide(Quantity);
    freezeAt(Name);
    grid.Layout().Write(bag);
    NextRun next("行号|>数量    |新的    |品名        |货号    ");
    next.grid.Layout().Read(bag);
    EXPECT_EQ(next.grid.ColWidth(3), 2345);
    EXPECT_TRUE(next.grid.ColHidden(1));
    EXPECT_FALSE(next.grid.ColHidden(2));
    EXPECT_EQ(next.grid.FrozenCols(), 3) << "up to 品名";
}

TEST_F(KeptLayout, NamesAColumnByItsDefinitionFirst) {
    grid.VsCtrl(Name)->sName(" 名 ");
    desk.dragColumn(Name, 2345);
    grid.Layout().Write(bag);
    EXPECT_EQ(bag.find("ColumnLayout.Width.名")->toInt32(), 2345);
    NextRun next("行号|名    |品名    ");
    next.grid.Layout().Read(bag);
    EXPECT_EQ(next.grid.ColWidth(1), 2345);
    EXPECT_NE(next.grid.ColWidth(2), 2345);
}

TEST_F(KeptLayout, BelongsToTheFirstOfTwoColumnsWithOneName) {
    grid.SetCell(0, Remark, "品名");
    desk.dragColumn(Remark, 3456);
    desk.dragColumn(Name, 2345);
    grid.Layout().Write(bag);
    EXPECT_EQ(bag.find("ColumnLayout.Width.品名")->toInt32(), 2345);
}

TEST_F(KeptLayout, KeepsNothingOfAColumnWithoutAName) {
    grid.SetCell(0, Remark, "  ");
    hide(Remark);
    grid.Layout().Write(bag);
    EXPECT_EQ(bag.find("ColumnLayout.Hidden."), nullptr);
}

TEST_F(KeptLayout, StandsBesideTheSettingsInOneBag) {
    desk.dragColumn(Name, 2345);
    grid.WriteProperties(bag);
    const std::size_t settings = bag.size();
    grid.Layout().Write(bag);
    EXPECT_EQ(bag.size(), settings + 2 * Count + 1);
    NextRun next(Same);
    next.grid.ReadProperties(bag);
    EXPECT_TRUE(next.desk.messages().empty());
    next.grid.ReDraw(true);
    next.grid.Layout().Read(bag);
    EXPECT_EQ(next.grid.ColWidth(Name), 2345);
}

TEST_F(KeptLayout, LeavesAloneWhatAnEmptyBagDoesNotKnow) {
    desk.dragColumn(Name, 2345);
    hide(Quantity);
    freezeAt(Code);
    grid.Layout().Read(bag);
    EXPECT_EQ(grid.ColWidth(Name), 2345);
    EXPECT_TRUE(grid.ColHidden(Quantity));
    EXPECT_EQ(grid.FrozenCols(), 1);
}

TEST_F(KeptLayout, ReadsWhatWasAsDesignedThen) {
    const std::int32_t width = grid.ColWidth(Name);
    const std::string sample = grid.ColSample(Name);
    grid.Layout().Write(bag);
    desk.dragColumn(Name, 2345);
    hide(Quantity);
    freezeAt(Code);
    grid.Layout().Read(bag);
    EXPECT_EQ(grid.ColWidth(Name), width);
    EXPECT_EQ(grid.ColSample(Name), sample);
    EXPECT_FALSE(grid.ColHidden(Quantity));
    EXPECT_EQ(grid.FrozenCols(), 0);
}

TEST_F(KeptLayout, PassesOverValuesThatMakeNoSense) {
    const std::int32_t width = grid.ColWidth(Name);
    for (const Variant& nonsense : {Variant(149), Variant(15'001), Variant(-1), Variant("wide"),
                                    Variant(1e300), Variant(Table(0, 3))}) {
        bag.Write("ColumnLayout.Width.品名", nonsense);
        bag.Write("ColumnLayout.Hidden.品名", "perhaps");
        bag.Write("ColumnLayout.Frozen", "no column");
        bag.Write("ColumnLayout.Sorted.品名", true);
        bag.Write("ColumnLayout.Width.备注", 150);
        grid.Layout().Read(bag);
        EXPECT_EQ(grid.ColWidth(Name), width);
        EXPECT_EQ(grid.ColWidth(Remark), 150);
        EXPECT_EQ(hidden(), Cols{});
        EXPECT_EQ(grid.FrozenCols(), 0);
    }
    bag.Write("ColumnLayout.Frozen", 2);
    grid.Layout().Read(bag);
    EXPECT_EQ(grid.FrozenCols(), 0);
}

TEST_F(KeptLayout, NeverHidesAllColumns) {
    for (const char* name : {"货号", "品名", "数量", "备注"})
        bag.Write("ColumnLayout.Hidden." + std::string(name), true);
    bag.Write("ColumnLayout.Width.品名", 2345);
    grid.Layout().Read(bag);
    EXPECT_EQ(hidden(), Cols{});
    EXPECT_EQ(grid.ColWidth(Name), 2345);
}

TEST_F(KeptLayout, DoesNotHideRowNumbersOrShowWhatTheHostHides) {
    grid.ColHidden(Remark, true);
    bag.Write("ColumnLayout.Hidden.行号", true);
    bag.Write("ColumnLayout.Hidden.备注", false);
    grid.Layout().Read(bag);
    EXPECT_EQ(hidden(), (Cols{Remark}));
    bag.Write("ColumnLayout.Hidden.备注", true);
    grid.Layout().Read(bag);
    EXPECT_FALSE(grid.CanRun(Command::ShowColumns));
}

/// Fails for the names that hold a text.
class DamagedBag : public MemoryBag {
  public:
    std::string damaged;
    Variant Read(std::string_view name, const Variant& fallback) override {
        if (name.find(damaged) != std::string_view::npos) throw std::runtime_error("damaged");
        return MemoryBag::Read(name, fallback);
    }
    using MemoryBag::Write;
};

TEST_F(KeptLayout, ReadsWhatIsLeftOfADamagedBag) {
    DamagedBag damaged;
    damaged.Write("ColumnLayout.Width.品名", 2345);
    damaged.Write("ColumnLayout.Width.备注", 3456);
    damaged.Write("ColumnLayout.Frozen", "货号");
    damaged.damaged = "品名";
    const std::int32_t width = grid.ColWidth(Name);
    grid.Layout().Read(damaged);
    EXPECT_EQ(grid.ColWidth(Name), width);
    EXPECT_EQ(grid.ColWidth(Remark), 3456);
    EXPECT_EQ(grid.FrozenCols(), 1);
    damaged.damaged = "";
    grid.Layout().Read(damaged);
    EXPECT_EQ(grid.ColWidth(Remark), 3456);
}

TEST_F(KeptLayout, KeepsAWidthThatIsTooLargeOrTooSmallAsNearAsItMay) {
    desk.dragColumn(Name, 60);
    desk.dragColumn(Remark, 90'000);
    grid.Layout().Write(bag);
    NextRun next(Same);
    next.grid.Layout().Read(bag);
    EXPECT_EQ(next.grid.ColWidth(Name), ColumnLayout::Narrowest);
    EXPECT_EQ(next.grid.ColWidth(Remark), ColumnLayout::Widest);
}

TEST_F(KeptLayout, IsTheNewDesignWhereTheHostPutsAWidth) {
    desk.dragColumn(Name, 2345);
    grid.ColWidth(Name, 1111);
    grid.FrozenCols(2);
    grid.Layout().Write(bag);
    EXPECT_EQ(bag.find("ColumnLayout.Width.品名")->toInt32(), 0);
    EXPECT_TRUE(bag.find("ColumnLayout.Frozen")->isEmpty());
    grid.Layout().Reset();
    EXPECT_EQ(grid.ColWidth(Name), 1111);
    EXPECT_EQ(grid.FrozenCols(), 2);
}

TEST_F(KeptLayout, IsResetToTheDesign) {
    const std::int32_t width = grid.ColWidth(Name);
    const std::string sample = grid.ColSample(Name);
    ASSERT_FALSE(sample.empty());
    grid.FrozenCols(1);
    grid.ColHidden(Remark, true);
    desk.dragColumn(Name, 2345);
    desk.dragColumn(Name, 2400);
    hide(Quantity);
    freezeAt(Name);
    changes = 0;
    grid.Layout().Reset();
    EXPECT_EQ(grid.ColWidth(Name), width);
    EXPECT_EQ(grid.ColSample(Name), sample);
    EXPECT_EQ(hidden(), (Cols{Remark}));
    EXPECT_EQ(grid.FrozenCols(), 1);
    EXPECT_EQ(changes, 0) << "the host's own doing";
    expectTotalsFollow();
}

TEST_F(KeptLayout, IsResetAfterBeingRead) {
    const std::int32_t width = grid.ColWidth(Name);
    bag.Write("ColumnLayout.Width.品名", 2345);
    bag.Write("ColumnLayout.Hidden.备注", true);
    bag.Write("ColumnLayout.Frozen", "货号");
    grid.Layout().Read(bag);
    EXPECT_EQ(changes, 0);
    grid.Layout().Reset();
    EXPECT_EQ(grid.ColWidth(Name), width);
    EXPECT_EQ(hidden(), Cols{});
    EXPECT_EQ(grid.FrozenCols(), 0);
}

TEST_F(KeptLayout, TellsOfWhatTheClerkChangesAlone) {
    grid.ColWidth(Name, 1111);
    grid.ColHidden(Remark, true);
    grid.FrozenCols(1);
    EXPECT_EQ(changes, 0);
    desk.dragColumn(Name, 2345);
    EXPECT_EQ(changes, 1);
    desk.dragColumn(Name, 2345);
    EXPECT_EQ(changes, 1) << "it is as wide already";
}

TEST_F(KeptLayout, CommitsWhatIsTypedAndKeepsARefusedText) {
    at(1, Name);
    desk.type("x");
    bag.Write("ColumnLayout.Hidden.品名", true);
    grid.Layout().Read(bag);
    EXPECT_EQ(text(1, Name), "x");
    EXPECT_TRUE(isAt(1, Quantity));
    EXPECT_EQ(hidden(), (Cols{Name}));
    refuseCodes();
    at(1, Code);
    desk.type("x");
    grid.Layout().Reset();
    EXPECT_EQ(desk.editor().text, "x");
}

TEST_F(KeptLayout, MayEndTheControlThatReadsIt) {
    at(1, Name);
    bag.Write("ColumnLayout.Hidden.品名", true);
    grid.RowColChange.connect([this] { desk.remove(grid); });
    grid.Layout().Read(bag);
    SUCCEED();
}

// --- Any layout, any change of the columns.

/// What there is to be kept of a column.
struct Look {
    std::int32_t width = 0;  // 0 as designed
    bool hidden = false;
    friend bool operator==(const Look&, const Look&) = default;
};

class AnyLayout : public ::testing::Test {
  protected:
    using Names = std::vector<std::string>;

    /// Some of the names in any order.
    Names anyNames() {
        Names names{"货号", "品名", "数量", "单价", "金额", "备注", "仓库"};
        for (std::size_t i = names.size(); i > 1; --i) std::swap(names[i - 1], names[pick(i)]);
        names.resize(2 + pick(names.size() - 1));
        return names;
    }
    std::size_t pick(std::size_t count) {
        return static_cast<std::size_t>(random_.between(0, static_cast<std::int64_t>(count) - 1));
    }

    struct Run {
        explicit Run(const Names& some) : names(some) {
            grid.Cols(static_cast<std::int32_t>(names.size()) + 1);
            for (std::size_t i = 0; i < names.size(); ++i)
                grid.VsCtrl(static_cast<std::int16_t>(i + 1))->sName(names[i]);
            grid.ReDraw(true);
        }
        std::int32_t place(const std::string& name) const {
            const auto found = std::find(names.begin(), names.end(), name);
            return found == names.end() ? -1 : static_cast<std::int32_t>(found - names.begin()) + 1;
        }
        std::map<std::string, Look> looks() const {
            std::map<std::string, Look> all;
            for (const std::string& name : names) {
                const std::int32_t width = grid.ColWidth(place(name));
                all[name] = {width == CellGrid::DefaultColWidth ? 0 : width, grid.ColHidden(place(name))};
            }
            return all;
        }
        std::string frozen() const {
            const auto count = static_cast<std::size_t>(grid.FrozenCols());
            return count == 0 ? std::string() : names[count - 1];
        }
        Names names;
        headless::Desk desk;
        kxGrid& grid = desk.place();
    };
    void change(Run& run) {
        const auto col = static_cast<std::int32_t>(1 + pick(run.names.size()));
        run.grid.Grid().Select(1, col);
        switch (pick(4)) {
            case 0:
                return static_cast<void>(
                    run.desk.dragColumn(col, static_cast<std::int32_t>(150 + pick(5000))));
            case 1:
                return static_cast<void>(run.desk.run(Command::HideColumn));
            case 2:
                return static_cast<void>(run.desk.run(Command::ShowColumns));
            default:
                return static_cast<void>(run.desk.run(Command::Freeze));
        }
    }

    /// As they shall be when what was kept has been read.
    static std::map<std::string, Look> expected(const std::map<std::string, Look>& present,
                                                const std::map<std::string, Look>& kept) {
        std::map<std::string, Look> all = present;
        bool some = false;
        for (auto& [name, look] : all) {
            if (kept.contains(name)) look = kept.at(name);
            some = some || !look.hidden;
        }
        for (auto& [name, look] : all)
            if (!some) look.hidden = present.at(name).hidden;
        return all;
    }
    void run();

    kit::Random random_{20};
};

TEST_F(AnyLayout, ComesBackAsFarAsTheColumnsAreThere) {
    for (int round = 0; round < 150 && !HasFailure(); ++round) run();
}

void AnyLayout::run() {
    Run before(anyNames());
    for (std::size_t i = pick(12); i > 0; --i) change(before);
    MemoryBag bag;
    before.grid.Layout().Write(bag);
    const auto kept = before.looks();

    Run after(anyNames());
    for (std::size_t i = pick(6); i > 0; --i) change(after);
    std::string frozen = after.frozen();
    const auto wanted = expected(after.looks(), kept);
    after.grid.Layout().Read(bag);
    EXPECT_EQ(after.looks(), wanted);

    if (before.frozen().empty())
        frozen.clear();
    else if (after.place(before.frozen()) >= 0)
        frozen = before.frozen();
    EXPECT_EQ(after.frozen(), frozen);

    after.grid.Layout().Reset();
    for (const auto& [name, look] : after.looks()) EXPECT_EQ(look, Look{}) << name;
    EXPECT_EQ(after.frozen(), "");
}
}  // namespace
}  // namespace kxVsGrid::testing
