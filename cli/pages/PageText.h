#pragma once

#include "platform/preferences/PSListController.h"

#include <string>

namespace prismo::cli {

enum class Style {
    plain,
    /// With the terminal's attributes and, for swatches, its 24-bit colours.
    colors,
};

/// A page as a person reads it in a terminal: its groups with their headers and footers, each row with what
/// it shows.
std::string pageText(PSListController& page, Style style);

} // namespace prismo::cli
