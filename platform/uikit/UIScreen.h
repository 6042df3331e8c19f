#pragma once

#include "platform/uikit/graphics/Geometry.h"

namespace prismo {

/// A screen of the device; the application has a new one when it is turned.
class UIScreen {
  public:
    explicit UIScreen(CGRect bounds, double scale = 2) : bounds_(bounds), scale_(scale) {}

    /// The application's main screen, or null where it has none.
    static const UIScreen* mainScreen();

    /// In points, in the orientation that the device is held in.
    CGRect bounds() const { return bounds_; }
    /// Pixels to a point.
    double scale() const { return scale_; }

    bool operator==(const UIScreen&) const = default;

  private:
    CGRect bounds_;
    double scale_;
};

} // namespace prismo
