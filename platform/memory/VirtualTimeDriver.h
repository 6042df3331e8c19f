#pragma once

#include "platform/foundation/RunLoop.h"

#include <atomic>

namespace prismo {

/// Time that moves only by waiting for it: a wait for a deadline is over at once, with the clock there. A
/// wait without a deadline, while nothing was woken, throws std::logic_error, as it would never end.
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
