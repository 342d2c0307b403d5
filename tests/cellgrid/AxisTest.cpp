// The axis against a plain vector of sizes, and the runs of styles against a plain vector of values.
#include "cellgrid/Axis.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "kit/AnyOrder.h"
#include "kit/Dice.h"

namespace kxVsGrid::cellgrid {
namespace {

/// The slow, obvious one.
class AxisTwin {
  public:
    std::vector<AxisSize> sizes;
    std::int32_t minimum = 0;

    std::int32_t count() const { return static_cast<std::int32_t>(sizes.size()); }
    void insert(std::int32_t index, std::int32_t n) {
        sizes.insert(sizes.begin() + index, static_cast<std::size_t>(n), {std::max(300, minimum), false});
    }
    void remove(std::int32_t index, std::int32_t n) {
        sizes.erase(sizes.begin() + index, sizes.begin() + index + n);
    }
    void setMinimum(std::int32_t least) {
        minimum = least;
        for (AxisSize& s : sizes) s.size = std::max(s.size, least);
    }
    std::int64_t extent(std::int32_t index) const { return extentOf(sizes[static_cast<std::size_t>(index)]); }
    std::int64_t position(std::int32_t index) const {
        std::int64_t position = 0;
        for (std::int32_t i = 0; i < index; ++i) position += extent(i);
        return position;
    }
    std::int32_t indexAt(std::int64_t position) const {
        std::int64_t end = 0;
        for (std::int32_t i = 0; i < count(); ++i) {
            end += extent(i);
            if (std::max<std::int64_t>(position, 0) < end) return i;
        }
        return count();
    }
    std::int32_t firstFrom(std::int64_t position) const {
        std::int64_t begin = 0;
        for (std::int32_t i = 0; i < count(); ++i) {
            if (begin >= position && extent(i) > 0) return i;
            begin += extent(i);
        }
        return count();
    }
    std::int32_t filteredAlone(std::int32_t first, std::int32_t stop) const {
        return static_cast<std::int32_t>(
            std::count_if(sizes.begin() + first, sizes.begin() + stop,
                          [](const AxisSize& s) { return s.filtered && !s.hidden && s.size > 0; }));
    }
    std::int32_t shown(std::int32_t index, std::int32_t steps, std::int32_t way) const {
        std::int32_t found = -1;
        for (std::int32_t i = index + way; i >= 0 && i < count() && steps > 0; i += way) {
            if (extent(i) == 0) continue;
            found = i;
            --steps;
        }
        return found;
    }
};

class RandomAxis : public ::testing::Test {
  protected:
    void change() {
        switch (dice.between(0, 12)) {
            case 10:
                return filter();
            case 11:
                return filterMany();
            case 12:
                return dice.oneIn(20) ? reorder() : filterSome();
            case 0:
                return insert();
            case 1:
                return remove();
            case 2:
            case 3:
                return hide();
            case 4:
                if (dice.oneIn(200)) setMinimum();
                return;
            default:
                return setSize();
        }
    }
    void insert() {
        const std::int32_t index = dice.between(0, twin.count());
        const std::int32_t n = dice.between(1, twin.count() > 500 ? 2 : 20);
        axis.insert(index, n);
        twin.insert(index, n);
    }
    void remove() {
        if (twin.count() == 0) return;
        const std::int32_t index = dice.index(twin.count());
        const std::int32_t n = std::min(dice.between(1, twin.count() > 500 ? 300 : 10), twin.count() - index);
        axis.remove(index, n);
        twin.remove(index, n);
    }
    void hide() {
        if (twin.count() == 0) return;
        const std::int32_t index = dice.index(twin.count());
        const bool hidden = dice.oneIn(2);
        bool& known = twin.sizes[static_cast<std::size_t>(index)].hidden;
        ASSERT_EQ(axis.setHidden(index, hidden), known != hidden);
        known = hidden;
    }
    void filter() {
        if (twin.count() == 0) return;
        const std::int32_t index = dice.index(twin.count());
        const bool filtered = dice.oneIn(2);
        bool& known = twin.sizes[static_cast<std::size_t>(index)].filtered;
        ASSERT_EQ(axis.setFiltered(index, filtered), known != filtered);
        known = filtered;
    }
    void filterMany() {
        if (twin.count() == 0 || !dice.oneIn(10)) return;
        const std::int32_t first = dice.index(twin.count());
        std::vector<bool> filtered(static_cast<std::size_t>(dice.between(0, twin.count() - first)));
        bool changes = false;
        for (std::size_t i = 0; i < filtered.size(); ++i) {
            filtered[i] = dice.oneIn(2);
            bool& known = twin.sizes[static_cast<std::size_t>(first) + i].filtered;
            changes = changes || known != filtered[i];
            known = filtered[i];
        }
        ASSERT_EQ(axis.setFiltered(first, filtered), changes);
    }
    /// Elements that lie close together or far apart.
    void filterSome() {
        std::vector<std::pair<std::int32_t, bool>> some;
        bool changes = false;
        for (std::int32_t i = dice.between(0, 300); i < twin.count(); i += dice.between(1, 400)) {
            some.emplace_back(i, dice.oneIn(2));
            bool& known = twin.sizes[static_cast<std::size_t>(i)].filtered;
            changes = changes || known != some.back().second;
            known = some.back().second;
        }
        ASSERT_EQ(axis.setFiltered(some), changes);
    }
    void reorder() {
        const kit::AnyOrder order(dice, 0, twin.count());
        if (order.from.empty()) return;
        const std::vector<AxisSize> old = twin.sizes;
        for (std::size_t i = 0; i < order.from.size(); ++i)
            twin.sizes[static_cast<std::size_t>(order.first) + i] =
                old[static_cast<std::size_t>(order.from[i])];
        if (auto prepared = axis.prepareReorder(order.first, order.from)) axis.reorder(prepared);
    }
    void setSize() {
        if (twin.count() == 0) return;
        const std::int32_t index = dice.index(twin.count());
        const std::int32_t size = 15 * dice.between(0, 4);
        std::int32_t& known = twin.sizes[static_cast<std::size_t>(index)].size;
        ASSERT_EQ(axis.setSize(index, size), known != std::max(size, twin.minimum));
        known = std::max(size, twin.minimum);
    }
    void setMinimum() {
        const std::int32_t least = dice.oneIn(2) ? 0 : 25;
        axis.setMinimum(least);
        twin.setMinimum(least);
    }
    void compareOne() {
        ASSERT_EQ(axis.count(), twin.count());
        if (twin.count() == 0) return;
        const std::int32_t index = dice.index(twin.count());
        ASSERT_EQ(axis.size(index), twin.sizes[static_cast<std::size_t>(index)].size);
        ASSERT_EQ(axis.hidden(index), twin.sizes[static_cast<std::size_t>(index)].hidden);
        ASSERT_EQ(axis.filtered(index), twin.sizes[static_cast<std::size_t>(index)].filtered);
        const std::int64_t position = twin.position(index);
        ASSERT_EQ(axis.position(index), position) << index;
        ASSERT_EQ(axis.indexAt(position), twin.indexAt(position)) << position;
        const std::int64_t beside = position + dice.between(-80, 80);
        ASSERT_EQ(axis.indexAt(beside), twin.indexAt(beside)) << beside;
        ASSERT_EQ(axis.firstFrom(beside), twin.firstFrom(beside)) << beside;
        const std::int32_t steps = dice.between(1, 5);
        ASSERT_EQ(axis.shownAfter(index, steps), twin.shown(index, steps, 1)) << index;
        ASSERT_EQ(axis.shownBefore(index, steps), twin.shown(index, steps, -1)) << index;
    }
    void compareEnds() {
        ASSERT_EQ(axis.filteredAlone(0, axis.count()), twin.filteredAlone(0, twin.count()));
        const std::int32_t first = dice.between(0, twin.count());
        const std::int32_t stop = dice.between(first, twin.count());
        ASSERT_EQ(axis.filteredAlone(first, stop), twin.filteredAlone(first, stop));
        ASSERT_EQ(axis.total(), twin.position(twin.count()));
        ASSERT_EQ(axis.position(axis.count()), axis.total());
        ASSERT_EQ(axis.indexAt(axis.total()), axis.count());
        ASSERT_EQ(axis.shownAfter(-1), twin.shown(-1, 1, 1));
        ASSERT_EQ(axis.shownBefore(axis.count()), twin.shown(twin.count(), 1, -1));
        ASSERT_EQ(axis.shownBefore(0), -1);
    }

