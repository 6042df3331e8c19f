#pragma once

#include "platform/uikit/graphics/Geometry.h"

namespace prismo {

/// A screen of the device. The application replaces it when the device rotates.
class UIScreen {
  public:
    explicit UIScreen(CGRect bounds, double scale = 2) : bounds_(bounds), scale_(scale) {}

    /// The application's main screen, or null if it has none. The application owns it.
    static const UIScreen* mainScreen();

    /// In points, in the current orientation of the device.
    CGRect bounds() const { return bounds_; }
    /// Pixels per point.
    double scale() const { return scale_; }

    bool operator==(const UIScreen&) const = default;

  private:
    CGRect bounds_;
    double scale_;
};

} // namespace prismo
