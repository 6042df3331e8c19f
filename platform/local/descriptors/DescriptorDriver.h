#pragma once

#include "platform/foundation/RunLoop.h"

#include <functional>
#include <memory>

namespace prismo {

/// The driver of a run loop that waits for this process' descriptors too. A host with an event loop of its
/// own brings one that waits in that.
class DescriptorDriver : public RunLoop::Driver {
  public:
    /// Calls `readable` from `wait` whenever `fd` can be read, is at its end or has failed; it takes the
    /// place of an earlier one for the same descriptor. It may run the loop, watch and unwatch. What arrived
    /// together is dispatched in the order of watching, each once, be it by a nested run.
    virtual void watch(int fd, std::function<void()> readable) = 0;
    /// From now on nothing is called for `fd`, not even for what has arrived. Comes before its closing.
    virtual void unwatch(int fd) = 0;
    /// As long as one of these lives, another thread is at work on what the loop waits for: a clock that
    /// moves only by waiting stands still, and a wait ends by what arrives. Null for other clocks. Callable
    /// from every thread; the driver outlives it.
    virtual std::shared_ptr<void> holdClock() { return nullptr; }
};

} // namespace prismo
