#include "platform/text/Link.h"

#include "platform/text/Text.h"

#include <algorithm>

namespace prismo {

namespace {

// In bytes. The kernel rejects a program argument of more than 131,072 bytes; real links are far shorter.
constexpr std::size_t maxLinkLength = 65'536;

// Instead of the C library's character classes, which depend on the locale.
constexpr std::string_view lower = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view digits = "0123456789";
constexpr std::string_view hexadecimal = "0123456789abcdefABCDEF";

bool isOneOf(std::string_view set, char c) { return set.find(c) != std::string_view::npos; }

bool isLetter(char c) { return isOneOf(lower, c) || isOneOf(upper, c); }

bool isSchemeCharacter(char c) { return isLetter(c) || isOneOf(digits, c) || isOneOf("+-.", c); }

bool isUnreserved(char c) { return isLetter(c) || isOneOf(digits, c) || isOneOf("-._~", c); }

/// The reserved and unreserved characters of RFC 3986, and the percent sign.
bool isLinkCharacter(char c) { return isUnreserved(c) || isOneOf(":/?#[]@!$&'()*+,;=%", c); }

bool escapesAreWhole(std::string_view text) {
    for (auto at = text.find('%'); at != std::string_view::npos; at = text.find('%', at + 1)) {
        const auto escaped = text.substr(at + 1, 2);
        if (escaped.size() != 2 || escaped.find_first_not_of(hexadecimal) != std::string_view::npos)
            return false;
    }
    return true;
}

} // namespace

std::optional<std::string> linkScheme(std::string_view url) {
    const auto colon = url.find(':');
    if (url.size() > maxLinkLength || colon == std::string_view::npos) return {};
    const auto scheme = url.substr(0, colon);
    if (scheme.empty() || !isLetter(scheme.front()) || !std::ranges::all_of(scheme, isSchemeCharacter) ||
        !std::ranges::all_of(url, isLinkCharacter) || !escapesAreWhole(url))
        return {};
    return lowercased(scheme);
}

std::string percentEncoded(std::string_view text) {
    constexpr std::string_view hexDigits = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (isUnreserved(c))
            result += c;
        else
            ((result += '%') += hexDigits[byte / 16]) += hexDigits[byte % 16];
    }
    return result;
}

} // namespace prismo
