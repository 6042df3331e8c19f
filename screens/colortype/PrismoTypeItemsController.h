#pragma once

#include "prefs/SettingsFile.h"

#include "platform/preferences/PSListItemsController.h"

namespace prismo {

/// The page that chooses an element's color type: 0 Global, 1 Disabled, 2 Custom. It reads and writes the key
/// of the row that opened it, in the scope of its parent page.
class PrismoTypeItemsController : public PSListItemsController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// A group and a choice for each type, in order of the type's number.
    std::shared_ptr<PSSpecifierList> specifiers() override;
    /// The type stored under the scoped key, or else the row's "default". Unlike the root page, this page
    /// does not fall back to the system-wide type for an application that has none.
    Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) override;
    void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier) override;

  private:
    SettingsKey scopedKey(const PSSpecifier& specifier) const;
};

/// The same page for the global color: 0 Global, 1 Icon Color.
class PrismoGlobalTypeItemsController : public PrismoTypeItemsController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Reduces the three types to two by editing the cached list. Every call edits it again, so the page's
    /// machinery must call this only once.
    std::shared_ptr<PSSpecifierList> specifiers() override;
};

} // namespace prismo
