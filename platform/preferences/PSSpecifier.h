#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"
#include "platform/foundation/Value.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace prismo {

/// The kinds of rows. The values are the platform's.
enum class PSCellType {
    group = 0,
    link = 1,
    linkList = 2,
    listItem = 3,
    switchCell = 6,
    segment = 9,
    button = 13,
};

/// "group", "link", "linkList", "listItem", "switch", "segment" or "button".
const char* cellTypeName(PSCellType type);

/// Titles by the value they stand for, in the order in which they are offered.
using PSTitles = std::vector<std::pair<Value, std::string>>;

/// One row of a settings page, as data: its name, how it is drawn, and the target that provides and stores
/// its value. Selectors are full texts; "" means none. The target is not kept alive.
class PSSpecifier : public NSObject, public Observable {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }
    std::string description() const override { return isa().name() + " \"" + name_ + '"'; }

    /// `detail` is the class of the page that the row opens; it and `edit` may be null.
    static std::shared_ptr<PSSpecifier>
    preferenceSpecifierNamed(std::string name, const std::shared_ptr<NSObject>& target, std::string set,
                             std::string get, const Class* detail, PSCellType cell, const Class* edit);
    static std::shared_ptr<PSSpecifier> groupSpecifierWithName(std::string name);
    static std::shared_ptr<PSSpecifier> groupSpecifierWithHeader(std::string header, std::string footer);

    const std::string& name() const { return name_; }
    void setName(std::string name) { assign(name_, std::move(name)); }
    std::shared_ptr<NSObject> target() const { return target_.lock(); }
    const std::string& setter() const { return setter_; }
    const std::string& getter() const { return getter_; }
    const Class* detailControllerClass() const { return detailControllerClass_; }
    void setDetailControllerClass(const Class* detail) { assign(detailControllerClass_, detail); }
    PSCellType cellType() const { return cellType_; }
    const Class* editPaneClass() const { return editPaneClass_; }

    /// "" if none was set.
    const std::string& identifier() const { return identifier_; }
    void setIdentifier(std::string identifier) { assign(identifier_, std::move(identifier)); }
    /// The selector that a tap sends to the target, with this row as the argument if the selector takes one.
    const std::string& buttonAction() const { return buttonAction_; }
    void setButtonAction(std::string selector) { assign(buttonAction_, std::move(selector)); }

    const Dictionary& properties() const { return properties_; }
    const Value& propertyForKey(std::string_view key) const { return valueForKey(properties_, key); }
    /// Setting nothing removes the property.
    void setProperty(Value value, std::string key);
    /// False only if the property "enabled" is false.
    bool isEnabled() const;

    /// The values that a segment or list item offers, in order.
    const Array& values() const { return values_; }
    /// Sets the values and their titles, one title per value. The short titles become the same.
    void setValues(Array values, const std::vector<std::string>& titles = {});
    /// The titles of the values, for a row that shows its value or its choices.
    const PSTitles& titleDictionary() const { return titleDictionary_; }
    void setTitleDictionary(PSTitles titles) { assign(titleDictionary_, std::move(titles)); }
    const PSTitles& shortTitleDictionary() const { return shortTitleDictionary_; }
    void setShortTitleDictionary(PSTitles titles) { assign(shortTitleDictionary_, std::move(titles)); }

    /// Asks the target for the value; returns nothing if there is no getter or no target.
    Value performGetter();
    /// Sends the value to the target; does nothing if there is no setter or no target.
    void performSetterWithValue(const Value& value);
    void performButtonAction();

  private:
    std::string name_;
    std::weak_ptr<NSObject> target_;
    std::string setter_;
    std::string getter_;
    const Class* detailControllerClass_ = nullptr;
    PSCellType cellType_ = PSCellType::group;
    const Class* editPaneClass_ = nullptr;
    std::string identifier_;
    std::string buttonAction_;
    Dictionary properties_;
    Array values_;
    PSTitles titleDictionary_;
    PSTitles shortTitleDictionary_;
};

/// The title for `value` by the platform's equality, or "".
const std::string& titleForValue(const PSTitles& titles, const Value& value);

/// A page's rows, in order.
using PSSpecifierList = std::vector<std::shared_ptr<PSSpecifier>>;

} // namespace prismo
