#pragma once

#include "prefs/SettingsFile.h"
#include "screens/appscope/Prismo2AppScope.h"
#include "screens/appscope/PXApplicationListDataSource.h"
#include "screens/Bundle.h"
#include "screens/root/Prismo2PrefsListController.h"
#include "tests/support/MemoryWorld.h"
#include "tests/support/RowText.h"

#include "platform/uikit/controllers/UINavigationController.h"

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace prismo {

/// A device with the bundle and an application "Example", and a root page that is not on screen yet.
struct World : MemoryWorld {
    static constexpr const char* exampleApp = "com.example.app";

    World() {
        registerPrismo2Prefs();
        device.setFile("/Applications/Example.app/icon.png", {1, 2, 3});
        device.setApplications({userApp(exampleApp, "Example", "/Applications/Example.app/icon.png")});
        device.setTaskOutput([](const auto&, const auto&) { return "Version: 2.0.1\n"; });
        page = std::make_shared<Prismo2PrefsListController>();
    }

    ~World() override {
        // The page and its banner keep each other alive.
        if (page) page->setStatusAlert(nullptr);
    }

    void enterAppScope() { page->setIsInAppScope(true); }
    void chooseApp(const std::string& identifier = exampleApp) {
        enterAppScope();
        page->setScopeId(identifier);
    }

    void store(Dictionary settings) { device.setPropertyList(settingsFilePath, std::move(settings)); }
    /// The current content of the file; nullopt if it is missing or unreadable.
    std::optional<Dictionary> stored() { return device.readPropertyList(settingsFilePath); }

    /// Shows the page on screen, as a host does.
    void show() {
        navigation = std::make_shared<UINavigationController>();
        navigation->pushViewController(page, false);
    }
    /// Taps a row of a page on screen.
    static void tap(PSListController& shown, const PSSpecifier& row) {
        const auto position = shown.indexPathForSpecifier(row);
        if (!position) throw std::logic_error("no row to tap");
        shown.tapRow(*position);
    }

    /// The page's first row with this name that is not a group. Throws if there is none.
    std::shared_ptr<PSSpecifier> rowNamed(const std::string& name) {
        return rowWhere([&](const PSSpecifier& row) {
            return row.cellType() != PSCellType::group && row.name() == name;
        });
    }
    std::shared_ptr<PSSpecifier> groupNamed(const std::string& name) {
        return rowWhere([&](const PSSpecifier& row) {
            return row.cellType() == PSCellType::group && row.name() == name;
        });
    }
    std::shared_ptr<PSSpecifier> rowOfKey(const std::string& key) {
        return rowWhere([&](const PSSpecifier& row) { return row.propertyForKey("key").isEqual(key); });
    }
    /// The color row of an element, which comes right before its type row.
    std::shared_ptr<PSSpecifier> colorRowOf(const std::string& slug) {
        const auto rows = page->rows();
        const auto type = std::ranges::find(*rows, rowOfKey(slug + "_color_type"));
        return type[-1];
    }
    bool hasRowNamed(const std::string& name) {
        return std::ranges::any_of(*page->rows(), [&](const auto& row) { return row->name() == name; });
    }

    /// Breaks the link through which a picker's data source keeps it alive.
    static void releasePicker(UINavigationController& stack) {
        const auto picker = std::dynamic_pointer_cast<Prismo2AppScope>(stack.topViewController());
        if (!picker) return;
        std::dynamic_pointer_cast<PXApplicationListDataSource>(picker->table()->dataSource())
            ->setRootController(nullptr);
    }

    std::shared_ptr<Prismo2PrefsListController> page;
    std::shared_ptr<UINavigationController> navigation;

  private:
    template <typename Predicate>
    std::shared_ptr<PSSpecifier> rowWhere(Predicate predicate) {
        const auto rows = page->rows();
        const auto found = std::ranges::find_if(*rows, [&](const auto& row) { return predicate(*row); });
        if (found == rows->end()) throw std::logic_error("no such row");
        return *found;
    }
};

/// A row like those of the root page.
inline std::shared_ptr<PSSpecifier> switchRow(const std::shared_ptr<NSObject>& target, const std::string& key,
                                              Value defaultValue = {}) {
    auto row = PSSpecifier::preferenceSpecifierNamed(
        "Row", target, "setPreferenceValue:specifier:", "readPreferenceValue:", nullptr,
        PSCellType::switchCell, nullptr);
    row->setProperty(key, "key");
    row->setProperty(std::move(defaultValue), "default");
    row->setProperty(changeNotification, "PostNotification");
    return row;
}
/// The same row without a key.
inline std::shared_ptr<PSSpecifier> keylessRow(const std::shared_ptr<NSObject>& target,
                                               Value defaultValue = {}) {
    auto row = switchRow(target, "", std::move(defaultValue));
    row->setProperty({}, "key");
    return row;
}

} // namespace prismo
