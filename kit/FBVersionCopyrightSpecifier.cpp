#include "kit/FBVersionCopyrightSpecifier.h"

#include "platform/foundation/Device.h"
#include "platform/text/Text.h"

#include <algorithm>
#include <chrono>
#include <optional>

namespace prismo {

namespace {

/// The version as the package database prints it, including its label and line break; nullopt if the output
/// is not ASCII.
std::optional<std::string> installedVersion(const std::string& packageIdentifier) {
    auto output = Device::current().runTask(
        "/bin/sh", {"-c", formatted("dpkg -s %@ | grep 'Version'", {packageIdentifier})});
    const bool isASCII =
        std::ranges::all_of(output, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    return isASCII ? std::optional(std::move(output)) : std::nullopt;
}

std::string currentYear() {
    const std::chrono::year_month_day today(
        std::chrono::floor<std::chrono::days>(Device::current().wallClock()));
    return std::to_string(static_cast<int>(today.year()));
}

} // namespace

std::shared_ptr<PSSpecifier> FBVersionCopyrightSpecifier(const std::string& packageIdentifier,
                                                         const std::string& copyrightHolder,
                                                         const std::string& startYear) {
    const auto version = installedVersion(packageIdentifier);
    auto row =
        PSSpecifier::preferenceSpecifierNamed("", nullptr, "", "", nullptr, PSCellType::group, nullptr);
    const auto year = currentYear();
    const auto years = startYear == year ? year : formatted("%@ - %@", {startYear, year});
    row->setProperty(formatted("© %@ %@\n %@", {copyrightHolder, years, version}), "footerText");
    row->setProperty("1", "footerAlignment"); // centered; the platform expects a text
    return row;
}

} // namespace prismo
