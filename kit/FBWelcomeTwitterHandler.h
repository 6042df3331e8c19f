#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/social/ACAccountStore.h"
#include "platform/uikit/views/UIAlertView.h"

#include <memory>
#include <optional>
#include <string>

namespace prismo {

/// Leads through following an account: the prompt, the choice among the person's accounts, the requests. It
/// is the delegate of both alerts, and each of them keeps it alive.
class FBWelcomeTwitterHandler : public NSObject, public UIAlertViewDelegate {
  public:
    const std::string& username() const { return username_; }
    void setUsername(std::string username) { username_ = std::move(username); }

    void alertViewClickedButtonAtIndex(UIAlertView& alert, std::size_t index) override;
    /// Asks for access to the person's accounts and follows through them; with none, opens the profile
    /// instead.
    void dropMeAFollow();
    /// Sends the request and does not wait for its answer. Callable from every thread.
    void followWithAccount(const std::shared_ptr<ACAccount>& account);

  private:
    void accessGranted(const std::vector<std::shared_ptr<ACAccount>>& accounts);
    void chooseAmong(const std::vector<std::shared_ptr<ACAccount>>& accounts);

    std::string username_;
};

/// Invites the person to follow `username`. Without `message` the maker's own invitation is shown.
void FBShowTwitterFollowAlert(const std::optional<std::string>& title,
                              const std::optional<std::string>& message, const std::string& username);

} // namespace prismo
