#include "platform/uikit/graphics/UIImage.h"

#include "platform/foundation/Device.h"
#include "platform/png/Png.h"

#include <algorithm>
#include <span>
#include <utility>

namespace prismo {

namespace {

// A PNG file opens with eight bytes of signature and the header chunk: its length (4), "IHDR" (4), width (4)
// and height (4), big endian.
constexpr std::size_t widthAt = 16;
constexpr std::size_t heightAt = 20;
constexpr std::size_t headerEnd = 24;

std::uint32_t bigEndian(std::span<const std::uint8_t, 4> bytes) {
    std::uint32_t result = 0;
    for (const auto byte : bytes)
        result = result << 8 | byte;
    return result;
}

} // namespace

const Class& UIImage::classObject() {
    static const Class objectClass("UIImage", &NSObject::classObject(), nullptr);
    return objectClass;
}

std::shared_ptr<UIImage> UIImage::imageWithContentsOfFile(const std::string& path) {
    auto data = Device::current().readFile(path);
    if (!data || data->size() < headerEnd) return nullptr;
    const auto bytes = std::span(std::as_const(*data));
    const auto isSame = [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; };
    if (!std::ranges::equal(pngSignature, bytes.first<pngSignature.size()>(), isSame)) return nullptr;
    const CGSize size{static_cast<double>(bigEndian(bytes.subspan<widthAt, 4>())),
                      static_cast<double>(bigEndian(bytes.subspan<heightAt, 4>()))};
    return std::make_shared<UIImage>(size, std::move(*data));
}

} // namespace prismo
