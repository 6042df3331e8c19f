#pragma once

#include "platform/foundation/RunLoop.h"

#include <functional>
#include <memory>

namespace prismo {

/// A run loop's driver that also waits for this process's descriptors. A host with its own event loop
/// provides one that waits there.
class DescriptorDriver : public RunLoop::Driver {
  public:
    /// Calls `readable` from `wait` whenever `fd` is readable, at its end, or has failed. Replaces an earlier
    /// function for the same descriptor. `readable` may run the loop, watch and unwatch. Descriptors that
    /// became ready together are dispatched once each, in the order in which they were watched, even by a
    /// nested run.
    virtual void watch(int fd, std::function<void()> readable) = 0;
    /// From now on calls nothing for `fd`, not even for what has already arrived. Call this before closing
    /// it.
    virtual void unwatch(int fd) = 0;
    /// While the returned object lives, another thread works on something that the loop waits for. A clock
    /// that advances only by waiting stands still, and a wait ends only when something arrives. Null for
    /// other clocks. Callable from any thread. The driver must outlive the object.
    virtual std::shared_ptr<void> holdClock() { return nullptr; }
};

} // namespace prismo
