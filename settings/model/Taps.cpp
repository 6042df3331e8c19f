#include "settings/model/Taps.h"

#include "platform/foundation/Trace.h"

#include <utility>

namespace prismo::settings {

void Taps::add(const char* from, std::function<void()> act) {
    const Trace::Step step(
        "tap", [] { return "queued"; }, from);
    taps_.push_back({from, std::move(act)});
    QMetaObject::invokeMethod(this, &Taps::playNext, Qt::QueuedConnection);
}

void Taps::playNext() {
    if (isPlaying_ || taps_.empty()) return;
    isPlaying_ = true;
    const auto tap = std::move(taps_.front());
    taps_.pop_front();
    {
        const Trace::Step step(
            "tap", [] { return "played"; }, tap.from);
        tap.act();
    }
    isPlaying_ = false;
    if (!taps_.empty()) QMetaObject::invokeMethod(this, &Taps::playNext, Qt::QueuedConnection);
}

} // namespace prismo::settings
