#include "settings/model/Phone.h"

#include "settings/model/Colors.h"
#include "settings/model/overlays/Alert.h"
#include "settings/model/overlays/Banner.h"
#include "settings/model/overlays/ColorPicker.h"
#include "settings/model/overlays/Compose.h"
#include "settings/model/pages/Page.h"

#include "platform/uikit/UIApplication.h"

#include <algorithm>
#include <QFileInfo>
#include <utility>

namespace prismo::settings {

Phone::Phone(Start start)
    : start_(std::move(start)), recentColors_(start_.stateFile), pages_([this](const auto& object) {
          auto page = std::dynamic_pointer_cast<UIViewController>(object);
          return page ? std::make_unique<Page>(std::move(page), taps_) : nullptr;
      }),
      overlays_([this](const auto& object) { return makeOverlay(object); }) {
    split_->setViewControllers({navigation_});
    pageChanges_.follow(*navigation_);
    barChanges_.follow(*navigation_->navigationBar());
    applicationChanges_.follow(*UIApplication::sharedApplication());
    lookAtApplication();
}

Phone::~Phone() = default;

void Phone::open(const std::shared_ptr<UIViewController>& firstPage) {
    navigation_->pushViewController(firstPage, false);
    lookAtPages();
}

void Phone::lookAtPages() {
    const auto& stack = navigation_->viewControllers();
    pages_.show({stack.begin(), stack.end()});
}

QColor Phone::tint() const { return toQColor(navigation_->navigationBar()->tintColor()); }

QColor Phone::barTint() const { return toQColor(navigation_->navigationBar()->barTintColor()); }

QColor Phone::titleColor() const { return toQColor(navigation_->navigationBar()->titleColor()); }

void Phone::lookAtApplication() {
    const auto& application = *UIApplication::sharedApplication();
    overlays_.show(application.presented());
    windowChanges_.followNothing();
    if (application.keyWindow()) windowChanges_.follow(*application.keyWindow());
    lookAtWindow();
}

void Phone::lookAtWindow() {
    const auto& window = UIApplication::sharedApplication()->keyWindow();
    std::vector<std::unique_ptr<Banner>> banners;
    for (const auto& view : window ? window->subviews() : std::vector<std::shared_ptr<UIView>>()) {
        const auto button = std::dynamic_pointer_cast<UIButton>(view);
        if (!button) continue;
        const auto known = std::ranges::find_if(
            banners_, [&](const auto& banner) { return banner && banner->button() == button; });
        banners.push_back(known == banners_.end() ? std::make_unique<Banner>(button, taps_)
                                                  : std::move(*known));
    }
    banners_.swap(banners);
    emit bannersChanged();
}

QVariantList Phone::banners() const {
    QVariantList list;
    for (const auto& banner : banners_)
        list.append(QVariant::fromValue<QObject*>(banner.get()));
    return list;
}

bool Phone::coversStatusBar() const {
    const auto& window = UIApplication::sharedApplication()->keyWindow();
    return window && window->windowLevel() >= UIWindowLevelStatusBar;
}

QString Phone::rootName() const { return QFileInfo(start_.rootPath).fileName(); }

void Phone::back() {
    taps_.add("Phone::back", [navigation = navigation_] { navigation->popViewController(true); });
}

void Phone::setSize(double width, double height) {
    taps_.add("Phone::setSize", [=] { UIApplication::sharedApplication()->setScreenSize({width, height}); });
}

std::unique_ptr<QObject> Phone::makeOverlay(const std::shared_ptr<NSObject>& object) {
    if (auto alert = std::dynamic_pointer_cast<UIAlertView>(object))
        return std::make_unique<Alert>(std::move(alert), taps_);
    if (auto picker = std::dynamic_pointer_cast<SWColorAlert>(object))
        return std::make_unique<ColorPicker>(std::move(picker), recentColors_, taps_);
    if (auto sheet = std::dynamic_pointer_cast<SLComposeViewController>(object))
        return std::make_unique<Compose>(std::move(sheet), taps_);
    return nullptr;
}

} // namespace prismo::settings
