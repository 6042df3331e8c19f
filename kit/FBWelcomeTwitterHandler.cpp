#include "kit/FBWelcomeTwitterHandler.h"

#include "kit/FBOpenLinks.h"

#include "platform/social/SLRequest.h"

namespace prismo {

namespace {

constexpr int promptTag = 1;
constexpr int chooserTag = 2;
// An alert holds its handler and its accounts as associated objects under these selectors.
constexpr const char* handlerKey = "show";
constexpr const char* accountsKey = "description";

constexpr const char* invitation = "Hey there! Thanks for installing my tweak! If you'd like to follow me on "
                                   "Twitter for more updates, tweak giveaways and other cool stuff, hit "
                                   "the button below!";

void onMainThread(std::function<void()> block) { Device::current().runLoop().perform(std::move(block)); }

void showThanks(const char* message, const char* button) {
    std::make_shared<UIAlertView>("Done <3", message, nullptr, button)->show();
}

} // namespace

void FBWelcomeTwitterHandler::alertViewClickedButtonAtIndex(UIAlertView& alert, std::size_t index) {
    if (alert.tag() == chooserTag) {
        const auto* attached = alert.associatedObject(accountsKey).as<Array>();
        const auto accounts = attached ? *attached : Array();
        if (index == 0)
            for (const auto& account : accounts)
                followWithAccount(account.object<ACAccount>());
        else if (index <= accounts.size())
            followWithAccount(accounts[index - 1].object<ACAccount>());
        showThanks(
            "Just moving around a few things aaaaaand..... hah! Just kidding. Thanks for following me. Enjoy "
            "the tweak! :)",
            "Will do!");
    } else if (alert.tag() == promptTag && index == 1) {
        dropMeAFollow();
    }
}

void FBWelcomeTwitterHandler::dropMeAFollow() {
    const auto store = std::make_shared<ACAccountStore>();
    const auto type = store->accountTypeWithAccountTypeIdentifier(ACAccountTypeIdentifierTwitter);
    const auto self = sharedSelf<FBWelcomeTwitterHandler>();
    store->requestAccessToAccountsWithType(type, [store, type, self](bool granted) {
        if (granted) self->accessGranted(store->accountsWithAccountType(type));
    });
}

void FBWelcomeTwitterHandler::accessGranted(const std::vector<std::shared_ptr<ACAccount>>& accounts) {
    if (accounts.empty()) {
        // This stays on the accounts service's thread; only the alerts move to the main thread.
        FBOpenTwitterUsername(username_);
    } else if (accounts.size() == 1) {
        followWithAccount(accounts.front());
        onMainThread([] { showThanks("Awesome. Thanks for following me ^-^", "You're welcome <3"); });
    } else {
        onMainThread(
            [self = sharedSelf<FBWelcomeTwitterHandler>(), accounts] { self->chooseAmong(accounts); });
    }
}

void FBWelcomeTwitterHandler::chooseAmong(const std::vector<std::shared_ptr<ACAccount>>& accounts) {
    const auto self = sharedSelf<FBWelcomeTwitterHandler>();
    const auto chooser = std::make_shared<UIAlertView>(
        std::nullopt,
        "Looks like you have multiple Twitter accounts on this device. Which one would you like to use?",
        self, "All!");
    for (const auto& account : accounts)
        chooser->addButtonWithTitle(account->username());
    chooser->setTag(chooserTag);
    chooser->setAssociatedObject(handlerKey, self);
    chooser->setAssociatedObject(accountsKey, Array(accounts.begin(), accounts.end()));
    chooser->show();
}

void FBWelcomeTwitterHandler::followWithAccount(const std::shared_ptr<ACAccount>& account) {
    const auto request = SLRequest::requestForServiceType(
        SLServiceTypeTwitter, SLRequestMethod::post, "https://api.twitter.com/1.1/friendships/create.json",
        {{"screen_name", username_}, {"follow", "FALSE"}});
    request->setAccount(account);
    request->performRequestWithHandler([](int /*status*/) {});
}

void FBShowTwitterFollowAlert(const std::optional<std::string>& title,
                              const std::optional<std::string>& message, const std::string& username) {
    const auto handler = std::make_shared<FBWelcomeTwitterHandler>();
    handler->setUsername(username);
    const auto prompt =
        std::make_shared<UIAlertView>(title, message.value_or(invitation), handler, "No thanks!");
    prompt->addButtonWithTitle("I'd love to!");
    prompt->setTag(promptTag);
    prompt->setAssociatedObject(handlerKey, handler);
    prompt->show();
}

} // namespace prismo
