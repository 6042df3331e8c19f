#pragma once

#include "platform/foundation/Device.h"

#include <mutex>
#include <utility>
#include <vector>

namespace prismo {

/// Collects a device's effects for as long as it lives; the device outlives it.
class EffectLog {
  public:
    explicit EffectLog(Device& device) : device_(device) {
        device_.setEffectObserver([this](const Effect& effect) {
            const std::scoped_lock lock(mutex_); // effects come from every thread
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
