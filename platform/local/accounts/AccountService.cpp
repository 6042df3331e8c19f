#include "platform/local/accounts/AccountService.h"

#include <algorithm>
#include <system_error>

namespace prismo {

std::optional<FileProblem> AccountService::requestAccess(std::function<void(bool)> completion) {
    std::optional<FileProblem> problem;
    const bool granted = file_.read(&problem).has_value();
    std::erase_if(answers_, [](const Answer& answer) { return answer.isGiven->load(); });
    Answer answer;
    try {
        answer.thread = std::jthread([completion, granted, isGiven = answer.isGiven] {
            try {
                completion(granted);
            } catch (const NoCurrentDevice&) {
                // The host has let go of the device while this was on its way: nobody is left to be told.
            }
            *isGiven = true;
        });
        answers_.push_back(std::move(answer));
    } catch (const std::system_error&) {
        completion(false);
    }
    return problem;
}

std::vector<Account> AccountService::accounts() const {
    std::vector<Account> result;
    for (auto& entry : file_.read().value_or(AccountFile::Entries{}))
        result.push_back(std::move(entry.account));
    return result;
}

void AccountService::send(const AccountRequest& request, std::function<void(int)> completion) const {
    const auto entries = file_.read().value_or(AccountFile::Entries{});
    const auto found = std::ranges::find_if(entries, [&](const AccountFile::Entry& entry) {
        return entry.account.identifier == request.account.identifier;
    });
    auto* sender = found == entries.end() ? nullptr : sender_();
    if (!sender) return completion(0);
    sender->send(request, found->secrets, std::move(completion));
}

} // namespace prismo
