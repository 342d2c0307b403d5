// Listeners of the stream that come, go and are destroyed while they are told.
#include <memory>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

/// Goes, or takes the other one away, the first time it hears of anything.
struct LeavingListener : ChangeListener {
    explicit LeavingListener(CellGrid& told) : grid(told) {}
    ~LeavingListener() override { grid.RemoveListener(*this); }
    void hear() noexcept {
        ++heard;
        if (goes) std::exchange(goes, nullptr)->reset();
    }
    void written(std::int32_t, std::int32_t, CellPart, std::string_view, std::string_view) noexcept override {
        hear();
    }
    void added(std::int32_t, std::int32_t) noexcept override { hear(); }
    void removing(std::int32_t, std::int32_t) noexcept override { hear(); }
    void cleared(std::int32_t, std::int32_t) noexcept override { hear(); }
    void stepOpened(std::string_view, Cause) noexcept override { hear(); }
    void stepClosed(std::string_view, Cause) noexcept override { hear(); }
    CellGrid& grid;
    std::unique_ptr<LeavingListener>* goes = nullptr;
    int heard = 0;
};

TEST(ListenerThatGoes, LeavesTheHistoryWhole) {
    for (int who = 0; who < 3; ++who)
        for (int when = 0; when < 4; ++when) {
            SCOPED_TRACE(std::to_string(who) + " at " + std::to_string(when));
            headless::Desk desk;
            kxGrid& grid = desk.place();
            grid.ReDraw(true);
            {
                const auto step = grid.Step("first");
                grid.SetCell(1, 1, "first", "tag");
            }
            std::unique_ptr<LeavingListener> all[3];
            for (auto& one : all) {
                one = std::make_unique<LeavingListener>(grid.Grid());
                grid.Grid().AddListener(*one);
            }
            // The first one takes itself, the next or the last one away.
            const auto leave = [&] {
                if (all[0]) all[0]->goes = &all[who];
            };
            if (when == 0) leave();
            {
                const auto step = grid.Step("second");
                if (when == 1) leave();
                grid.SetCell(1, 1, "second", "other");
                grid.Grid().RemoveRow(2);
                grid.Grid().InsertRow(3);
                if (when == 2) leave();
                grid.Grid().ClearText(1, 1);
            }
            if (when == 3) leave();
            EXPECT_TRUE(grid.History().Undo());
            EXPECT_EQ(all[who], nullptr);
            EXPECT_EQ(grid.Grid().Text(1, 1), "first");
            EXPECT_EQ(grid.Grid().Data(1, 1), "tag");
            EXPECT_TRUE(grid.History().Undo());
            EXPECT_EQ(grid.Grid().Text(1, 1), "");
        }
}
}  // namespace
}  // namespace kxVsGrid::testing
