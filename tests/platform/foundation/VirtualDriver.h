#pragma once

#include "platform/foundation/RunLoop.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <utility>

namespace prismo {

/// A driver whose clock moves only by waiting. Waiting for what can never come throws.
class VirtualDriver : public RunLoop::Driver {
  public:
    /// Something from outside that `wait` dispatches at `time`, as a real driver does with a descriptor.
    void arrive(RunLoop::Time time, std::function<void()> event) {
        arrivals_.emplace(time, std::move(event));
    }
    int deadlineChanges() const { return deadlineChanges_; }

    RunLoop::Time now() override { return now_; }
    void wait(std::optional<RunLoop::Time> deadline) override {
        const bool arrives = !arrivals_.empty() && (!deadline || arrivals_.begin()->first <= *deadline);
        if (std::exchange(awake_, false) && !(arrives && arrivals_.begin()->first <= now_)) return;
        if (!arrives && !deadline) throw std::logic_error("an endless wait");
        now_ = std::max(now_, arrives ? arrivals_.begin()->first : *deadline);
        if (!arrives) return;
        const auto event = std::move(arrivals_.begin()->second);
        arrivals_.erase(arrivals_.begin());
        event();
    }
    void wakeUp() override { awake_ = true; }
    void deadlineChanged() override { ++deadlineChanges_; }

  private:
    RunLoop::Time now_{0};
    bool awake_ = false;
    int deadlineChanges_ = 0;
    std::multimap<RunLoop::Time, std::function<void()>> arrivals_;
};

} // namespace prismo
