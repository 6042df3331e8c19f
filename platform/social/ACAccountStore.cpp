#include "platform/social/ACAccountStore.h"

#include <utility>

namespace prismo {

std::shared_ptr<ACAccountType>
ACAccountStore::accountTypeWithAccountTypeIdentifier(std::string identifier) const {
    return std::make_shared<ACAccountType>(std::move(identifier));
}

void ACAccountStore::requestAccessToAccountsWithType(const std::shared_ptr<ACAccountType>& /*type*/,
                                                     std::function<void(bool)> completion) {
    Device::current().requestAccountAccess(std::move(completion));
}

std::vector<std::shared_ptr<ACAccount>>
ACAccountStore::accountsWithAccountType(const std::shared_ptr<ACAccountType>& type) const {
    std::vector<std::shared_ptr<ACAccount>> result;
    // A device has accounts of this service only.
    if (type->identifier() != ACAccountTypeIdentifierTwitter) return result;
    for (auto& account : Device::current().accounts())
        result.push_back(std::make_shared<ACAccount>(std::move(account)));
    return result;
}

} // namespace prismo
