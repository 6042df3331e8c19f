#pragma once

#include "platform/local/descriptors/DescriptorDriver.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace prismo {

/// The run loop's driver where nothing but this process' own descriptors is waited for.
class PollDriver : public DescriptorDriver {
  public:
    enum class Clock {
        /// The machine's, which stands still while it sleeps.
        monotonic,
        /// One that moves only by waiting: a wait for a deadline is over at once, with the clock there,
        /// unless a descriptor is ready or the clock is held.
        virtualTime,
    };

    /// Throws std::system_error where the process has no descriptor left.
    explicit PollDriver(Clock clock = Clock::monotonic);

    RunLoop::Time now() override;
    /// A signal ends it early.
    void wait(std::optional<RunLoop::Time> deadline) override;
    /// Callable from signal handlers too.
    void wakeUp() override;

    void watch(int fd, std::function<void()> readable) override;
    void unwatch(int fd) override;
    std::shared_ptr<void> holdClock() override;

  private:
    struct Watch {
        int fd;
        std::uint64_t id;
        std::shared_ptr<const std::function<void()>> readable;
    };
    void poll(std::optional<RunLoop::Time> deadline);
    void dispatch();

    Clock clock_;
    std::atomic<RunLoop::Time> virtualNow_{};
    std::atomic<int> holds_ = 0;
    UniqueFd wakeUps_;
    std::vector<Watch> watches_;
    std::uint64_t watchesMade_ = 0;
    /// The ids of watches that are ready and not yet dispatched. A number would not do: it may be closed and
    /// used again in between.
    std::deque<std::uint64_t> ready_;
};

} // namespace prismo
