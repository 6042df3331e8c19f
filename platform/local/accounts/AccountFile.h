#pragma once

#include "platform/foundation/Device.h"
#include "platform/local/accounts/RequestSender.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace prismo {

/// The file of the person's accounts and their secrets, on the device.
///
/// A property list: {"accounts": [{"identifier", "username", "consumerKey", "consumerSecret", "token",
/// "tokenSecret"}, …]}, all texts. It is believed only where it is a regular file of this user or of root
/// that nobody else can read or write.
class AccountFile {
  public:
    static constexpr const char* path = "/var/mobile/Library/Accounts/Prismo2Accounts.plist";

    struct Entry {
        Account account;
        AccountSecrets secrets;
    };
    using Entries = std::vector<Entry>;

    /// Opens the file at `path` of the device with these flags; where that fails, errno is set. Callable from
    /// every thread.
    using Open = std::function<UniqueFd(int flags)>;
    /// `hostPath`: how a problem names the file.
    AccountFile(Open open, std::string hostPath) : open_(std::move(open)), hostPath_(std::move(hostPath)) {}

    /// The accounts in the file's order, without those that lack something. Nothing where the file is
    /// missing, is not believed or holds no list of accounts; all but the first are a problem, put into
    /// `problem` where that is given. Callable from every thread.
    std::optional<Entries> read(std::optional<FileProblem>* problem = nullptr) const;

  private:
    Open open_;
    std::string hostPath_;
};

} // namespace prismo
