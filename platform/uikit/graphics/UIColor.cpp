#include "platform/uikit/graphics/UIColor.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace prismo {

UIColor UIColor::colorWithHue(double hue, double saturation, double brightness, double alpha) {
    const auto clamped = [](double component) { return std::clamp(component, 0.0, 1.0); };
    const double h = clamped(hue) * 6;
    const double s = clamped(saturation);
    const double v = clamped(brightness);
    // Each primary is full within one sextant of its own hue and fades out over the next one.
    const auto primary = [&](double offset) {
        const double distance = std::fmod(offset + h, 6.0);
        return v - v * s * std::clamp(std::min(distance, 4 - distance), 0.0, 1.0);
    };
    return {primary(5), primary(3), primary(1), clamped(alpha)};
}

UIColor::HSB UIColor::hsb() const {
    const auto [low, high] = std::minmax({red, green, blue});
    const double range = high - low;
    if (range == 0) return {0, 0, high};
    const double sextant = high == red     ? (green - blue) / range
                           : high == green ? 2 + (blue - red) / range
                                           : 4 + (red - green) / range;
    return {(sextant < 0 ? sextant + 6 : sextant) / 6, range / high, high};
}

} // namespace prismo
