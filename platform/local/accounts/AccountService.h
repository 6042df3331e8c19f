#pragma once

#include "platform/local/accounts/AccountFile.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace prismo {

/// The person's accounts, as their file has them at the moment, and requests in their name. Its end waits for
/// the completions of `requestAccess`.
class AccountService {
  public:
    /// What sends requests, or null; asked for when there is one to send, on that one's thread.
    using Sender = std::function<RequestSender*()>;

    /// What `sender` returns outlives it.
    AccountService(AccountFile file, Sender sender) : file_(std::move(file)), sender_(std::move(sender)) {}
    AccountService(const AccountService&) = delete;
    AccountService& operator=(const AccountService&) = delete;

    /// Granted where the file is there and believed; returns what is wrong with it. `completion` is called
    /// once, on a thread of its own; where none can be made, refused and at once, on the caller's. Belongs to
    /// the thread that made the service.
    std::optional<FileProblem> requestAccess(std::function<void(bool granted)> completion);
    /// In the file's order. Callable from every thread.
    std::vector<Account> accounts() const;
    /// Signs and sends. `completion` is called once, on whatever thread, with the HTTP status, or 0 where
    /// there is no such account, no sender or no answer. Callable from every thread.
    void send(const AccountRequest& request, std::function<void(int status)> completion) const;

  private:
    AccountFile file_;
    Sender sender_;
    /// A completion on its thread.
    struct Answer {
        std::shared_ptr<std::atomic<bool>> isGiven = std::make_shared<std::atomic<bool>>(false);
        std::jthread thread;
    };
    std::vector<Answer> answers_;
};

} // namespace prismo
