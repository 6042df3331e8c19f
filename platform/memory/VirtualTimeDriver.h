#pragma once

#include "platform/foundation/RunLoop.h"

#include <atomic>

namespace prismo {

/// Time that advances only by waiting: a wait for a deadline ends at once, with the clock at the deadline. A
/// wait without a deadline and without a pending wake-up would never end, so it throws std::logic_error.
class VirtualTimeDriver : public RunLoop::Driver {
  public:
    RunLoop::Time now() override { return now_; }
    void wait(std::optional<RunLoop::Time> deadline) override;
    void wakeUp() override { woken_ = true; }

  private:
    std::atomic<RunLoop::Time> now_{};
    std::atomic<bool> woken_ = false;
};

} // namespace prismo
