#include "platform/png/Png.h"

#include <algorithm>

namespace prismo {

namespace {

constexpr std::string_view headerName = "IHDR";

std::uint32_t bigEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t result = 0;
    for (const auto byte : bytes)
        result = result << 8 | byte;
    return result;
}

} // namespace

std::optional<PngSize> pngSize(std::span<const std::uint8_t> start) {
    constexpr std::size_t enough = 64;
    start = start.first(std::min(start.size(), enough));
    const auto isSame = [](std::uint8_t byte, char c) { return byte == static_cast<std::uint8_t>(c); };
    const auto signature = start.first(std::min(start.size(), pngSignature.size()));
    if (!std::ranges::equal(signature, pngSignature, isSame)) return {};
    // The width and height follow the header's name. The phone's own variant of the format has another chunk
    // before the header.
    const auto header = std::search(start.begin(), start.end(), headerName.begin(), headerName.end(), isSame);
    if (header == start.end()) return {};
    const auto sizes = start.subspan(static_cast<std::size_t>(header - start.begin()) + headerName.size());
    if (sizes.size() < 8) return {};
    return PngSize{bigEndian(sizes.first(4)), bigEndian(sizes.subspan(4, 4))};
}

} // namespace prismo
