#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace prismo {

/// The first eight bytes of every PNG file.
inline constexpr std::string_view pngSignature = "\x89PNG\r\n\x1a\n";

/// In pixels.
struct PngSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

/// The size of the image in a PNG file that begins with these bytes; the first 64 are enough. Returns nullopt
/// if it is not a PNG file or ends within its header.
std::optional<PngSize> pngSize(std::span<const std::uint8_t> start);

} // namespace prismo
