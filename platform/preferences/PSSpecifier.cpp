#include "platform/preferences/PSSpecifier.h"

#include <algorithm>

namespace prismo {

const char* cellTypeName(PSCellType type) {
    switch (type) {
    case PSCellType::group:
        return "group";
    case PSCellType::link:
        return "link";
    case PSCellType::linkList:
        return "linkList";
    case PSCellType::listItem:
        return "listItem";
    case PSCellType::switchCell:
        return "switch";
    case PSCellType::segment:
        return "segment";
    case PSCellType::button:
        return "button";
    }
    return "";
}

const Class& PSSpecifier::classObject() {
    static const Class objectClass("PSSpecifier", &NSObject::classObject(),
                                   [] { return std::make_shared<PSSpecifier>(); });
    return objectClass;
}

std::shared_ptr<PSSpecifier> PSSpecifier::preferenceSpecifierNamed(std::string name,
                                                                   const std::shared_ptr<NSObject>& target,
                                                                   std::string set, std::string get,
                                                                   const Class* detail, PSCellType cell,
                                                                   const Class* edit) {
    auto specifier = std::make_shared<PSSpecifier>();
    specifier->name_ = std::move(name);
    specifier->target_ = target;
    specifier->setter_ = std::move(set);
    specifier->getter_ = std::move(get);
    specifier->detailControllerClass_ = detail;
    specifier->cellType_ = cell;
    specifier->editPaneClass_ = edit;
    return specifier;
}

std::shared_ptr<PSSpecifier> PSSpecifier::groupSpecifierWithName(std::string name) {
    return preferenceSpecifierNamed(std::move(name), nullptr, "", "", nullptr, PSCellType::group, nullptr);
}

std::shared_ptr<PSSpecifier> PSSpecifier::groupSpecifierWithHeader(std::string header, std::string footer) {
    auto group = groupSpecifierWithName(std::move(header));
    group->setProperty(std::move(footer), "footerText");
    return group;
}

void PSSpecifier::setProperty(Value value, std::string key) {
    if (propertyForKey(key) == value) return;
    if (value.isNothing())
        properties_.erase(key);
    else
        properties_.insert_or_assign(std::move(key), std::move(value));
    changed();
}

bool PSSpecifier::isEnabled() const {
    const auto& enabled = propertyForKey("enabled");
    return enabled.isNothing() || enabled.boolValue();
}

void PSSpecifier::setValues(Array values, const std::vector<std::string>& titles) {
    PSTitles dictionary;
    for (std::size_t i = 0; i < values.size() && i < titles.size(); ++i)
        dictionary.emplace_back(values[i], titles[i]);
    if (values == values_ && dictionary == titleDictionary_ && dictionary == shortTitleDictionary_) return;
    values_ = std::move(values);
    titleDictionary_ = dictionary;
    shortTitleDictionary_ = std::move(dictionary);
    changed();
}

Value PSSpecifier::performGetter() {
    const auto target = target_.lock();
    if (!target || getter_.empty()) return {};
    return target->performSelector(getter_, {sharedSelf<PSSpecifier>()}, "row getter");
}

void PSSpecifier::performSetterWithValue(const Value& value) {
    const auto target = target_.lock();
    if (target && !setter_.empty())
        target->performSelector(setter_, {value, sharedSelf<PSSpecifier>()}, "row setter");
}

void PSSpecifier::performButtonAction() {
    const auto target = target_.lock();
    if (target && !buttonAction_.empty())
        target->performSelector(buttonAction_, {sharedSelf<PSSpecifier>()}, "row action");
}

const std::string& titleForValue(const PSTitles& titles, const Value& value) {
    static const std::string none;
    const auto found =
        std::ranges::find_if(titles, [&](const auto& title) { return title.first.isEqual(value); });
    return found == titles.end() ? none : found->second;
}

} // namespace prismo
