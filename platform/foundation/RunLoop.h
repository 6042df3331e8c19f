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

/// The one thread's loop of timers, queued blocks and whatever its driver waits for.
///
/// A run may be nested in another (a callback may call `run`); the inner run handles everything that the
/// outer one would. Apart from `now`, `perform` and `wakeUp`, everything belongs to the thread that runs the
/// loop.
class RunLoop {
  public:
    /// Time since a fixed start that never jumps.
    using Time = std::chrono::nanoseconds;

    /// Where the loop gets its time from and how it waits.
    class Driver {
      public:
        virtual ~Driver() = default;
        /// Callable from every thread.
        virtual Time now() = 0;
        /// Dispatches what has arrived; where nothing has, waits for it, until `deadline` (for ever without
        /// one) or until `wakeUp`. May return early, and returns at once for a deadline that has passed.
        virtual void wait(std::optional<Time> deadline) = 0;
        /// Ends a `wait` of the loop's thread, or the next one. Callable from every thread.
        virtual void wakeUp() = 0;
        /// The earliest timer has changed, for a driver whose own loop is the outermost one.
        virtual void deadlineChanged() {}
    };

    explicit RunLoop(Driver& driver) : driver_(driver) {}

    Time now() const { return driver_.now(); }

    /// Calls `block` once, `delay` from now, on a turn of this loop. Timers of one deadline are called in the
    /// order in which they were made.
    void schedule(Seconds delay, std::function<void()> block);
    /// Calls `block` on the next turn, after the blocks queued before it. Callable from every thread.
    void perform(std::function<void()> block);

    /// Runs for that long: returns when the time is up and not before, having called what fell due.
    void run(Seconds duration);
    /// Runs until `finished` says so, which is asked before each turn.
    void runUntil(const std::function<bool()>& finished);
    /// Waits, no longer than `deadline`, until something arrives or falls due, and calls it.
    void turn(std::optional<Time> deadline);
    /// Calls what is due and returns.
    void callDue();

    /// When the earliest timer falls due (now where a block is queued), or nothing.
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
