#pragma once

#include "prefs/SettingsFile.h"

#include "platform/preferences/PSListItemsController.h"

namespace prismo {

/// The page on which an element's colour type is chosen: 0 Global, 1 Disabled, 2 Custom. It reads and writes
/// the key of the row that opened it, in the scope of its parent page.
class PrismoTypeItemsController : public PSListItemsController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// A group and a choice for each type, in the order of the types.
    std::shared_ptr<PSSpecifierList> specifiers() override;
    /// The stored type under the scoped key, else at once the row's "default": an application without a type
    /// of its own is not shown the system-wide one here.
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) override;
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier) override;

  private:
    SettingsKey scopedKey(const PSSpecifier& specifier) const;
};

/// The same page for the global colour: 0 Global, 1 Icon Color.
class PrismoGlobalTypeItemsController : public PrismoTypeItemsController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Turns the three types into the two by editing the kept list. Each call edits it once more, so the
    /// page's machinery must ask only once.
    std::shared_ptr<PSSpecifierList> specifiers() override;
};

} // namespace prismo
