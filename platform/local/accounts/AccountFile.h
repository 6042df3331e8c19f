#pragma once

#include "platform/foundation/Device.h"
#include "platform/linux/files/DeviceRoot.h"
#include "platform/local/accounts/RequestSender.h"

#include <optional>
#include <string>
#include <vector>

namespace prismo {

/// The file of the person's accounts and their secrets, in the device root.
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

    /// `root` outlives it.
    explicit AccountFile(const DeviceRoot& root) : root_(root) {}

    /// The accounts in the file's order, without those that lack something. Nothing where the file is
    /// missing, is not believed or holds no list of accounts; all but the first are a problem, put into
    /// `problem` where that is given. Callable from every thread.
    std::optional<Entries> read(std::optional<FileProblem>* problem = nullptr) const;

  private:
    const DeviceRoot& root_;
};

} // namespace prismo
