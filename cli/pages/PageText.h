#pragma once

#include "platform/preferences/PSListController.h"

#include <string>

namespace prismo::cli {

enum class Style {
    plain,
    /// With terminal attributes and, for swatches, 24-bit colors.
    colors,
};

/// A page as a person reads it in a terminal: its groups with their headers and footers, each row with what
/// it shows.
std::string pageText(PSListController& page, Style style);

} // namespace prismo::cli
