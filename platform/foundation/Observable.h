#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace prismo {

/// Keeps an observer registered during its own lifetime.
class Subscription {
  public:
    Subscription() = default;

  private:
    friend class Observable;
    explicit Subscription(std::shared_ptr<std::function<void()>> observer) : observer_(std::move(observer)) {}
    std::shared_ptr<std::function<void()>> observer_;
};

/// State that a host draws. Calls its observers after each change, on the thread that made the change. They
/// look up what is new.
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
        // Iterate over a copy: an observer may add a subscription or end its own.
        for (const auto& observer : std::vector(observers_))
            if (const auto held = observer.lock()) (*held)();
    }

    /// Assigns the value and notifies the observers, if it differs.
    template <typename Field>
    void assign(Field& field, Field value) {
        if (field == value) return;
        field = std::move(value);
        changed();
    }
    /// The same for a weak reference. A released object is not the same as no object.
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
