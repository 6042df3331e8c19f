#include "settings/bundles/BundleListController.h"

#include "platform/uikit/graphics/UIImage.h"

#include <utility>

namespace prismo::settings {

const Class& BundleListController::classObject() {
    static const Class objectClass("BundleListController", &PSListController::classObject(),
                                   [] { return std::make_shared<BundleListController>(); },
                                   {method<&BundleListController::openBundle>("openBundle:")});
    return objectClass;
}

std::shared_ptr<BundleListController>
BundleListController::initWithEntries(std::vector<PreferenceEntry> entries, std::string rootPath, Load load,
                                      Complain complain) {
    auto page = std::make_shared<BundleListController>();
    page->entries_ = std::move(entries);
    page->rootPath_ = std::move(rootPath);
    page->load_ = std::move(load);
    page->complain_ = std::move(complain);
    page->setTitle("Settings");
    return page;
}

std::shared_ptr<PSSpecifierList> BundleListController::specifiers() {
    if (specifiers_) return specifiers_;
    specifiers_ = std::make_shared<PSSpecifierList>();
    const auto footer = entries_.empty()
                            ? "No settings bundle is installed on the device at " + rootPath_ + "."
                            : "The device at " + rootPath_;
    specifiers_->push_back(PSSpecifier::groupSpecifierWithHeader("", footer));
    for (const auto& entry : entries_) {
        // The page's class is known only once the bundle is loaded. Until then any class marks the row as one
        // that opens a page.
        auto row = PSSpecifier::preferenceSpecifierNamed(entry.label, sharedSelf<BundleListController>(), "",
                                                         "", &PSViewController::classObject(),
                                                         PSCellType::link, nullptr);
        row->setIdentifier(entry.bundle);
        row->setButtonAction("openBundle:");
        if (!entry.iconPath.empty())
            row->setProperty(UIImage::imageWithContentsOfFile(entry.iconPath), "iconImage");
        if (!entry.isLoadable) row->setProperty(false, "enabled");
        specifiers_->push_back(std::move(row));
    }
    return specifiers_;
}

void BundleListController::openBundle(const std::shared_ptr<PSSpecifier>& row) {
    const auto principal = load_(row->identifier());
    if (!principal) return complain_(principal.problem().text());
    row->setDetailControllerClass(principal.value());
    openDetailPage(row);
}

} // namespace prismo::settings
