#pragma once

#include "platform/uikit/graphics/UIColor.h"

#include <optional>

namespace prismo {

/// The colours of controls inside the pages of one class; nothing stands for the system's own.
struct UIAppearance {
    std::optional<UIColor> segmentedControlTintColor;
    /// Of the part of the track to the right of the thumb.
    std::optional<UIColor> sliderMaximumTrackTintColor;
    std::optional<UIColor> switchOnTintColor;

    bool operator==(const UIAppearance&) const = default;
};

} // namespace prismo
