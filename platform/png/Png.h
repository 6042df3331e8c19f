#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace prismo {

/// What every PNG file begins with.
inline constexpr std::string_view pngSignature = "\x89PNG\r\n\x1a\n";

/// In pixels.
struct PngSize {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
};

/// The size of the image in a PNG file that begins with these bytes. Nothing for a file of another kind, and
/// for one that ends in its header. The first 64 bytes of a file are enough.
std::optional<PngSize> pngSize(std::span<const std::uint8_t> start);

} // namespace prismo
