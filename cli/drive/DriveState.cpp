#include "cli/drive/DriveSession.h"
#include "kit/FBBarButtonItem.h"

#include "platform/social/SLComposeViewController.h"
#include "platform/swatchkit/ColorText.h"
#include "platform/swatchkit/SWColorAlert.h"
#include "platform/text/Number.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/views/UIAlertView.h"

namespace prismo::cli {

using nlohmann::ordered_json;

namespace {

ordered_json colorJson(const std::optional<UIColor>& color) {
    if (!color) return nullptr;
    return hexFromColor(*color) + hexText(byteFromComponent(color->alpha));
}

ordered_json sizeJson(const std::shared_ptr<UIImage>& image) {
    return image ? ordered_json{image->size().width, image->size().height} : ordered_json();
}

ordered_json textJson(const std::optional<std::string>& text) {
    return text ? ordered_json(*text) : ordered_json();
}

ordered_json rightButtonJson(UIViewController& page) {
    const auto& item = page.navigationItem().rightBarButtonItem();
    if (!item) return nullptr;
    const auto shareButton = std::dynamic_pointer_cast<FBBarButtonItem>(item);
    return {{"image", sizeJson(item->image())},
            {"backgroundImage", sizeJson(item->backgroundImage())},
            {"shareText", shareButton ? ordered_json(shareButton->shareText()) : ordered_json()}};
}

ordered_json navigationBarJson(const UINavigationController& navigation) {
    const auto& bar = *navigation.navigationBar();
    return {{"rightButton", rightButtonJson(*navigation.topViewController())},
            {"tint", colorJson(bar.tintColor())},
            {"barTint", colorJson(bar.barTintColor())},
            {"titleColor", colorJson(bar.titleColor())}};
}

ordered_json statusAlertJson(const std::shared_ptr<SWStatusBarAlert>& alert) {
    if (!alert) return nullptr;
    const auto& button = *alert->actionButton();
    const auto frame = button.frame();
    const auto font = button.titleLabel()->font();
    return {{"hidden", button.isHidden()},
            {"attached", button.superview() != nullptr},
            {"alpha", button.alpha()},
            {"frame", {frame.origin.x, frame.origin.y, frame.size.width, frame.size.height}},
            {"title", button.title()},
            {"titleColor", colorJson(button.titleColor())},
            {"backgroundColor", colorJson(button.backgroundColor())},
            {"font", {{"size", font.pointSize}, {"bold", font.isBold}}}};
}

ordered_json alertsJson() {
    auto alerts = ordered_json::array();
    for (const auto& object : UIApplication::sharedApplication()->presented())
        if (const auto alert = std::dynamic_pointer_cast<UIAlertView>(object))
            alerts.push_back({{"title", textJson(alert->title())},
                              {"message", textJson(alert->message())},
                              {"buttons", alert->buttonTitles()},
                              {"tag", alert->tag()}});
    return alerts;
}

ordered_json pickerJson() {
    const auto picker = topmostPresented<SWColorAlert>();
    if (!picker) return nullptr;
    return {{"color", colorJson(picker->color())},
            {"alpha", picker->color().alpha},
            {"showsAlpha", picker->showsAlpha()}};
}

ordered_json composeJson() {
    const auto sheet = topmostPresented<SLComposeViewController>();
    if (!sheet) return nullptr;
    return {{"service", sheet->serviceName()}, {"text", sheet->text()}};
}

} // namespace

ordered_json driveState(const Prismo2PrefsListController& root, const UINavigationController& navigation) {
    auto stack = ordered_json::array();
    for (const auto& page : navigation.viewControllers())
        stack.push_back(page->isa().name());
    const auto& window = UIApplication::sharedApplication()->keyWindow();
    return {{"stack", std::move(stack)},
            {"title", navigation.topViewController()->title()},
            {"scope", {{"inApp", root.isInAppScope()}, {"app", textJson(root.scopeId())}}},
            {"navigationBar", navigationBarJson(navigation)},
            {"windowLevel", window ? ordered_json(window->windowLevel()) : ordered_json()},
            {"statusAlert", statusAlertJson(root.statusAlert())},
            {"alerts", alertsJson()},
            {"picker", pickerJson()},
            {"compose", composeJson()}};
}

} // namespace prismo::cli
