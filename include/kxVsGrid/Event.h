// An event that hosts listen to.
//
//     grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
//
// Arguments that the host may change are references. A listener that takes one of them by value could only
// change its own copy: it does not compile (what a generic listener, with `auto`, does is not looked at).
//
//     class Host {
//         kxVsGrid::ScopedConnection adding_;   // ends with the host
//     };
//
// Listeners run in the order in which they were connected and see each other's changes. A listener may end
// its own or another connection, connect new listeners (they hear the next event, not this one), raise the
// event again, or destroy the event's owner: the listeners after it are not called then. Neither are they
// when an exception leaves a listener; it reaches whoever raised the event.
//
// Cost: an event that nobody listens to copies and allocates nothing when it is raised.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace kxVsGrid {

/// One listener's tie to an event. Copies name the same tie; letting go of it does not end it.
class Connection {
  public:
    Connection() = default;
    /// The listener is not called again, from this moment on. Ending twice is harmless.
    void disconnect() {
        if (auto alive = alive_.lock()) *alive = false;
    }
    bool connected() const {
        auto alive = alive_.lock();
        return alive && *alive;
    }

  private:
    template <class...>
    friend class Event;
    explicit Connection(std::weak_ptr<bool> alive) : alive_(std::move(alive)) {}
    std::weak_ptr<bool> alive_;
};

/// A tie that ends when this goes: for listeners that refer to an object that may go before the event does.
/// It moves, and is not copied; one that another tie is moved to ends its own first.
class ScopedConnection {
  public:
    ScopedConnection() = default;
    ScopedConnection(Connection connection) : connection_(std::move(connection)) {}
    ~ScopedConnection() { disconnect(); }
    ScopedConnection(ScopedConnection&& other) noexcept : connection_(other.release()) {}
    ScopedConnection& operator=(ScopedConnection&& other) noexcept {
        if (this == &other) return *this;
        disconnect();
        connection_ = other.release();
        return *this;
    }

    void disconnect() { connection_.disconnect(); }
    bool connected() const { return connection_.connected(); }
    /// The tie, which this does not end any more.
    Connection release() { return std::exchange(connection_, {}); }

  private:
    Connection connection_;
};

namespace listening {

/// A parameter that loses what the listener writes into an argument.
template <class Arg, class Parameter>
inline constexpr bool loses =
    std::is_lvalue_reference_v<Arg> && !std::is_const_v<std::remove_reference_t<Arg>> &&
    !std::is_reference_v<Parameter>;

template <class... Types>
struct List {};

template <class... Args, class... Parameters>
constexpr bool keepsChanges(List<Args...>, List<Parameters...>) {
    if constexpr (sizeof...(Args) == sizeof...(Parameters))
        return !(loses<Args, Parameters> || ...);
    else
        return true;  // what does not match at all is for the compiler to say
}

// The parameters of what is called; nothing where it is generic.
template <class Result, class... Parameters>
List<Parameters...> parametersOf(Result (*)(Parameters...));
template <class Result, class... Parameters>
List<Parameters...> parametersOf(Result (*)(Parameters...) noexcept);
template <class Result, class Object, class... Parameters>
List<Parameters...> parametersOf(Result (Object::*)(Parameters...));
template <class Result, class Object, class... Parameters>
List<Parameters...> parametersOf(Result (Object::*)(Parameters...) noexcept);
template <class Result, class Object, class... Parameters>
List<Parameters...> parametersOf(Result (Object::*)(Parameters...) const);
template <class Result, class Object, class... Parameters>
List<Parameters...> parametersOf(Result (Object::*)(Parameters...) const noexcept);

template <class Listener, class... Args>
constexpr bool accepted() {
    if constexpr (requires { parametersOf(&Listener::operator()); })
        return keepsChanges(List<Args...>{}, decltype(parametersOf(&Listener::operator())){});
    else if constexpr (requires(Listener listener) { parametersOf(listener); })
        return keepsChanges(List<Args...>{}, decltype(parametersOf(std::declval<Listener>())){});
    else
        return true;
}
}  // namespace listening

template <class... Args>
class Event {
  public:
    /// Whether a listener takes by reference what it is there to change.
    template <class Listener>
    static constexpr bool accepts = listening::accepted<std::decay_t<Listener>, Args...>();

