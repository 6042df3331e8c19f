#include "platform/foundation/Class.h"

#include <algorithm>
#include <map>

namespace prismo {

namespace {

std::map<std::string, const Class*, std::less<>>& registry() {
    static std::map<std::string, const Class*, std::less<>> classes;
    return classes;
}

std::vector<std::string>& lackingMethods() {
    static std::vector<std::string> selectors;
    return selectors;
}

} // namespace

Class::Class(std::string name, const Class* superclass, Factory create, std::vector<Method> methods)
    : name_(std::move(name)), superclass_(superclass), create_(std::move(create)),
      methods_(std::move(methods)) {}

bool Class::isSubclassOf(const Class& other) const {
    return this == &other || (superclass_ && superclass_->isSubclassOf(other));
}

const Method* Class::method(std::string_view selector) const {
    const auto found = std::ranges::find(methods_, selector, &Method::selector);
    if (found != methods_.end()) return &*found;
    return superclass_ ? superclass_->method(selector) : nullptr;
}

bool instancesRespondToSelector(const Class& objectClass, std::string_view selector) {
    return objectClass.method(selector) &&
           std::ranges::find(lackingMethods(), selector) == lackingMethods().end();
}

void setMethodsLackingOnThisSystem(std::vector<std::string> selectors) {
    lackingMethods() = std::move(selectors);
}

void registerClass(const Class& objectClass) { registry()[objectClass.name()] = &objectClass; }

const Class* NSClassFromString(std::string_view name) {
    const auto found = registry().find(name);
    return found == registry().end() ? nullptr : found->second;
}

} // namespace prismo
