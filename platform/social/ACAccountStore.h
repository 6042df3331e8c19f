#pragma once

#include "platform/foundation/Device.h"
#include "platform/foundation/NSObject.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace prismo {

inline constexpr const char* ACAccountTypeIdentifierTwitter = "twitter";

/// A kind of account, named by the identifier of its service.
class ACAccountType : public NSObject {
  public:
    explicit ACAccountType(std::string identifier) : identifier_(std::move(identifier)) {}
    const std::string& identifier() const { return identifier_; }

  private:
    std::string identifier_;
};

/// One of the person's accounts.
class ACAccount : public NSObject {
  public:
    explicit ACAccount(Account account) : account_(std::move(account)) {}
    const std::string& username() const { return account_.username; }
    const Account& account() const { return account_; }

  private:
    Account account_;
};

/// The device's accounts. A process must request access first. Callable from any thread.
class ACAccountStore : public NSObject {
  public:
    std::shared_ptr<ACAccountType> accountTypeWithAccountTypeIdentifier(std::string identifier) const;
    /// Calls `completion` once, on a thread of the accounts service.
    void requestAccessToAccountsWithType(const std::shared_ptr<ACAccountType>& type,
                                         std::function<void(bool granted)> completion);
    /// In the service's order. Empty for any type but Twitter's.
    std::vector<std::shared_ptr<ACAccount>>
    accountsWithAccountType(const std::shared_ptr<ACAccountType>& type) const;
};

} // namespace prismo
