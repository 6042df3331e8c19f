#include "platform/text/Text.h"

#include <algorithm>

namespace prismo {

std::string formatted(std::string_view format, std::initializer_list<std::optional<std::string>> arguments) {
    constexpr std::string_view placeholder = "%@";
    std::string result;
    for (const auto& argument : arguments) {
        const auto at = format.find(placeholder);
        if (at == std::string_view::npos) break;
        result.append(format.substr(0, at)).append(argument.value_or("(null)"));
        format.remove_prefix(at + placeholder.size());
    }
    return result.append(format);
}

std::string lowercased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return result;
}

} // namespace prismo
