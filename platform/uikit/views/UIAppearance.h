#pragma once

#include "platform/uikit/graphics/UIColor.h"

#include <optional>

namespace prismo {

/// The colors of controls inside the pages of one class; nullopt means the system's own.
struct UIAppearance {
    std::optional<UIColor> segmentedControlTintColor;
    /// The part of the track to the right of the thumb.
    std::optional<UIColor> sliderMaximumTrackTintColor;
    std::optional<UIColor> switchOnTintColor;

    bool operator==(const UIAppearance&) const = default;
};

} // namespace prismo
