#pragma once

#include "platform/uikit/graphics/UIColor.h"

#include <algorithm>
#include <optional>
#include <QColor>

namespace prismo::settings {

inline QColor toQColor(const UIColor& color) {
    const auto component = [](double value) { return static_cast<float>(std::clamp(value, 0.0, 1.0)); };
    return QColor::fromRgbF(component(color.red), component(color.green), component(color.blue),
                            component(color.alpha));
}

/// A missing color becomes an invalid one, which means the window's default.
inline QColor toQColor(const std::optional<UIColor>& color) { return color ? toQColor(*color) : QColor(); }

} // namespace prismo::settings
