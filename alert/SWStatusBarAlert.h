#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/views/UIButton.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace prismo {

/// A banner that fades in over the status bar, stays for some seconds and fades out; a tap on it sends an
/// action. It can arm itself on a system-wide notification, each posting of which shows it.
///
/// It keeps its target alive. An owner that is its target too makes a cycle with it, which stands on purpose.
class SWStatusBarAlert : public NSObject {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }
    ~SWStatusBarAlert() override;

    /// A banner that is built and not shown. Without `notification` it shows itself for nothing, without
    /// `action` or `target` a tap does nothing.
    static std::shared_ptr<SWStatusBarAlert> initWithMessage(std::string message,
                                                             std::optional<std::string> notification,
                                                             std::optional<std::string> action,
                                                             std::shared_ptr<NSObject> target);

    /// Fades in; `seconds` after that is done, `hideOverlay` follows. A timer of an earlier show is left
    /// running.
    void showOverlayForSeconds(float seconds);
    void hideOverlay();
    /// Fits the banner to the screen's width.
    void updateStatusBarFrame();

    /// The window's level at creation, without its fraction; the window has it again as soon as hiding
    /// starts.
    std::int32_t oldLevel() const { return oldLevel_; }
    void setOldLevel(std::int32_t level) { oldLevel_ = level; }
    /// The key window at creation, or null.
    const std::shared_ptr<UIWindow>& applicationWindow() const { return applicationWindow_; }
    void setApplicationWindow(std::shared_ptr<UIWindow> window) { applicationWindow_ = std::move(window); }
    // These count from the next show on.
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
    /// The banner itself.
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

/// Shows the banner that observes a notification; does nothing without one.
void showStatusBarAlert(const std::shared_ptr<NSObject>& observer);

} // namespace prismo
