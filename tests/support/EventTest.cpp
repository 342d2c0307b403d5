// Events: who hears of them, in which order, and what a listener may do meanwhile.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
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
// --- A listener keeps what it is given to change.

void byReference(int, bool&) {}
struct ConsentingListener {
    void operator()(int, bool& consent) noexcept { consent = true; }
};
struct ForgettingListener {
    void operator()(int, bool) const noexcept {}
};

TEST(Events, RefuseAListenerThatWouldChangeACopy) {
    using Asking = Event<int, bool&>;
    static_assert(!Asking::accepts<decltype([](int, bool) {})>);
    static_assert(!Asking::accepts<decltype([](int, bool) mutable noexcept {})>);
    static_assert(!Asking::accepts<decltype([](int, int) {})>);
    static_assert(!Asking::accepts<ForgettingListener> && !Asking::accepts<void(int, bool)>);
    static_assert(!Asking::accepts<std::function<void(int, bool)>>);
    static_assert(!Event<std::string&>::accepts<decltype([](std::string) {})>);
    static_assert(Asking::accepts<decltype([](int, bool&) {})>);
    static_assert(Asking::accepts<decltype([](const int&, const bool&) {})>);
    static_assert(Asking::accepts<decltype([](auto&&...) {})>);
    static_assert(Asking::accepts<decltype([](auto, auto& consent) { consent = true; })>);
    static_assert(Asking::accepts<ConsentingListener&> && Asking::accepts<decltype(byReference)>);
    static_assert(Event<const std::string&>::accepts<decltype([](std::string) {})>);
    Asking event;
    event.connect(byReference);
    event.connect(ConsentingListener());
    bool consent = false;
    event(1, consent);
    EXPECT_TRUE(consent);
}

// --- Ties that end with their owner.

TEST(ScopedConnections, EndTheirListenerWhenTheyGo) {
    Event<> event;
    int heard = 0;
    {
        ScopedConnection tie = event.connect([&] { ++heard; });
        event();
        EXPECT_TRUE(tie.connected());
    }
    event();
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(event.listeners(), 0u);
}

TEST(ScopedConnections, MoveAndAreNotCopied) {
    static_assert(!std::is_copy_constructible_v<ScopedConnection>);
    static_assert(!std::is_copy_assignable_v<ScopedConnection>);
    Event<> event;
    Lines heard;
    std::vector<ScopedConnection> ties;
    ties.emplace_back(event.connect([&] { heard.emplace_back("a"); }));
    ties.push_back(event.connect([&] { heard.emplace_back("b"); }));
    event();
    EXPECT_EQ(heard, (Lines{"a", "b"}));
    ties[0] = std::move(ties[1]);
    EXPECT_FALSE(ties[1].connected());
    event();
    EXPECT_EQ(heard, (Lines{"a", "b", "b"})) << "the first ended when the second took its place";
    ties.clear();
    event();
    EXPECT_EQ(heard.size(), 3u);
}

TEST(ScopedConnections, LetGoOfATieThatLivesOn) {
    Event<> event;
    int heard = 0;
    Connection tie;
    {
        ScopedConnection scoped = event.connect([&] { ++heard; });
        tie = scoped.release();
    }
    event();
    EXPECT_EQ(heard, 1);
    EXPECT_TRUE(tie.connected());
}

TEST(ScopedConnections, MayOutliveTheirEventAndEndInsideIt) {
    ScopedConnection late;
    int heard = 0;
    {
        Event<> event;
        late = event.connect([&] {
            ++heard;
            late = {};
        });
        event();
        event();
        late = event.connect([] {});
    }
    EXPECT_FALSE(late.connected());
    EXPECT_EQ(heard, 1);
}
}  // namespace
}  // namespace kxVsGrid
