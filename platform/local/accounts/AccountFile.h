#pragma once

#include "platform/foundation/Device.h"
#include "platform/foundation/Result.h"
#include "platform/local/accounts/RequestSender.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace prismo {

/// The file on the device that has the person's accounts and their secrets.
///
/// A property list: {"accounts": [{"identifier", "username", "consumerKey", "consumerSecret", "token",
/// "tokenSecret"}, …]}, all texts. It is trusted only if it is a regular file that belongs to this user or to
/// root, and that nobody else can read or write.
class AccountFile {
  public:
    static constexpr const char* path = "/var/mobile/Library/Accounts/Prismo2Accounts.plist";

    struct Entry {
        Account account;
        AccountSecrets secrets;
    };
    using Entries = std::vector<Entry>;

    /// Opens the file at `path` of the device with these flags. Callable from any thread.
    using Open = std::function<Result<UniqueFd>(int flags)>;
    /// `hostPath` is the file's path for problems.
    AccountFile(Open open, std::string hostPath) : open_(std::move(open)), hostPath_(std::move(hostPath)) {}

    /// The accounts in the file's order, without incomplete ones. Fails if the file is missing, is not
    /// trusted, or does not have a list of accounts. Callable from any thread.
    Result<Entries> read() const;

  private:
    Open open_;
    std::string hostPath_;
};

} // namespace prismo
