#include "platform/local/accounts/OAuth.h"

#include "platform/text/Link.h"
#include "platform/text/Number.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>

namespace prismo::oauth {

namespace {

std::string formUnescaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const auto byte = text.size() >= 3 && text.front() == '%'
                              ? numberFromText<unsigned char>(text.substr(1, 2), 16)
                              : std::nullopt;
        if (byte) {
            result += static_cast<char>(*byte);
            text.remove_prefix(3);
        } else {
            result += text.front() == '+' ? ' ' : text.front();
            text.remove_prefix(1);
        }
    }
    return result;
}

} // namespace

std::string formEncoded(const Parameters& parameters) {
    std::string result;
    for (const auto& [name, value] : parameters) {
        if (!result.empty()) result += '&';
        result += percentEncoded(name) + "=" + percentEncoded(value);
    }
    return result;
}

Parameters formDecoded(std::string_view text) {
    Parameters result;
    while (!text.empty()) {
        const auto part = text.substr(0, text.find('&'));
        text.remove_prefix(std::min(part.size() + 1, text.size()));
        if (part.empty()) continue;
        const auto name = part.substr(0, part.find('='));
        const auto value = part.substr(std::min(name.size() + 1, part.size()));
        result.emplace_back(formUnescaped(name), formUnescaped(value));
    }
    return result;
}

std::string signatureBaseString(std::string_view method, std::string_view url, const Parameters& parameters) {
    // Sort them in their encoded form, by name and then by value.
    Parameters encoded;
    for (const auto& [name, value] : parameters)
        encoded.emplace_back(percentEncoded(name), percentEncoded(value));
    std::ranges::sort(encoded);
    std::string normalized;
    for (const auto& [name, value] : encoded) {
        if (!normalized.empty()) normalized += '&';
        normalized.append(name).append("=").append(value);
    }
    return percentEncoded(method) + "&" + percentEncoded(url) + "&" + percentEncoded(normalized);
}

std::string signature(std::string_view baseString, std::string_view consumerSecret,
                      std::string_view tokenSecret) {
    const auto key = percentEncoded(consumerSecret) + "&" + percentEncoded(tokenSecret);
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int size = 0;
    if (!HMAC(EVP_sha1(), key.data(), static_cast<int>(key.size()),
              reinterpret_cast<const unsigned char*>(baseString.data()), baseString.size(), digest.data(),
              &size))
        return {};
    std::array<unsigned char, 2 * EVP_MAX_MD_SIZE> text{};
    const int length = EVP_EncodeBlock(text.data(), digest.data(), static_cast<int>(size));
    return {text.begin(), text.begin() + length};
}

std::optional<Occasion> Occasion::now() {
    // The longest nonce that the strictest servers accept.
    std::array<unsigned char, 15> random{};
    if (RAND_bytes(random.data(), random.size()) != 1) return {};
    return Occasion{hexText(random), std::to_string(std::time(nullptr))};
}

std::string authorization(std::string_view method, std::string_view url, const Parameters& parameters,
                          const AccountSecrets& secrets, const Occasion& occasion) {
    Parameters ours{
        {"oauth_consumer_key", secrets.consumerKey},
        {"oauth_nonce", occasion.nonce},
        {"oauth_signature_method", "HMAC-SHA1"},
        {"oauth_timestamp", occasion.timestamp},
        {"oauth_token", secrets.token},
        {"oauth_version", "1.0"},
    };
    auto all = parameters;
    all.insert(all.end(), ours.begin(), ours.end());
    auto signed_ =
        signature(signatureBaseString(method, url, all), secrets.consumerSecret, secrets.tokenSecret);
    if (signed_.empty()) return {};
    ours.emplace_back("oauth_signature", std::move(signed_));
    std::string result = "OAuth ";
    for (const auto& [name, value] : ours) {
        if (result.back() == '"') result += ", ";
        result += name + "=\"" + percentEncoded(value) + "\"";
    }
    return result;
}

} // namespace prismo::oauth
