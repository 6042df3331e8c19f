#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/views/UIButton.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace prismo {

/// A banner that fades in over the status bar, stays for a while and fades out. A tap on it sends an action.
/// It can observe a system-wide notification; every posting then shows it for 5.5 seconds.
///
/// It keeps its target alive. If its owner is also its target, the two form a cycle on purpose, until the
/// owner lets go of the banner.
class SWStatusBarAlert : public NSObject {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }
    ~SWStatusBarAlert() override;

    /// Builds a banner without showing it. Without `notification` it observes none; without `action` or
    /// `target` a tap does nothing.
    static std::shared_ptr<SWStatusBarAlert> initWithMessage(std::string message,
                                                             std::optional<std::string> notification,
                                                             std::optional<std::string> action,
                                                             std::shared_ptr<NSObject> target);

    /// Fades in, and calls `hideOverlay` `seconds` after the fade is complete. Does not cancel the timer of
    /// an earlier show, which can hide the banner sooner.
    void showOverlayForSeconds(float seconds);
    void hideOverlay();
    /// Resizes the banner to the screen's width.
    void updateStatusBarFrame();

    /// The window's level at creation, truncated toward zero. The window returns to it as soon as hiding
    /// starts.
    std::int32_t oldLevel() const { return oldLevel_; }
    void setOldLevel(std::int32_t level) { oldLevel_ = level; }
    /// The key window at creation, or null.
    const std::shared_ptr<UIWindow>& applicationWindow() const { return applicationWindow_; }
    void setApplicationWindow(std::shared_ptr<UIWindow> window) { applicationWindow_ = std::move(window); }
    // Changes to these take effect at the next show.
    const std::string& message() const { return message_; }
    void setMessage(std::string message) { message_ = std::move(message); }
    const UIColor& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(const UIColor& color) { backgroundColor_ = color; }
    const UIColor& textColor() const { return textColor_; }
    void setTextColor(const UIColor& color) { textColor_ = color; }

    const std::optional<std::string>& notification() const { return notification_; }
    const std::optional<std::string>& action() const { return action_; }
    void setAction(std::optional<std::string> action) { action_ = std::move(action); }
    const std::shared_ptr<NSObject>& target() const { return target_; }
    void setTarget(std::shared_ptr<NSObject> target) { target_ = std::move(target); }
    /// The view that is the banner.
    const std::shared_ptr<UIButton>& actionButton() const { return actionButton_; }
    void setActionButton(std::shared_ptr<UIButton> button) { actionButton_ = std::move(button); }

  private:
    std::int32_t oldLevel_ = 0;
    std::shared_ptr<UIWindow> applicationWindow_;
    std::string message_;
    std::optional<std::string> notification_;
    std::optional<std::string> action_;
    std::shared_ptr<NSObject> target_;
    std::shared_ptr<UIButton> actionButton_;
    UIColor backgroundColor_;
    UIColor textColor_;
};

/// The callback of the notification: shows the observing banner for 5.5 seconds. Does nothing if the observer
/// is not a banner.
void showStatusBarAlert(const std::shared_ptr<NSObject>& observer);

} // namespace prismo
