#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/views/UIAppearance.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace prismo {

/// How the status bar lies. The numbers are the platform's.
enum class UIInterfaceOrientation { portrait = 1, landscapeRight = 3 };

/// The running application: its window, its screen and what it shows over all pages.
class UIApplication : public NSObject, public Observable {
  public:
    /// The one application of this process; made on first use, with a window that fills the main screen.
    static const std::shared_ptr<UIApplication>& sharedApplication();
    /// Starts a new application; what the former one showed is gone.
    static void restart();

    const std::shared_ptr<UIWindow>& keyWindow() const { return keyWindow_; }
    void setKeyWindow(std::shared_ptr<UIWindow> window) { assign(keyWindow_, std::move(window)); }

    /// Null where there is none.
    const UIScreen* mainScreen() const { return mainScreen_ ? &*mainScreen_ : nullptr; }
    void setMainScreen(std::optional<UIScreen> screen) { assign(mainScreen_, screen); }
    /// As the main screen lies; upright where there is none, and where it is square.
    UIInterfaceOrientation statusBarOrientation() const;
    /// The device is turned or the host's window resized: gives the main screen and the key window that size
    /// (in points) and posts the notifications of the status bar's frame and orientation.
    void setScreenSize(CGSize size);

    /// Alerts, pickers and sheets that wait for the person, the topmost last. They are kept alive.
    const std::vector<std::shared_ptr<NSObject>>& presented() const { return presented_; }
    void present(std::shared_ptr<NSObject> object);
    void dismiss(const std::shared_ptr<NSObject>& object);

    /// The appearance of controls inside pages of exactly that class, for the life of the application.
    UIAppearance appearanceWhenContainedIn(const Class& container) const;
    void setAppearanceWhenContainedIn(const Class& container, const UIAppearance& appearance) {
        assign(appearances_[&container], appearance);
    }

    /// Can some application open a link of that scheme? Callable from every thread.
    bool canOpenURL(const std::string& url);
    /// Asks the device to open the link; false where nobody takes it. Callable from every thread.
    bool openURL(const std::string& url);

    UIApplication();

  private:
    std::optional<UIScreen> mainScreen_;
    std::shared_ptr<UIWindow> keyWindow_;
    std::vector<std::shared_ptr<NSObject>> presented_;
    std::map<const Class*, UIAppearance> appearances_;
};

inline constexpr const char* UIApplicationDidChangeStatusBarOrientationNotification =
    "UIApplicationDidChangeStatusBarOrientationNotification";
inline constexpr const char* UIApplicationWillChangeStatusBarFrameNotification =
    "UIApplicationWillChangeStatusBarFrameNotification";

/// The topmost presented object of a class, or null.
template <typename Object>
std::shared_ptr<Object> topmostPresented() {
    const auto& presented = UIApplication::sharedApplication()->presented();
    for (auto object = presented.rbegin(); object != presented.rend(); ++object)
        if (auto found = std::dynamic_pointer_cast<Object>(*object)) return found;
    return nullptr;
}

} // namespace prismo
