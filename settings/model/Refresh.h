#pragma once

#include "platform/foundation/Observable.h"

#include <functional>
#include <QObject>
#include <vector>

namespace prismo::settings {

/// Follows framework objects: however many changes there are in one go, it looks once, on the next turn of
/// the event loop and so outside of whatever made them.
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
