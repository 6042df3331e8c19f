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

/// The orientation of the status bar. The values are the platform's.
enum class UIInterfaceOrientation { portrait = 1, landscapeRight = 3 };

/// The running application: its window, its screen, and what it shows on top of all pages.
class UIApplication : public NSObject, public Observable {
  public:
    /// The application of this process, created on first use with a window that fills the main screen.
    static const std::shared_ptr<UIApplication>& sharedApplication();
    /// Starts a new application; everything that the old one showed is gone.
    static void restart();

    const std::shared_ptr<UIWindow>& keyWindow() const { return keyWindow_; }
    void setKeyWindow(std::shared_ptr<UIWindow> window) { assign(keyWindow_, std::move(window)); }

    /// Null if there is none.
    const UIScreen* mainScreen() const { return mainScreen_ ? &*mainScreen_ : nullptr; }
    void setMainScreen(std::optional<UIScreen> screen) { assign(mainScreen_, screen); }
    /// Follows the main screen; portrait if there is no screen or if it is square.
    UIInterfaceOrientation statusBarOrientation() const;
    /// Called when the device rotates or the host's window is resized. Gives the main screen and the key
    /// window this size, in points, and posts the notification of the status bar's frame and, if the
    /// orientation changed, that of its orientation.
    void setScreenSize(CGSize size);

    /// Alerts, pickers and sheets that wait for the person, topmost last. The application keeps them alive.
    const std::vector<std::shared_ptr<NSObject>>& presented() const { return presented_; }
    void present(std::shared_ptr<NSObject> object);
    void dismiss(const std::shared_ptr<NSObject>& object);

    /// The appearance of controls inside pages of exactly this class. It lasts as long as the application.
    UIAppearance appearanceWhenContainedIn(const Class& container) const;
    void setAppearanceWhenContainedIn(const Class& container, const UIAppearance& appearance) {
        assign(appearances_[&container], appearance);
    }

    /// True if some application can open links with this scheme. Callable from any thread.
    bool canOpenURL(const std::string& url);
    /// Asks the device to open the link; returns false if nothing accepts it. Callable from any thread.
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

/// The topmost presented object of type `Object`, or null.
template <typename Object>
std::shared_ptr<Object> topmostPresented() {
    const auto& presented = UIApplication::sharedApplication()->presented();
    for (auto object = presented.rbegin(); object != presented.rend(); ++object)
        if (auto found = std::dynamic_pointer_cast<Object>(*object)) return found;
    return nullptr;
}

} // namespace prismo
