#pragma once

#include "platform/memory/MemoryDevice.h"
#include "platform/text/Number.h"
#include "platform/uikit/UIApplication.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace prismo {

/// A device in memory that also records the mode of each file write.
class TestDevice : public MemoryDevice {
  public:
    std::vector<WriteMode> writeModes;

  protected:
    Result<> write(const std::string& path, const Dictionary& dictionary, WriteMode mode) override {
        writeModes.push_back(mode);
        return MemoryDevice::write(path, dictionary, mode);
    }
};

inline InstalledApplication userApp(std::string identifier, std::string name, std::string iconPath = "") {
    return {std::move(identifier), std::move(name), false, std::move(iconPath)};
}
inline InstalledApplication systemApp(std::string identifier, std::string name) {
    return {std::move(identifier), std::move(name), true, ""};
}

/// A new application on a device in memory. Records every effect and when it happened.
struct MemoryWorld : testing::Test {
    MemoryWorld() {
        UIApplication::restart();
        device.setEffectObserver([this](const Effect& effect) { effects.push_back({now(), effect}); });
    }
    ~MemoryWorld() override { device.setEffectObserver(nullptr); }

    struct TimedEffect {
        std::chrono::nanoseconds time;
        Effect effect;
    };

    std::chrono::nanoseconds now() { return device.runLoop().now(); }
    void runFor(double seconds) { device.runLoop().run(Seconds(seconds)); }

    /// The effects of these kinds, in order, as in "35 ms post com.example.changed".
    std::vector<std::string> timeline(const std::vector<std::string>& kinds = {"write", "reload", "post"}) {
        std::vector<std::string> lines;
        for (const auto& [time, effect] : effects) {
            if (std::ranges::find(kinds, effect.kind) == kinds.end()) continue;
            const auto& path = valueForKey(effect.details, "path").text();
            const auto milliseconds = std::chrono::duration<double, std::milli>(time).count();
            auto number = decimalText(milliseconds);
            number.erase(number.find_last_not_of('0') + 1);
            if (number.back() == '.') number.pop_back();
            lines.push_back(number + " ms " + effect.kind + ' ' +
                            (path.empty() ? valueForKey(effect.details, "name").text() : path));
        }
        return lines;
    }
    std::vector<Effect> effectsOfKind(const std::string& kind) {
        std::vector<Effect> found;
        for (const auto& [time, effect] : effects)
            if (effect.kind == kind) found.push_back(effect);
        return found;
    }
    /// The links that were probed and opened, in order, as in "canOpenURL tweetbot: no".
    std::vector<std::string> links() {
        std::vector<std::string> lines;
        for (const auto& [time, effect] : effects)
            if (effect.kind == "canOpenURL" || effect.kind == "openURL")
                lines.push_back(effect.kind + ' ' + effect.details.at("url").text() +
                                (effect.details.at("accepted").boolValue() ? " yes" : " no"));
        return lines;
    }

    TestDevice device;
    Device::Current current{device};
    std::vector<TimedEffect> effects;
};

} // namespace prismo
