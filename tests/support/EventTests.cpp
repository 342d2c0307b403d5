// Events: who hears of them, in which order, and what a listener may do meanwhile.
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/Event.h"

namespace kxVsGrid {
namespace {

using Lines = std::vector<std::string>;

TEST(Events, ReachListenersInTheOrderOfConnectionWithEachOthersChanges) {
    Event<int, int&> event;
    event.connect([](int by, int& value) { value += by; });
    event.connect([](int by, int& value) { value *= by; });
    int value = 1;
    event(3, value);
    EXPECT_EQ(value, 12);
}

TEST(Events, AreNotHeardByAListenerThatHasEnded) {
    Event<> event;
    int heard = 0;
    Connection first = event.connect([&] { ++heard; });
    Connection copy = first;
    event();
    copy.disconnect();
    copy.disconnect();
    event();
    EXPECT_EQ(heard, 1);
    EXPECT_FALSE(first.connected());
    EXPECT_EQ(event.listeners(), 0u);
}

TEST(Events, ForgetAListenerThatEndsALaterOneMeanwhile) {
    Event<> event;
    Lines heard;
    Connection later;
    Connection own;
    own = event.connect([&] {
        heard.emplace_back("first");
        later.disconnect();
        own.disconnect();
    });
    later = event.connect([&] { heard.emplace_back("later"); });
    event();
    event();
    EXPECT_EQ(heard, Lines{"first"});
    EXPECT_EQ(event.listeners(), 0u);
}

TEST(Events, ReachAListenerThatIsConnectedMeanwhileFromTheNextTimeOn) {
    Event<> event;
    int heard = 0;
    bool connected = false;
    event.connect([&] {
        if (!std::exchange(connected, true)) event.connect([&] { ++heard; });
    });
    event();
    EXPECT_EQ(heard, 0);
    event();
    EXPECT_EQ(heard, 1);
}

TEST(Events, MayBeRaisedAgainByAListener) {
    Event<int> event;
    Lines heard;
    event.connect([&](int depth) {
        if (depth < 2) event(depth + 1);
    });
    event.connect([&](int depth) { heard.push_back(std::to_string(depth)); });
    event(0);
    EXPECT_EQ(heard, (Lines{"2", "1", "0"}));
}

TEST(Events, ReachNobodyElseWhenAListenerThrows) {
    Event<> event;
    int heard = 0;
    Connection throwing = event.connect([] { throw std::runtime_error("boom"); });
    event.connect([&] { ++heard; });
    EXPECT_THROW(event(), std::runtime_error);
    EXPECT_EQ(heard, 0);
    throwing.disconnect();
    event();
    EXPECT_EQ(heard, 1);
}

TEST(Events, ReachNobodyElseWhenAListenerDestroysTheirOwner) {
    auto owner = std::make_unique<Event<int>>();
    int heard = 0;
    const Event<int>& event = *owner;
    owner->connect([&](int depth) {
        if (depth == 0)
            event(1);
        else
            owner.reset();
    });
    owner->connect([&](int) { ++heard; });
    event(0);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(heard, 0);
}

TEST(Events, KeepAListenerThatDestroysTheirOwnerUntilItIsDone) {
    auto owner = std::make_unique<Event<>>();
    std::string after;
    const std::string text = "a text that is too long to lie in the listener itself";
    owner->connect([&owner, &after, text] {
        owner.reset();
        after = text;
    });
    (*owner)();
    EXPECT_EQ(after, text);
}

TEST(Events, ReachNobodyElseWhenAListenerEndsAll) {
    Event<> event;
    int heard = 0;
    event.connect([&] { event.disconnectAll(); });
    event.connect([&] { ++heard; });
    event();
    event();
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(event.listeners(), 0u);
}

TEST(Events, ArePassedOnFirstUntilAllEnds) {
    Event<> inner;
    Event<> outer;
    Lines heard;
    EXPECT_FALSE(inner.heard());
    inner.passOn(outer);
    outer.connect([&] { heard.emplace_back("outer"); });
    EXPECT_TRUE(inner.heard());
    inner();
    inner.connect([&] { heard.emplace_back("inner"); });
    inner();
    inner.disconnectAll();
    inner();
    EXPECT_EQ(heard, (Lines{"outer", "outer", "inner"}));
}
}  // namespace
}  // namespace kxVsGrid
