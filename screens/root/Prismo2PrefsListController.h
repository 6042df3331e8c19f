#pragma once

#include "alert/SWStatusBarAlert.h"
#include "prefs/SettingsFile.h"

#include "platform/preferences/PSListController.h"

#include <memory>
#include <optional>
#include <string>

namespace prismo {

/// The module's root page. It edits the system-wide settings or, in application scope, those of the chosen
/// application. The scope belongs to the page and is never stored: a new page starts in system scope.
///
/// Prismo2PrefsListController.cpp has the method table and the page's life cycle. The other sources start
/// with the class's name too: …Rows.cpp has the rows in order, …ColorGroup.cpp the three rows of an element,
/// …Settings.cpp which key a row reads and writes in which scope, …ColorPicking.cpp the way from a tap on a
/// color row to the stored color, and …Maintenance.cpp everything besides editing settings.
class Prismo2PrefsListController : public PSListController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    bool isInAppScope() const { return isInAppScope_; }
    void setIsInAppScope(bool isInAppScope) { assign(isInAppScope_, isInAppScope); }
    /// The display identifier of the application whose settings are edited, or nullopt if none is chosen.
    const std::optional<std::string>& scopeId() const { return scopeId_; }
    void setScopeId(std::optional<std::string> scopeId) { assign(scopeId_, std::move(scopeId)); }

    /// The banner that offers to restart the user interface after a change; null until the view is loaded. It
    /// keeps this page alive, as its target, until the page leaves its navigation stack.
    const std::shared_ptr<SWStatusBarAlert>& statusAlert() const { return statusAlert_; }
    void setStatusAlert(std::shared_ptr<SWStatusBarAlert> alert) { assign(statusAlert_, std::move(alert)); }

    /// Adds the share button, then loads the view.
    void loadView() override;
    /// Makes the banner if there is none yet, and observes the change notification. Every call adds another
    /// observation.
    void viewDidLoad() override;
    void viewWillAppear(bool animated) override;
    void didMoveToParentViewController(const std::shared_ptr<UIViewController>& parent) override;
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) override;

    std::shared_ptr<PSSpecifierList> specifiers() override;

    /// The stored value or, if there is none, a fallback. With an application chosen, the fallback is the
    /// system-wide value, then nothing: the default does not apply there. Otherwise it is the row's
    /// "default".
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) override;
    /// Stores the value and posts the row's "PostNotification". Does nothing if the value is nothing, or if
    /// the row has no key and no application is chosen.
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier) override;
    /// The value of the scope row: true in application scope.
    Value readSegmentPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier);
    void setSegmentPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier);

    /// The three rows of an element: group, color row, type row. `fallbackColor` is the color text to show if
    /// none is stored.
    PSSpecifierList colorGroupSpecifierWithTitle(const std::string& title, const std::string& fallbackColor);

    /// Opens the color picker for a color row.
    void chooseColor(const std::shared_ptr<PSSpecifier>& specifier);

    /// Restarts the user interface by ending the server that draws it. Returns 0 if the tool that does so was
    /// started, or else the error number.
    int respring(const std::shared_ptr<NSObject>& sender);
    /// Removes the colors that the extension computed from application icons.
    void clearIconColorCache();
    /// Opens the related package in the package manager.
    void splashtoner();
    /// Opens the maker's profile. No row of this page uses it.
    void twitter();

    /// Runs the run loop for 0.035 seconds, so that the tapped control can finish its animation, then
    /// rebuilds the rows.
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

/// The callback of the change notification: the observing page rebuilds its rows. Does nothing if the
/// observer is not a page.
void settingsChanged(const std::shared_ptr<NSObject>& observer);

/// The name of a color row whose element follows the global color. It is more than a label: the row's cell
/// shows the global color, and the page does not retitle the row.
inline constexpr const char* usingGlobalColorName = "<Using Global Color>";

} // namespace prismo
