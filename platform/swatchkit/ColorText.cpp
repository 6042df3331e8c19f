#include "platform/swatchkit/ColorText.h"

#include "platform/text/Number.h"

#include <cmath>
#include <cstdint>

namespace prismo {

namespace {

std::optional<double> alphaFromText(std::string_view text) {
    const auto alpha = numberFromText<double>(text, std::chars_format::fixed);
    return alpha && text.front() != '-' && *alpha <= 1 ? alpha : std::nullopt;
}

} // namespace

std::optional<UIColor> colorFromText(std::string_view text) {
    std::optional<double> alpha = 1;
    if (const auto colon = text.find(':'); colon != std::string_view::npos) {
        alpha = alphaFromText(text.substr(colon + 1));
        text = text.substr(0, colon);
    }
    if (text.starts_with('#')) text.remove_prefix(1);
    if (!alpha || (text.size() != 3 && text.size() != 6)) return std::nullopt;

    const auto digits = numberFromText<std::uint32_t>(text, 16);
    if (!digits) return std::nullopt;
    const bool isShort = text.size() == 3;
    const auto component = [&](unsigned place) {
        // A single digit stands for the same digit twice: "f" means "ff".
        return isShort ? (*digits >> (4 * place) & 0xF) / 15.0 : (*digits >> (8 * place) & 0xFF) / 255.0;
    };
    return UIColor{component(2), component(1), component(0), *alpha};
}

UIColor SWKParseColorString(std::string_view text, std::string_view fallback) {
    if (const auto color = colorFromText(text)) return *color;
    return colorFromText(fallback).value_or(UIColor::whiteColor());
}

std::uint8_t byteFromComponent(double component) {
    // fmax comes first, so that NaN becomes 0.
    return static_cast<std::uint8_t>(std::lround(std::fmin(std::fmax(component, 0), 1) * 255));
}

std::string hexFromColor(const UIColor& color) {
    std::string result = "#";
    for (const double component : {color.red, color.green, color.blue})
        result += hexText(byteFromComponent(component));
    return result;
}

} // namespace prismo
