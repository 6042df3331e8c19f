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

/// The run loop's driver for a host that waits only for descriptors.
class PollDriver : public DescriptorDriver {
  public:
    enum class Clock {
        /// The machine's clock, which stops while the machine sleeps.
        monotonic,
        /// A clock that advances only by waiting: a wait for a deadline ends at once, with the clock at the
        /// deadline, unless a descriptor is ready or the clock is held.
        virtualTime,
    };

    /// Throws ProblemError if the process has no descriptor left.
    explicit PollDriver(Clock clock = Clock::monotonic);

    RunLoop::Time now() override;
    /// A signal ends the wait early.
    void wait(std::optional<RunLoop::Time> deadline) override;
    /// Also callable from a signal handler.
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
    /// The ids of watches that are ready and not yet dispatched. A descriptor would not do: it may be closed
    /// and its number reused in between.
    std::deque<std::uint64_t> ready_;
};

} // namespace prismo
