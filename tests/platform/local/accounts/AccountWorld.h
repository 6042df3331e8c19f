#pragma once

#include "platform/linux/files/DeviceRoot.h"
#include "platform/local/accounts/AccountFile.h"
#include "tests/support/Directories.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <sys/stat.h>

namespace prismo {

inline AccountFile accountFile(const DeviceRoot& root) {
    return {[&root](int flags) { return root.open(AccountFile::path, flags); },
            root.hostPath(AccountFile::path)};
}

/// A device root with an account file that a test writes.
class AccountWorld {
  public:
    AccountWorld() { std::filesystem::create_directories(file().parent_path()); }

    const DeviceRoot& root() const { return root_; }
    const std::filesystem::path& directory() const { return directory_.path(); }
    /// On this machine.
    std::filesystem::path file() const { return directory_.path().string() + AccountFile::path; }

    /// `list`: the content of a property list's dictionary.
    void write(const std::string& content, mode_t mode = 0600) {
        std::ofstream(file()) << R"(<plist version="1.0"><dict>)" << content << "</dict></plist>";
        ::chmod(file().c_str(), mode);
    }
    void writeAccounts(const std::string& entries, mode_t mode = 0600) {
        write("<key>accounts</key><array>" + entries + "</array>", mode);
    }
    static std::string entry(const std::string& identifier, const std::string& username,
                             const AccountSecrets& secrets = {"a", "b", "c", "d"}) {
        return "<dict>" + text("identifier", identifier) + text("username", username) +
               text("consumerKey", secrets.consumerKey) + text("consumerSecret", secrets.consumerSecret) +
               text("token", secrets.token) + text("tokenSecret", secrets.tokenSecret) + "</dict>";
    }

  private:
    static std::string text(const std::string& key, const std::string& value) {
        return "<key>" + key + "</key><string><![CDATA[" + value + "]]></string>";
    }

    TemporaryDirectory directory_;
    DeviceRoot root_ = DeviceRoot::at(directory_.path()).value();
};

} // namespace prismo
