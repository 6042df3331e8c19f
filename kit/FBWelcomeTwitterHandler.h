#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/social/ACAccountStore.h"
#include "platform/uikit/views/UIAlertView.h"

#include <memory>
#include <optional>
#include <string>

namespace prismo {

/// Guides a person through following an account: the prompt, the choice among their accounts, the requests.
/// It is the delegate of both alerts, and each of them keeps it alive.
class FBWelcomeTwitterHandler : public NSObject, public UIAlertViewDelegate {
  public:
    const std::string& username() const { return username_; }
    void setUsername(std::string username) { username_ = std::move(username); }

    void alertViewClickedButtonAtIndex(UIAlertView& alert, std::size_t index) override;
    /// Requests access to the person's accounts. Follows at once with a single account, asks which to use if
    /// there are several, and opens the profile if there are none. Does nothing if access is refused.
    void dropMeAFollow();
    /// Sends the request without waiting for its answer. Callable from any thread.
    void followWithAccount(const std::shared_ptr<ACAccount>& account);

  private:
    void accessGranted(const std::vector<std::shared_ptr<ACAccount>>& accounts);
    void chooseAmong(const std::vector<std::shared_ptr<ACAccount>>& accounts);

    std::string username_;
};

/// Invites the person to follow `username`. Without `title` the alert has no title; without `message` it
/// shows the maker's own invitation.
void FBShowTwitterFollowAlert(const std::optional<std::string>& title,
                              const std::optional<std::string>& message, const std::string& username);

} // namespace prismo