    /// `number` is the event's number in the control's event interface, 0 for events without one.
    explicit Event(int number = 0) : number_(number) {}
    /// A listener that is running may destroy the event's owner: the state then goes when the event is done.
    ~Event() {
        if (state_ && state_->raising > 0) {
            state_->ownerGone = true;
            static_cast<void>(state_.release());
        }
    }
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    int number() const { return number_; }
    /// How many listeners are connected; those that were ended while the event runs may still be counted.
    std::size_t listeners() const { return state_ ? state_->listeners.size() : 0; }

    /// Whether raising it may reach somebody.
    bool heard() const { return state_ || (next_ && next_->state_); }

    template <class Listener>
    Connection connect(Listener&& listener) {
        static_assert(accepts<Listener>,
                      "the listener takes by value what it may change: take that argument by reference");
        return add(std::forward<Listener>(listener));
    }

    /// Whatever is raised here is raised as `next` first, which must live at least as long. Costs nothing
    /// while nobody listens there.
    void passOn(Event& next) {
        next_ = &next;
        if (heardIn_) next.showIn(*heardIn_);
    }
    /// Sets the lowest bit of `word` once raising the event may reach somebody, here or where it is passed
    /// on: for owners with several to tell, who then look at one word. It must live as long as listeners
    /// come.
    void showIn(std::uint32_t& word) {
        heardIn_ = &word;
        if (heard()) word |= 1U;
    }
    /// Ends every listener, and the passing on.
    void disconnectAll() {
        next_ = nullptr;
        if (!state_) return;
        for (const auto& slot : state_->listeners) *slot->alive = false;
    }

    /// Calls the listeners; what the control does, and what a test may do in its place.
    void operator()(Args... args) const {
        if (state_)
            raise(args...);
        else if (next_ && next_->state_)
            next_->raise(args...);
    }

  private:
    Connection add(std::function<void(Args...)> listener) {
        if (!state_) state_ = std::make_unique<State>();
        auto slot = std::make_unique<Slot>(std::move(listener));
        Connection connection{slot->alive};
        state_->listeners.push_back(std::move(slot));
        if (heardIn_) *heardIn_ |= 1U;
        return connection;
    }

    struct Slot {
        explicit Slot(std::function<void(Args...)> listener)
            : call(std::move(listener)), alive(std::make_shared<bool>(true)) {}
        std::function<void(Args...)> call;
        std::shared_ptr<bool> alive;
    };
    struct State {
        std::vector<std::unique_ptr<Slot>> listeners;
        int raising = 0;
        bool ownerGone = false;
    };

    /// Keeps the state while listeners run. Not shared ownership: its count is atomic, and a million writes
    /// raise a million events.
    class Raising {
      public:
        explicit Raising(State* state) : state_(state) { ++state_->raising; }
        ~Raising() {
            if (--state_->raising > 0) return;
            if (state_->ownerGone)
                std::unique_ptr<State>(state_).reset();
            else
                forgetEnded(state_->listeners);
        }
        Raising(const Raising&) = delete;
        Raising& operator=(const Raising&) = delete;
        void call(std::size_t count, Args&... args) const {
            for (std::size_t i = 0; i < count && !state_->ownerGone; ++i) {
                Slot& slot = *state_->listeners[i];
                if (*slot.alive) slot.call(args...);
            }
        }

      private:
        State* state_;
    };

    void raise(Args&... args) const;

    static void forgetEnded(std::vector<std::unique_ptr<Slot>>& listeners) {
        for (const auto& slot : listeners) {
            if (*slot->alive) continue;
            std::erase_if(listeners, [](auto& ended) { return !*ended->alive; });
            return;
        }
    }

    std::unique_ptr<State> state_;
    const Event* next_ = nullptr;
    std::uint32_t* heardIn_ = nullptr;
    int number_;
};

// Apart from the class, so that an event that nobody listens to costs those who raise it no more than a look.
template <class... Args>
void Event<Args...>::raise(Args&... args) const {
    const Raising raising(state_.get());
    const std::size_t count = listeners();
    if (next_ && next_->state_) next_->raise(args...);
    raising.call(count, args...);
}
}  // namespace kxVsGrid
