#pragma once

#include "kit/FBWelcomeTwitterHandler.h"
#include "tests/support/MemoryWorld.h"

#include <stdexcept>

namespace prismo {

/// A person with accounts who is invited to follow "quillmoth".
struct FollowWorld : MemoryWorld {
    using Lines = std::vector<std::string>;

    /// Gives the person accounts with these names and grants access to them.
    void setAccounts(const Lines& usernames) {
        std::vector<Account> accounts;
        for (const auto& username : usernames)
            accounts.push_back({"id-" + username, username});
        device.setAccounts(MemoryDevice::AccountAccess::granted, std::move(accounts));
    }
    static bool isAlertShown() { return topmostPresented<UIAlertView>() != nullptr; }
    /// The topmost alert. Throws if there is none.
    static std::shared_ptr<UIAlertView> alert() {
        if (!isAlertShown()) throw std::logic_error("no alert");
        return topmostPresented<UIAlertView>();
    }
    static std::shared_ptr<UIAlertView> showPrompt() {
        FBShowTwitterFollowAlert("Welcome", "Follow me?", "quillmoth");
        return alert();
    }
    /// Taps "I'd love to!" and lets everything that follows happen.
    void accept(const std::shared_ptr<UIAlertView>& prompt = showPrompt()) {
        prompt->clickButtonAtIndex(1);
        runFor(1);
    }
    static std::weak_ptr<FBWelcomeTwitterHandler> handlerOf(const UIAlertView& alert) {
        return alert.associatedObject("show").object<FBWelcomeTwitterHandler>();
    }
    /// The accounts that requests were made with, in order.
    Lines requests() {
        Lines accounts;
        for (const auto& effect : effectsOfKind("request"))
            accounts.push_back(effect.details.at("account").text());
        return accounts;
    }
};

} // namespace prismo
