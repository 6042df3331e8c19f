#pragma once

#include "platform/local/accounts/AccountFile.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace prismo {

/// The person's accounts, as their file has them at the moment, and requests on their behalf. The destructor
/// waits for the completions of `requestAccess`.
class AccountService {
  public:
    /// Returns what sends requests, or null. Called when there is a request to send, on the caller's thread.
    using Sender = std::function<RequestSender*()>;

    /// What `sender` returns must outlive this.
    AccountService(AccountFile file, Sender sender) : file_(std::move(file)), sender_(std::move(sender)) {}
    AccountService(const AccountService&) = delete;
    AccountService& operator=(const AccountService&) = delete;

    /// Grants access if the file exists and is trusted. Returns what is wrong with it; a missing file is not
    /// a problem. Calls `completion` once, on a new thread. If no thread can be made, it calls it before it
    /// returns, with a refusal. Call this on the thread that made the service.
    Result<> requestAccess(std::function<void(bool granted)> completion);
    /// In the file's order. Callable from any thread.
    std::vector<Account> accounts() const;
    /// Signs and sends. Calls `completion` once, on any thread, with the HTTP status, or with 0 if there is
    /// no such account, no sender or no answer. Callable from any thread.
    void send(const AccountRequest& request, std::function<void(int status)> completion) const;

  private:
    AccountFile file_;
    Sender sender_;
    /// A completion and its thread.
    struct Answer {
        std::shared_ptr<std::atomic<bool>> isGiven = std::make_shared<std::atomic<bool>>(false);
        std::jthread thread;
    };
    std::vector<Answer> answers_;
};

} // namespace prismo
