#include "platform/local/accounts/AccountService.h"

#include <algorithm>
#include <system_error>

namespace prismo {

Result<> AccountService::requestAccess(std::function<void(bool)> completion) {
    const auto entries = file_.read();
    const bool granted = static_cast<bool>(entries);
    std::erase_if(answers_, [](const Answer& answer) { return answer.isGiven->load(); });
    Answer answer;
    try {
        answer.thread = std::jthread([completion, granted, isGiven = answer.isGiven] {
            try {
                completion(granted);
            } catch (const NoCurrentDevice&) {
                // The host has let the device go in the meantime, so nobody needs the answer.
            }
            *isGiven = true;
        });
        answers_.push_back(std::move(answer));
    } catch (const std::system_error&) {
        completion(false);
    }
    if (granted || entries.problem().kind == Problem::Kind::missing) return Done{};
    return entries.problem();
}

std::vector<Account> AccountService::accounts() const {
    std::vector<Account> result;
    auto entries = file_.read();
    if (!entries) return result;
    for (auto& entry : entries.value())
        result.push_back(std::move(entry.account));
    return result;
}

void AccountService::send(const AccountRequest& request, std::function<void(int)> completion) const {
    const auto entries = file_.read();
    if (!entries) return completion(0);
    const auto found = std::ranges::find_if(entries.value(), [&](const AccountFile::Entry& entry) {
        return entry.account.identifier == request.account.identifier;
    });
    auto* sender = found == entries.value().end() ? nullptr : sender_();
    if (!sender) return completion(0);
    sender->send(request, found->secrets, std::move(completion));
}

} // namespace prismo
