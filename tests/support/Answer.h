#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <stdexcept>

namespace prismo {

/// Waits for the value passed to a completion, which may run on any thread.
template <typename T>
class Answer {
  public:
    /// The completion to pass on. It may be called only once.
    std::function<void(T)> completion() {
        return [promise = promise_](T value) { promise->set_value(value); };
    }
    bool isThere() const { return future_.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }
    /// Waits for the value; throws if none arrives within 60 seconds.
    T get() {
        if (future_.wait_for(std::chrono::seconds(60)) != std::future_status::ready)
            throw std::runtime_error("no answer");
        return future_.get();
    }

  private:
    std::shared_ptr<std::promise<T>> promise_ = std::make_shared<std::promise<T>>();
    std::future<T> future_ = promise_->get_future();
};

} // namespace prismo
