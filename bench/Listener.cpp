// A process that follows the settings: on every change notification it loads the file again and prints one
// value. Prints "ready" first. Arguments: the device root and the key.

#include "platform/foundation/NSObject.h"
#include "platform/linux/LinuxDevice.h"
#include "prefs/SettingsFile.h"

#include <cstdio>
#include <memory>

using namespace prismo;

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    static const char* key = argv[2];
    LinuxDevice device(argv[1]);
    const Device::Current current(device);
    const auto observer = std::make_shared<NSObject>();
    device.systemCenter().addObserver(
        observer,
        [](const std::shared_ptr<NSObject>&) {
            const auto settings = loadSettings();
            std::printf("%d\n", valueForKey(settings, key).boolValue() ? 1 : 0);
            std::fflush(stdout);
        },
        changeNotification, SuspensionBehavior::coalesce);
    std::puts("ready");
    std::fflush(stdout);
    device.runLoop().runUntil([] { return false; });
}
