#pragma once

#include "alert/SWStatusBarAlert.h"
#include "tests/support/MemoryWorld.h"

namespace prismo {

/// An application with a window, and a banner in it.
struct BannerWorld : MemoryWorld {
    /// Records the senders of "tapped:".
    struct Target : NSObject {
        static const Class& classObject() {
            static const Class objectClass("Target", &NSObject::classObject(), nullptr,
                                           {method<&Target::tapped>("tapped:")});
            return objectClass;
        }
        const Class& isa() const override { return classObject(); }
        void tapped(const std::shared_ptr<NSObject>& sender) { senders.push_back(sender); }

        std::vector<std::shared_ptr<NSObject>> senders;
    };

    void make(std::optional<std::string> notification = std::nullopt,
              std::optional<std::string> action = std::nullopt,
              const std::shared_ptr<NSObject>& actionTarget = nullptr) {
        banner = SWStatusBarAlert::initWithMessage("Something changed", std::move(notification),
                                                   std::move(action), actionTarget);
    }
    UIButton& button() { return *banner->actionButton(); }
    /// Runs until this time since the start.
    void runTo(std::chrono::nanoseconds moment) { device.runLoop().run(moment - now()); }

    std::shared_ptr<UIWindow> window = UIApplication::sharedApplication()->keyWindow();
    std::shared_ptr<Target> target = std::make_shared<Target>();
    std::shared_ptr<SWStatusBarAlert> banner;
};

} // namespace prismo
