#pragma once

#include "platform/local/descriptors/DescriptorDriver.h"

#include <atomic>
#include <map>
#include <memory>
#include <QObject>
#include <QTimer>

class QSocketNotifier;

namespace prismo::settings {

/// Lets a run loop live in Qt's event loop: what falls due is called from there, and a nested run of the loop
/// goes on handling the window's events, so animations do not stop while a page waits.
class QtDriver : public QObject, public DescriptorDriver {
  public:
    QtDriver();
    ~QtDriver() override;

    /// The loop that this driver was made for; it outlives the last event. Null ends it.
    void drive(RunLoop* loop);

    RunLoop::Time now() override;
    void wait(std::optional<RunLoop::Time> deadline) override;
    void wakeUp() override;
    void deadlineChanged() override;

    void watch(int fd, std::function<void()> readable) override;
    void unwatch(int fd) override;

  private:
    void callDue();

    RunLoop* loop_ = nullptr;
    QTimer due_;
    int waits_ = 0;
    std::atomic<bool> isWakingUp_ = false;
    std::map<int, std::unique_ptr<QSocketNotifier>> notifiers_;
};

} // namespace prismo::settings
