#include "platform/local/accounts/AccountFile.h"

#include "platform/local/descriptors/FileBytes.h"
#include "platform/plist/PropertyListReader.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace prismo {

namespace {

// Thousands of accounts.
constexpr std::size_t longestFile = std::size_t{1} << 20;

/// Why the file is not believed; "" where it is.
std::string objection(int fd) {
    struct stat status {};
    if (::fstat(fd, &status) != 0) return std::strerror(errno);
    if (auto words = notRegular(status); !words.empty()) return words;
    if (status.st_uid != ::geteuid() && status.st_uid != 0) return "Belongs to another user";
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        return "Holds secrets, and others have access to it (chmod 600 takes that away)";
    return {};
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

std::optional<AccountFile::Entries> AccountFile::read(std::optional<FileProblem>* problem) const {
    const auto refuse = [&](FileProblem::Kind kind, std::string cause) -> std::optional<Entries> {
        if (problem) *problem = FileProblem{kind, hostPath_, std::move(cause)};
        return {};
    };
    // Does not wait where somebody has put a pipe in its place.
    const auto file = open_(O_RDONLY | atOnce);
    if (!file && (errno == ENOENT || errno == ENOTDIR)) return {};
    if (!file) return refuse(FileProblem::Kind::unreadable, std::strerror(errno));
    if (const auto cause = objection(file.get()); !cause.empty())
        return refuse(FileProblem::Kind::unreadable, cause);
    const auto bytes = readAll(file.get(), longestFile);
    if (!bytes) return refuse(FileProblem::Kind::unreadable, std::strerror(errno));
    const auto dictionary = readDictionary(*bytes);
    const Array* list = dictionary ? valueForKey(*dictionary, "accounts").as<Array>() : nullptr;
    if (!list) return refuse(FileProblem::Kind::malformed, "Holds no list of accounts");
    Entries result;
    for (const auto& value : *list)
        if (auto found = entry(value)) result.push_back(std::move(*found));
    return result;
}

} // namespace prismo
