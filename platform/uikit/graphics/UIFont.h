#pragma once

namespace prismo {

/// The system's typeface at a size in points.
struct UIFont {
    double pointSize = 17;
    bool isBold = false;

    bool operator==(const UIFont&) const = default;

    static UIFont systemFontOfSize(double size) { return {size, false}; }
    static UIFont boldSystemFontOfSize(double size) { return {size, true}; }
};

} // namespace prismo