    kit::Dice dice;
    Axis axis{300};
    AxisTwin twin;
};

TEST_F(RandomAxis, AgreesWithAPlainVectorOfSizes) {
    for (int operation = 0; operation < 100'000; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        change();
        compareOne();
        if (operation % 50 == 0) compareEnds();
        if (HasFatalFailure()) return;
    }
}

TEST(Axis, FindsTheLastOfAHundredMillionRowsByItsPosition) {
    Axis axis(300);
    axis.insert(0, 100'000'000);
    EXPECT_EQ(axis.total(), 30'000'000'000);
    EXPECT_EQ(axis.indexAt(29'999'999'999), 99'999'999);
    EXPECT_EQ(axis.position(50'000'000), 15'000'000'000);
}

TEST(Axis, AnswersItsCountWhereNothingHasAnExtent) {
    Axis axis(300);
    EXPECT_EQ(axis.indexAt(-5), 0);
    EXPECT_EQ(axis.firstFrom(0), 0);
    axis.insert(0, 3);
    for (std::int32_t i = 0; i < 3; ++i) axis.setHidden(i, true);
    EXPECT_EQ(axis.indexAt(-5), 3);
    EXPECT_EQ(axis.indexAt(0), 3);
    EXPECT_EQ(axis.firstFrom(-5), 3);
    EXPECT_EQ(axis.shownAfter(-1), -1);
}

TEST(Axis, GivesNewElementsTheMinimumWhenItIsLargerThanTheDefault) {
    Axis axis(300);
    axis.setMinimum(400);
    axis.insert(0, 1);
    EXPECT_EQ(axis.size(0), 400);
}

class RandomRuns : public ::testing::Test {
  protected:
    static constexpr std::size_t Compared = 2500;

    void change() {
        const std::int32_t index = dice.index(1500);
        const std::int32_t n = dice.between(1, dice.oneIn(10) ? 700 : 3);
        const auto at = twin.begin() + index;
        switch (dice.between(0, 4)) {
            case 0:
                runs.insert(index, n);
                twin.insert(at, static_cast<std::size_t>(n), 0);
                break;
            case 1:
                runs.remove(index, n);
                twin.erase(at, at + n);
                break;
            case 2: {
                const int value = dice.between(0, 3);
                const bool differs = std::any_of(at, at + n, [value](int v) { return v != value; });
                ASSERT_EQ(runs.set(index, n, value), differs);
                std::fill_n(at, n, value);
                break;
            }
            default:
                runs.transform(index, n, [](int v) { return (v + 1) % 4; });
                for (auto value = at; value != at + n; ++value) *value = (*value + 1) % 4;
        }
        if (twin.size() < Compared) twin.resize(Compared);
    }

    kit::Dice dice;
    SparseRuns<int> runs;
    std::vector<int> twin = std::vector<int>(Compared);
};

TEST_F(RandomRuns, AgreeWithAPlainVectorOfValues) {
    for (int operation = 0; operation < 100'000; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        change();
        const std::int32_t index = dice.index(1500);
        ASSERT_EQ(runs.at(index), twin[static_cast<std::size_t>(index)]) << index;
        if (HasFatalFailure()) return;
        if (operation % 500 != 0) continue;
        for (std::size_t i = 0; i < twin.size(); ++i)
            ASSERT_EQ(runs.at(static_cast<std::int32_t>(i)), twin[i]) << i;
    }
}

TEST(SparseRuns, CostNothingOnceEverythingIsUnsetAgain) {
    SparseRuns<int> runs;
    runs.set(10, 1'000'000, 7);
    runs.set(500, 1, 8);
    EXPECT_EQ(runs.at(500), 8);
    EXPECT_EQ(runs.at(2'000'000), 0);
    runs.set(0, 1'000'010, 0);
    EXPECT_TRUE(runs.empty());
}
}  // namespace
}  // namespace kxVsGrid::cellgrid
