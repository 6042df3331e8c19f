#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace prismo {

/// Keeps an observer registered for as long as it lives.
class Subscription {
  public:
    Subscription() = default;

  private:
    friend class Observable;
    explicit Subscription(std::shared_ptr<std::function<void()>> observer) : observer_(std::move(observer)) {}
    std::shared_ptr<std::function<void()>> observer_;
};

/// State that a host draws. Observers are called after each change, on the thread that made it, and look up
/// for themselves what is new.
class Observable {
  public:
    [[nodiscard]] Subscription observe(std::function<void()> observer) {
        auto held = std::make_shared<std::function<void()>>(std::move(observer));
        observers_.push_back(held);
        return Subscription(std::move(held));
    }

  protected:
    Observable() = default;
    ~Observable() = default;

    void changed() {
        std::erase_if(observers_, [](const auto& observer) { return observer.expired(); });
        // On a copy: an observer may subscribe another, or end its own subscription.
        for (const auto& observer : std::vector(observers_))
            if (const auto held = observer.lock()) (*held)();
    }

    /// Assigns and tells, where the value differs.
    template <typename Field>
    void assign(Field& field, Field value) {
        if (field == value) return;
        field = std::move(value);
        changed();
    }
    /// The same for a link that keeps nothing alive. An object that has gone is not the absent one.
    template <typename Object>
    void assign(std::weak_ptr<Object>& link, const std::shared_ptr<Object>& object) {
        if (!link.owner_before(object) && !object.owner_before(link)) return;
        link = object;
        changed();
    }

  private:
    std::vector<std::weak_ptr<std::function<void()>>> observers_;
};

} // namespace prismo
