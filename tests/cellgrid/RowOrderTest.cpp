// The row order against a plain vector of handles.
#include "cellgrid/store/RowOrder.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "kit/AnyOrder.h"
#include "kit/Dice.h"

namespace kxVsGrid::cellgrid {
namespace {

/// The slow, obvious one.
class RowOrderTwin {
  public:
    std::vector<RowHandle> handles;

    void insert(std::int32_t row, std::int32_t n) {
        handles.insert(handles.begin() + row, static_cast<std::size_t>(n), NoHandle);
    }
    std::multiset<RowHandle> remove(std::int32_t row, std::int32_t n) {
        std::multiset<RowHandle> freed(handles.begin() + row, handles.begin() + row + n);
        handles.erase(handles.begin() + row, handles.begin() + row + n);
        freed.erase(NoHandle);
        return freed;
    }
};

class RandomRowOrder : public ::testing::Test {
  protected:
    void insert(std::int32_t largest) {
        const std::int32_t row = dice.between(0, order.rows());
        const std::int32_t n = dice.between(1, dice.oneIn(10) ? largest : 3);
        order.insert(row, n);
        twin.insert(row, n);
    }
    void remove(std::int32_t largest) {
        if (order.rows() == 0) return;
        const std::int32_t row = dice.index(order.rows());
        const std::int32_t n = std::min(order.rows() - row, dice.between(1, dice.oneIn(10) ? largest : 3));
        std::multiset<RowHandle> freed;
        order.remove(row, n, [&](RowHandle handle) { freed.insert(handle); });
        ASSERT_EQ(freed, twin.remove(row, n));
    }
    void reorder() {
        const kit::AnyOrder any(dice, 0, order.rows());
        any.apply(twin.handles);
        order.reorder(order.prepareReorder(any.first, any.from));
    }
    void write() {
        if (order.rows() == 0) return;
        std::int32_t row = dice.index(order.rows());
        for (std::int32_t n = dice.between(1, dice.oneIn(20) ? 300 : 4); n > 0 && row < order.rows();
             --n, ++row) {
            RowHandle& known = twin.handles[static_cast<std::size_t>(row)];
            const RowHandle given = order.obtain(row);
            if (known == NoHandle) {
                ASSERT_TRUE(std::find(twin.handles.begin(), twin.handles.end(), given) == twin.handles.end())
                    << "the handle " << given << " is in use";
                known = given;
            }
            ASSERT_EQ(given, known);
        }
    }
    void compareOne() {
        if (order.rows() == 0) return;
        const std::int32_t row = dice.index(order.rows());
        ASSERT_EQ(order.handle(row), twin.handles[static_cast<std::size_t>(row)]) << "row " << row;
    }
    void compareAll() {
        ASSERT_EQ(order.rows(), static_cast<std::int32_t>(twin.handles.size()));
        std::vector<std::pair<std::int32_t, RowHandle>> expected;
        for (std::size_t row = 0; row < twin.handles.size(); ++row) {
            ASSERT_EQ(order.handle(static_cast<std::int32_t>(row)), twin.handles[row]) << "row " << row;
            if (twin.handles[row] != NoHandle) expected.emplace_back(row, twin.handles[row]);
        }
        std::vector<std::pair<std::int32_t, RowHandle>> visited;
        order.forEach(0, order.rows(), [&](std::int32_t row, RowHandle h) { visited.emplace_back(row, h); });
        ASSERT_EQ(visited, expected);
        ASSERT_EQ(order.written(), static_cast<std::int32_t>(expected.size()));
    }

    kit::Dice dice;
    RowOrder order;
    RowOrderTwin twin;
};

TEST_F(RandomRowOrder, AgreesWithAPlainVectorOfHandles) {
    for (int operation = 0; operation < 100'000; ++operation) {
        SCOPED_TRACE("operation " + std::to_string(operation));
        const std::int32_t many = order.rows() > 6000 ? 4000 : 400;
        switch (dice.between(0, 6)) {
            case 0:
                insert(order.rows() > 6000 ? 3 : 2500);
                break;
            case 1:
                remove(many);
                break;
            case 2:
                reorder();
                break;
            default:
                write();
        }
        compareOne();
        if (operation % 500 == 0) compareAll();
        if (HasFatalFailure()) return;
    }
    compareAll();
}

TEST(RowOrder, GivesAHundredMillionRowsNothingUntilTheyAreWritten) {
    RowOrder order;
    order.insert(0, 100'000'000);
    EXPECT_EQ(order.written(), 0);
    EXPECT_EQ(order.handle(99'999'999), NoHandle);
    EXPECT_EQ(order.obtain(50'000'000), 0U);
    EXPECT_EQ(order.handle(50'000'000), 0U);
    EXPECT_EQ(order.handle(50'000'001), NoHandle);
    EXPECT_EQ(order.written(), 1);
}

TEST(RowOrder, UsesTheHandlesOfRemovedRowsAgain) {
    RowOrder order;
    order.insert(0, 10);
    for (std::int32_t row = 0; row < 10; ++row) order.obtain(row);
    order.remove(3, 1, [](RowHandle) {});
    order.insert(0, 1);
    EXPECT_EQ(order.obtain(0), 3U);
}

TEST(RowOrder, StartsAnewOnceNoRowHasAHandle) {
    RowOrder order;
    order.insert(0, 10);
    order.obtain(4);
    order.obtain(5);
    order.remove(0, 10, [](RowHandle) {});
    order.insert(0, 1);
    EXPECT_EQ(order.obtain(0), 0U);
}
}  // namespace
}  // namespace kxVsGrid::cellgrid
