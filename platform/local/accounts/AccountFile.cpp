#include "platform/local/accounts/AccountFile.h"

#include "platform/local/descriptors/FileBytes.h"
#include "platform/plist/PropertyListReader.h"

#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace prismo {

namespace {

using Kind = Problem::Kind;

/// Enough for thousands of accounts.
constexpr std::size_t longestFile = std::size_t{1} << 20;

/// Fails if the file is not to be trusted.
Result<> checkTrust(int fd, const std::string& path) {
    const auto status = regularStatus(fd, path);
    if (!status) return status.problem();
    const auto uid = status.value().st_uid;
    const auto mode = status.value().st_mode;
    if (uid != ::geteuid() && uid != 0) return Problem{Kind::unreadable, path, "Belongs to another user"};
    if ((mode & (S_IRWXG | S_IRWXO)) != 0)
        return Problem{Kind::unreadable, path,
                       "Holds secrets, and others have access to it (chmod 600 takes that away)"};
    return Done{};
}

std::optional<AccountFile::Entry> entry(const Value& value) {
    const auto* dictionary = value.as<Dictionary>();
    if (!dictionary) return {};
    const auto text = [&](std::string_view key) { return valueForKey(*dictionary, key).text(); };
    AccountFile::Entry result{
        {text("identifier"), text("username")},
        {text("consumerKey"), text("consumerSecret"), text("token"), text("tokenSecret")}};
    const auto& [account, secrets] = result;
    for (const auto& part : {account.identifier, account.username, secrets.consumerKey,
                             secrets.consumerSecret, secrets.token, secrets.tokenSecret})
        if (part.empty()) return {};
    return result;
}

} // namespace

Result<AccountFile::Entries> AccountFile::read() const {
    // Do not wait if somebody has put a FIFO in its place.
    const auto file = open_(O_RDONLY | atOnce);
    if (!file) return file.problem();
    const int fd = file.value().get();
    if (const auto trusted = checkTrust(fd, hostPath_); !trusted) return trusted.problem();
    const auto bytes = readAll(fd, longestFile, hostPath_);
    if (!bytes) return bytes.problem();
    const auto dictionary = parseDictionary(bytes.value(), hostPath_);
    const Array* list = dictionary ? valueForKey(dictionary.value(), "accounts").as<Array>() : nullptr;
    if (!list) return Problem{Kind::malformed, hostPath_, "Holds no list of accounts"};
    Entries result;
    for (const auto& value : *list)
        if (auto found = entry(value)) result.push_back(std::move(*found));
    return result;
}

} // namespace prismo
