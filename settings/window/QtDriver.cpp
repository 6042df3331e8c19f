#include "settings/window/QtDriver.h"

#include <algorithm>
#include <chrono>
#include <QAbstractEventDispatcher>
#include <QSocketNotifier>
#include <utility>

namespace prismo::settings {

namespace {

/// Rounds up, so that nothing is called too early.
std::chrono::milliseconds until(RunLoop::Time deadline, RunLoop::Time now) {
    constexpr std::chrono::milliseconds longest = std::chrono::hours(24);
    const auto left = std::max(deadline - now, RunLoop::Time::zero());
    return std::min(std::chrono::ceil<std::chrono::milliseconds>(left), longest);
}

} // namespace

QtDriver::QtDriver() {
    due_.setSingleShot(true);
    due_.setTimerType(Qt::PreciseTimer);
    connect(&due_, &QTimer::timeout, this, &QtDriver::callDue);
}

QtDriver::~QtDriver() = default;

void QtDriver::drive(RunLoop* loop) {
    loop_ = loop;
    deadlineChanged();
}

RunLoop::Time QtDriver::now() {
    return std::chrono::duration_cast<RunLoop::Time>(std::chrono::steady_clock::now().time_since_epoch());
}

void QtDriver::wait(std::optional<RunLoop::Time> deadline) {
    auto* dispatcher = QAbstractEventDispatcher::instance();
    ++waits_;
    QTimer end;
    const auto left = deadline ? until(*deadline, now()) : std::chrono::milliseconds(-1);
    if (left.count() > 0) {
        end.setTimerType(Qt::PreciseTimer);
        end.start(left);
    }
    dispatcher->processEvents(left.count() == 0 ? QEventLoop::AllEvents : QEventLoop::WaitForMoreEvents);
    --waits_;
}

void QtDriver::wakeUp() {
    if (!isWakingUp_.exchange(true))
        QMetaObject::invokeMethod(this, &QtDriver::callDue, Qt::QueuedConnection);
}

void QtDriver::deadlineChanged() {
    const auto next = loop_ ? loop_->nextDeadline() : std::nullopt;
    if (next)
        due_.start(until(*next, now()));
    else
        due_.stop();
}

void QtDriver::callDue() {
    isWakingUp_ = false;
    // During a wait, the waiting loop calls what is due itself; this event has just ended its wait.
    if (loop_ && waits_ == 0) loop_->callDue();
}

void QtDriver::watch(int fd, std::function<void()> readable) {
    unwatch(fd);
    auto notifier = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
    connect(notifier.get(), &QSocketNotifier::activated, this, [readable = std::move(readable)] {
        // A copy, since the callback may end its own watch.
        const auto kept = readable;
        kept();
    });
    notifiers_[fd] = std::move(notifier);
}

void QtDriver::unwatch(int fd) {
    const auto watch = notifiers_.find(fd);
    if (watch == notifiers_.end()) return;
    // Drops an event that has already arrived.
    watch->second->setEnabled(false);
    // This may run inside the notifier's own signal.
    watch->second.release()->deleteLater();
    notifiers_.erase(watch);
}

} // namespace prismo::settings
