#include "screens/colortype/PrismoTypeItemsController.h"

#include "prefs/SettingsFile.h"
#include "screens/root/Prismo2PrefsListController.h"

namespace prismo {

const Class& PrismoTypeItemsController::classObject() {
    static const Class objectClass("PrismoTypeItemsController", &PSListItemsController::classObject(),
                                   [] { return std::make_shared<PrismoTypeItemsController>(); });
    return objectClass;
}

std::shared_ptr<PSSpecifierList> PrismoTypeItemsController::specifiers() {
    if (specifiers_) return specifiers_;
    specifiers_ = std::make_shared<PSSpecifierList>();
    const auto append = [&](const char* footer, const char* title, int type) {
        specifiers_->push_back(PSSpecifier::groupSpecifierWithHeader("", footer));
        auto choice = PSSpecifier::preferenceSpecifierNamed(title, sharedSelf<PrismoTypeItemsController>(),
                                                            "", "", nullptr, PSCellType::listItem, nullptr);
        choice->setValues({type});
        choice->setProperty(changeNotification, "PostNotification");
        specifiers_->push_back(std::move(choice));
    };
    append("Fallback to the global color.", "Global", 0);
    append("Disable coloring.", "Disabled", 1);
    append("Use the custom color that is set.", "Custom", 2);
    return specifiers_;
}

SettingsKey PrismoTypeItemsController::scopedKey(const PSSpecifier& specifier) const {
    const auto key = keyOf(specifier);
    const auto root = std::dynamic_pointer_cast<Prismo2PrefsListController>(parentController());
    return root ? prismo::scopedKey(root->isInAppScope(), root->scopeId(), key) : key;
}

Value PrismoTypeItemsController::readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) {
    const auto settings = loadSettings();
    const auto stored = settingForKey(settings, scopedKey(*specifier));
    return stored.isNothing() ? specifier->propertyForKey("default") : stored;
}

void PrismoTypeItemsController::setPreferenceValue(const Value& value,
                                                   const std::shared_ptr<PSSpecifier>& specifier) {
    const auto key = scopedKey(*specifier);
    if (value.isNothing() || !key) return;
    changeSetting(*key, value);
    notifyOf(*specifier);
}

const Class& PrismoGlobalTypeItemsController::classObject() {
    static const Class objectClass("PrismoGlobalTypeItemsController",
                                   &PrismoTypeItemsController::classObject(),
                                   [] { return std::make_shared<PrismoGlobalTypeItemsController>(); });
    return objectClass;
}

std::shared_ptr<PSSpecifierList> PrismoGlobalTypeItemsController::specifiers() {
    auto list = PrismoTypeItemsController::specifiers();
    const auto iconGroup = list->at(2);
    for (const auto* property : {"ACUIFooterText", "footerText"})
        iconGroup->setProperty("Use the average color of the current app's icon.", property);
    list->at(3)->setName("Icon Color");
    list->pop_back();
    list->pop_back();
    return list;
}

} // namespace prismo
