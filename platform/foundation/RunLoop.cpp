#include "platform/foundation/RunLoop.h"

#include <algorithm>
#include <utility>

namespace prismo {

namespace {

RunLoop::Time span(Seconds seconds) {
    // Longer than any process lives, and far from overflowing the clock.
    constexpr Seconds longest{1e9};
    return std::chrono::round<RunLoop::Time>(std::clamp(seconds, Seconds::zero(), longest));
}

std::optional<RunLoop::Time> earlier(std::optional<RunLoop::Time> a, std::optional<RunLoop::Time> b) {
    if (a && b) return std::min(*a, *b);
    return a ? a : b;
}

} // namespace

void RunLoop::schedule(Seconds delay, std::function<void()> block) {
    timers_.emplace(Key{now() + span(delay), timersMade_++}, std::move(block));
    driver_.deadlineChanged();
}

void RunLoop::perform(std::function<void()> block) {
    {
        const std::scoped_lock lock(blocksMutex_);
        blocks_.push_back(std::move(block));
    }
    driver_.wakeUp();
}

void RunLoop::run(Seconds duration) {
    const auto end = now() + span(duration);
    do {
        turn(end);
    } while (now() < end);
}

void RunLoop::runUntil(const std::function<bool()>& finished) {
    while (!finished())
        turn(std::nullopt);
}

void RunLoop::turn(std::optional<Time> deadline) {
    // Wait first: a callback may end the caller's run, and then nothing would end a wait after it.
    driver_.wait(earlier(nextDeadline(), deadline));
    callDue();
}

void RunLoop::callDue() {
    // What a callback adds waits for the next turn: a timer that renews itself must not block the loop.
    const auto moment = now();
    const auto made = timersMade_;
    auto queued = [&] {
        const std::scoped_lock lock(blocksMutex_);
        return blocks_.size();
    }();
    for (; queued > 0; --queued) {
        std::function<void()> block;
        {
            const std::scoped_lock lock(blocksMutex_);
            if (blocks_.empty()) break; // a nested run called the rest
            block = std::move(blocks_.front());
            blocks_.pop_front();
        }
        block();
    }
    while (!timers_.empty()) {
        const auto due =
            std::ranges::find_if(timers_, [&](const auto& timer) { return timer.first.order < made; });
        if (due == timers_.end() || due->first.deadline > moment) break;
        const auto block = std::move(due->second);
        timers_.erase(due);
        block();
    }
    driver_.deadlineChanged();
}

std::optional<RunLoop::Time> RunLoop::nextDeadline() const {
    {
        const std::scoped_lock lock(blocksMutex_);
        if (!blocks_.empty()) return now();
    }
    if (timers_.empty()) return std::nullopt;
    return timers_.begin()->first.deadline;
}

} // namespace prismo
