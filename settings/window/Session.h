#pragma once

#include "settings/model/Phone.h"
#include "settings/window/WindowPlace.h"

#include "platform/linux/LinuxDevice.h"

#include <optional>
#include <QQmlApplicationEngine>
#include <string>

class QWindow;

namespace prismo::settings {

struct Options;

/// The device, the phone's screen on it, and the window that shows the screen.
class Session {
  public:
    /// Opens the window. If the device root cannot be used, the window shows the reason.
    explicit Session(const Options& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Null if it could not be created.
    QWindow* window() const;

  private:
    void openDevice(const std::string& rootPath);

    WindowPlace place_;
    std::optional<LinuxDevice> device_;
    std::optional<Device::Current> current_;
    std::optional<Phone> phone_;
    QQmlApplicationEngine engine_;
};

} // namespace prismo::settings
