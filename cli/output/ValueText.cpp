#include "cli/output/ValueText.h"

#include "cli/output/Json.h"

#include "platform/text/Number.h"
#include "platform/text/Printable.h"

namespace prismo::cli {

std::string valueText(const Value& value) {
    if (const auto* flag = value.as<bool>()) return *flag ? "true" : "false";
    if (const auto* integer = value.as<std::int64_t>()) return std::to_string(*integer);
    if (const auto* large = value.as<std::uint64_t>()) return std::to_string(*large);
    if (const auto* real = value.as<double>()) return shortestText(*real);
    return value.text();
}

std::string shownText(const Value& value) {
    return printable(value.as<std::string>() || value.isNumber() ? valueText(value) : jsonText(json(value)));
}

} // namespace prismo::cli
