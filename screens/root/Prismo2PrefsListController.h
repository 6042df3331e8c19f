#pragma once

#include "alert/SWStatusBarAlert.h"
#include "prefs/SettingsFile.h"

#include "platform/preferences/PSListController.h"

#include <memory>
#include <optional>
#include <string>

namespace prismo {

/// The module's root page. It edits the system-wide settings or, in application scope, those of the chosen
/// application. The scope is the page's own and is never stored: a new page is in system scope.
///
/// The source of that name has the table of its methods and the life of the page. The others are named after
/// the class too: …Rows.cpp has the rows in order, …ColorGroup.cpp the three rows of an element,
/// …Settings.cpp which key a row reads and writes in which scope, …ColorPicking.cpp the way from a tap on a
/// color row to the stored color, and …Maintenance.cpp what the page does beside editing settings.
class Prismo2PrefsListController : public PSListController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    bool isInAppScope() const { return isInAppScope_; }
    void setIsInAppScope(bool isInAppScope) { assign(isInAppScope_, isInAppScope); }
    /// The display identifier of the application whose settings are edited, or nothing.
    const std::optional<std::string>& scopeId() const { return scopeId_; }
    void setScopeId(std::optional<std::string> scopeId) { assign(scopeId_, std::move(scopeId)); }

    /// The banner that offers a restart of the user interface after a change; null before the view is loaded.
    /// It keeps this page alive, as its target, until the page leaves its stack.
    const std::shared_ptr<SWStatusBarAlert>& statusAlert() const { return statusAlert_; }
    void setStatusAlert(std::shared_ptr<SWStatusBarAlert> alert) { assign(statusAlert_, std::move(alert)); }

    /// Adds the share button, then loads the view.
    void loadView() override;
    /// Makes the banner, once, and observes the change notification, once more at each call.
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void didMoveToParentViewController(const std::shared_ptr<UIViewController>& parent) override;
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) override;

    std::shared_ptr<PSSpecifierList> specifiers() override;

    /// The stored value; where there is none, the row's "default" in system scope. In application scope, the
    /// system-wide value and then nothing: there the default does not count.
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) override;
    /// Stores the value and posts the row's "PostNotification". Does nothing where the value is nothing or
    /// the row has no key.
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier) override;
    /// The scope, as the value of the scope row: true in application scope.
    Value readSegmentPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier);
    void setSegmentPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier);

    /// The three rows of an element: its group, its colour row, its type row.
    PSSpecifierList colorGroupSpecifierWithTitle(const std::string& title, const std::string& fallbackColor);

    /// Opens the colour picker for a colour row.
    void chooseColor(const std::shared_ptr<PSSpecifier>& specifier);

    /// Restarts the user interface, by ending the server that draws it; 0 where that could be started.
    int respring(const std::shared_ptr<NSObject>& sender);
    /// Removes the colours that the extension has worked out from application icons.
    void clearIconColorCache();
    /// Opens the package manager at the related package.
    void splashtoner();
    /// Opens the maker's profile. No row of this page names it.
    void twitter();

    /// Lets the control that was tapped finish its animation, then rebuilds the rows.
    void settleAndReload();

  private:
    SettingsKey scopedKey(const SettingsKey& key) const;

    PSSpecifierList scopeRows();
    std::shared_ptr<PSSpecifier> switchNamed(const std::string& name, const std::string& key,
                                             bool defaultValue);
    std::shared_ptr<PSSpecifier> buttonNamed(const std::string& name, const std::string& action);

    bool isInAppScope_ = false;
    std::optional<std::string> scopeId_;
    std::shared_ptr<SWStatusBarAlert> statusAlert_;
};

/// The settings have changed: the page that observes it rebuilds its rows. Does nothing without one.
void settingsChanged(const std::shared_ptr<NSObject>& observer);

/// The name of a colour row whose element follows the global colour. More than a label: its cell shows the
/// global colour, and the page does not retitle it.
inline constexpr const char* usingGlobalColorName = "<Using Global Color>";

} // namespace prismo
