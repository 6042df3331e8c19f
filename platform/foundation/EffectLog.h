#pragma once

#include "platform/foundation/Device.h"

#include <mutex>
#include <utility>
#include <vector>

namespace prismo {

/// Collects the effects of a device during its own lifetime. The device must outlive it.
class EffectLog {
  public:
    explicit EffectLog(Device& device) : device_(device) {
        device_.setEffectObserver([this](const Effect& effect) {
            const std::scoped_lock lock(mutex_); // effects come from any thread
            effects_.push_back(effect);
        });
    }
    ~EffectLog() { device_.setEffectObserver(nullptr); }
    EffectLog(const EffectLog&) = delete;
    EffectLog& operator=(const EffectLog&) = delete;

    /// The effects since the last `take`.
    std::vector<Effect> effects() const {
        const std::scoped_lock lock(mutex_);
        return effects_;
    }
    std::vector<Effect> take() {
        const std::scoped_lock lock(mutex_);
        return std::exchange(effects_, {});
    }

  private:
    Device& device_;
    mutable std::mutex mutex_;
    std::vector<Effect> effects_;
};

} // namespace prismo
