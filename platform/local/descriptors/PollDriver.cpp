#include "platform/local/descriptors/PollDriver.h"

#include "platform/foundation/Result.h"
#include "platform/local/descriptors/SystemProblem.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace prismo {

PollDriver::PollDriver(Clock clock) : clock_(clock), wakeUps_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (!wakeUps_) throw ProblemError(systemProblem(Problem::Kind::unreadable, "eventfd"));
}

RunLoop::Time PollDriver::now() {
    if (clock_ == Clock::virtualTime) return virtualNow_;
    return std::chrono::duration_cast<RunLoop::Time>(std::chrono::steady_clock::now().time_since_epoch());
}

void PollDriver::wait(std::optional<RunLoop::Time> deadline) {
    // First dispatch what an outer wait has left: poll would only report those descriptors again.
    if (ready_.empty()) poll(deadline);
    dispatch();
}

void PollDriver::wakeUp() {
    // This fails only if the counter is full, and then the wait ends anyway.
    [[maybe_unused]] const auto written = ::eventfd_write(wakeUps_.get(), 1);
}

void PollDriver::watch(int fd, std::function<void()> readable) {
    unwatch(fd);
    watches_.push_back(
        {fd, watchesMade_++, std::make_shared<const std::function<void()>>(std::move(readable))});
}

void PollDriver::unwatch(int fd) {
    std::erase_if(watches_, [&](const Watch& watch) { return watch.fd == fd; });
}

std::shared_ptr<void> PollDriver::holdClock() {
    if (clock_ != Clock::virtualTime) return nullptr;
    ++holds_;
    return {this, [](PollDriver* driver) {
                // The order matters: the wait that this ends must find the clock free.
                --driver->holds_;
                driver->wakeUp();
            }};
}

void PollDriver::poll(std::optional<RunLoop::Time> deadline) {
    std::vector<pollfd> descriptors{{wakeUps_.get(), POLLIN, 0}};
    for (const auto& watch : watches_)
        descriptors.push_back({watch.fd, POLLIN, 0});
    const bool isEndless = !deadline || holds_ > 0;
    timespec timeout{};
    if (deadline && clock_ == Clock::monotonic) {
        const auto left = std::max(*deadline - now(), RunLoop::Time::zero());
        const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
        timeout.tv_sec = static_cast<time_t>(seconds.count());
        timeout.tv_nsec = static_cast<long>((left - seconds).count());
    }
    const int ready =
        ::ppoll(descriptors.data(), descriptors.size(), isEndless ? nullptr : &timeout, nullptr);
    if (ready == 0 && clock_ == Clock::virtualTime) virtualNow_ = std::max(virtualNow_.load(), *deadline);
    if (ready <= 0) return;
    if (descriptors[0].revents != 0) {
        eventfd_t count = 0;
        ::eventfd_read(wakeUps_.get(), &count);
    }
    for (std::size_t i = 0; i < watches_.size(); ++i)
        if (descriptors[i + 1].revents != 0) ready_.push_back(watches_[i].id);
}

void PollDriver::dispatch() {
    while (!ready_.empty()) {
        const auto watch = std::ranges::find(watches_, ready_.front(), &Watch::id);
        ready_.pop_front();
        if (watch == watches_.end()) continue;
        // Copy the pointer: the callback may end its own watch.
        const auto readable = watch->readable;
        (*readable)();
    }
}

} // namespace prismo
