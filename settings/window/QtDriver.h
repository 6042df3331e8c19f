#pragma once

#include "platform/local/descriptors/DescriptorDriver.h"

#include <atomic>
#include <map>
#include <memory>
#include <QObject>
#include <QTimer>

class QSocketNotifier;

namespace prismo::settings {

/// Runs the framework's run loop inside Qt's event loop. A nested run still handles the window's events, so
/// animations continue while a page waits.
class QtDriver : public QObject, public DescriptorDriver {
  public:
    QtDriver();
    ~QtDriver() override;

    /// Sets the loop to drive, which must outlive all events; null stops driving.
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
