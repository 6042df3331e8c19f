#pragma once

namespace prismo {

/// A color in sRGB; every component is from 0 to 1.
struct UIColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    bool operator==(const UIColor&) const = default;

    /// All arguments are from 0 to 1; values outside that range are clamped.
    static UIColor colorWithHue(double hue, double saturation, double brightness, double alpha);
    static UIColor blackColor() { return {0, 0, 0, 1}; }
    static UIColor whiteColor() { return {1, 1, 1, 1}; }

    struct HSB {
        double hue = 0;
        double saturation = 0;
        double brightness = 0;
        bool operator==(const HSB&) const = default;
    };
    /// A gray has hue 0.
    HSB hsb() const;
};

} // namespace prismo
