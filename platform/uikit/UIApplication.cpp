#include "platform/uikit/UIApplication.h"

#include "platform/foundation/Device.h"

#include <utility>

namespace prismo {

namespace {

// In points. A phone of the platform's era, until the host sets another size.
constexpr CGRect defaultBounds{{0, 0}, {320, 568}};

std::shared_ptr<UIApplication>& shared() {
    static auto application = std::make_shared<UIApplication>();
    return application;
}

} // namespace

UIApplication::UIApplication()
    : mainScreen_(UIScreen(defaultBounds)), keyWindow_(std::make_shared<UIWindow>(defaultBounds)) {}

const std::shared_ptr<UIApplication>& UIApplication::sharedApplication() { return shared(); }

void UIApplication::restart() { shared() = std::make_shared<UIApplication>(); }

UIInterfaceOrientation UIApplication::statusBarOrientation() const {
    const auto size = mainScreen_ ? mainScreen_->bounds().size : CGSize{};
    return size.width > size.height ? UIInterfaceOrientation::landscapeRight
                                    : UIInterfaceOrientation::portrait;
}

void UIApplication::setScreenSize(CGSize size) {
    const CGRect bounds{{0, 0}, size};
    const auto former = mainScreen_;
    const auto formerOrientation = statusBarOrientation();
    auto& center = Device::current().notificationCenter();
    mainScreen_ = former ? UIScreen(bounds, former->scale()) : UIScreen(bounds);
    const bool turned = former && statusBarOrientation() != formerOrientation;
    center.postNotification(UIApplicationWillChangeStatusBarFrameNotification, shared_from_this());
    if (keyWindow_) keyWindow_->setFrame(bounds);
    if (turned)
        center.postNotification(UIApplicationDidChangeStatusBarOrientationNotification, shared_from_this());
    if (mainScreen_ != former) changed();
}

void UIApplication::present(std::shared_ptr<NSObject> object) {
    presented_.push_back(std::move(object));
    changed();
}

void UIApplication::dismiss(const std::shared_ptr<NSObject>& object) {
    const auto kept = object; // `object` may be an element of the list
    if (std::erase(presented_, kept) > 0) changed();
}

UIAppearance UIApplication::appearanceWhenContainedIn(const Class& container) const {
    const auto found = appearances_.find(&container);
    return found == appearances_.end() ? UIAppearance() : found->second;
}

bool UIApplication::canOpenURL(const std::string& url) { return Device::current().canOpenURL(url); }

bool UIApplication::openURL(const std::string& url) { return Device::current().openURL(url); }

const UIScreen* UIScreen::mainScreen() { return UIApplication::sharedApplication()->mainScreen(); }

} // namespace prismo
