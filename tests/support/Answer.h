#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <stdexcept>

namespace prismo {

/// What a completion is called with, and on whatever thread.
template <typename T>
class Answer {
  public:
    /// May be called once.
    std::function<void(T)> completion() {
        return [promise = promise_](T value) { promise->set_value(value); };
    }
    bool isThere() const { return future_.wait_for(std::chrono::seconds(0)) == std::future_status::ready; }
    /// Throws where none comes in time.
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
