// A listener that ends what it hears from, whatever is going on: what brings its event about, on whatever a test
// works with.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <ostream>

#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::kit {

using Work = std::function<void()>;

/// An event of a `Source` in which a listener ends it, and what brings the event about.
template <class Source, class... World>
struct End {
    const char* name;
    std::function<void(Source&, Work)> listen;
    std::function<void(World&...)> act;
    std::function<void(World&...)> before = {};

    void prepare(World&... world) const {
        if (before) before(world...);
    }
    friend std::ostream& operator<<(std::ostream& out, const End& end) { return out << end.name; }
};

template <class... Args>
std::function<void(kxGrid&, Work)> to(Event<Args...> GridEvents::*event) {
    return [event](kxGrid& grid, Work work) { (grid.*event).connect([work](Args...) { work(); }); };
}
template <class... Args>
std::function<void(CellGrid&, Work)> to(Event<Args...> CellGrid::*event) {
    return [event](CellGrid& grid, Work work) { (grid.*event).connect([work](Args...) { work(); }); };
}
/// An event of the engine that the control works with.
template <class... Args>
std::function<void(kxGrid&, Work)> toEngine(Event<Args...> CellGrid::*event) {
    return [event](kxGrid& grid, Work work) { to(event)(grid.Grid(), work); };
}
/// The host consents, then ends the control.
inline std::function<void(kxGrid&, Work)> consenting(Event<std::int32_t, bool&> GridEvents::*event) {
    return [event](kxGrid& grid, Work work) {
        (grid.*event).connect([work](std::int32_t, bool& consent) {
            consent = true;
            work();
        });
    };
}

/// Another control of the desk has come to no harm.
inline void expectKeyedAsEver(headless::Desk& desk, kxGrid& stays) {
    desk.use(stays);
    desk.focusGrid();
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(stays.Grid().Text(1, 1), "x");
}
}  // namespace kxVsGrid::kit
