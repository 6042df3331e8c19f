#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <optional>

namespace prismo {

using Seconds = std::chrono::duration<double>;

/// A thread's loop of timers, queued blocks, and the events that its driver waits for.
///
/// Runs can be nested: a callback may call `run`, and the inner run handles everything that the outer one
/// would. Except for `now`, `perform` and `wakeUp`, call everything on the thread that runs the loop.
class RunLoop {
  public:
    /// Time since a fixed point. It never jumps.
    using Time = std::chrono::nanoseconds;

    /// Gives the loop its time and waits for it.
    class Driver {
      public:
        virtual ~Driver() = default;
        /// Callable from every thread.
        virtual Time now() = 0;
        /// Dispatches the events that have arrived. If there are none, waits for one until `deadline`
        /// (forever without one) or until `wakeUp`. May return early. Returns at once if the deadline has
        /// passed.
        virtual void wait(std::optional<Time> deadline) = 0;
        /// Ends the current or the next `wait` of the loop's thread. Callable from any thread.
        virtual void wakeUp() = 0;
        /// Called when the earliest timer has changed, for a driver whose own loop is the outermost one.
        virtual void deadlineChanged() {}
    };

    explicit RunLoop(Driver& driver) : driver_(driver) {}

    Time now() const { return driver_.now(); }

    /// Calls `block` once, `delay` from now, on a turn of this loop. Calls timers with the same deadline in
    /// the order in which they were made.
    void schedule(Seconds delay, std::function<void()> block);
    /// Calls `block` on the next turn, after the blocks queued before it. Callable from any thread.
    void perform(std::function<void()> block);

    /// Runs for exactly that long, and calls what falls due.
    void run(Seconds duration);
    /// Runs until `finished` returns true. Calls it before each turn.
    void runUntil(const std::function<bool()>& finished);
    /// Waits until something arrives or falls due, but no longer than `deadline`, and calls it.
    void turn(std::optional<Time> deadline);
    /// Calls what is due, without waiting.
    void callDue();

    /// When the earliest timer falls due (now if a block is queued), or nullopt.
    std::optional<Time> nextDeadline() const;

  private:
    struct Key {
        Time deadline;
        std::uint64_t order;
        auto operator<=>(const Key&) const = default;
    };

    Driver& driver_;
    std::map<Key, std::function<void()>> timers_;
    std::uint64_t timersMade_ = 0;
    mutable std::mutex blocksMutex_;
    std::deque<std::function<void()>> blocks_;
};

} // namespace prismo
