#pragma once

#include "platform/foundation/Observable.h"

#include <functional>
#include <QObject>
#include <vector>

namespace prismo::settings {

/// Follows framework objects and coalesces their changes: however many arrive at once, `look` runs once, on
/// the next turn of the event loop, and so outside the code that made the changes.
class Refresh : public QObject {
  public:
    explicit Refresh(std::function<void()> look) : look_(std::move(look)) {}

    template <typename Object>
    void follow(Object& object) {
        followed_.push_back(object.observe([this] { later(); }));
    }
    void followNothing() { followed_.clear(); }
    void later();

  private:
    std::function<void()> look_;
    std::vector<Subscription> followed_;
    bool isDue_ = false;
};

} // namespace prismo::settings
