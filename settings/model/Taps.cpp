#include "settings/model/Taps.h"

#include <utility>

namespace prismo::settings {

void Taps::add(std::function<void()> act) {
    acts_.push_back(std::move(act));
    QMetaObject::invokeMethod(this, &Taps::playNext, Qt::QueuedConnection);
}

void Taps::playNext() {
    if (isPlaying_ || acts_.empty()) return;
    isPlaying_ = true;
    const auto act = std::move(acts_.front());
    acts_.pop_front();
    act();
    isPlaying_ = false;
    if (!acts_.empty()) QMetaObject::invokeMethod(this, &Taps::playNext, Qt::QueuedConnection);
}

} // namespace prismo::settings
