#include "platform/foundation/NSObject.h"

#include <stdexcept>

namespace prismo {

const Class& NSObject::classObject() {
    static const Class objectClass("NSObject", nullptr, [] { return std::make_shared<NSObject>(); });
    return objectClass;
}

Value NSObject::performSelector(std::string_view selector, std::initializer_list<Value> arguments) {
    const auto* method = isa().method(selector);
    if (!method) throw std::logic_error(isa().name() + " has no method " + std::string(selector));
    const auto keepAlive = weak_from_this().lock();
    return method->invoke(*this, std::span(arguments.begin(), arguments.size()));
}

void NSObject::setAssociatedObject(std::string_view selector, Value value) {
    associatedObjects_[std::string(selector)] = std::move(value);
}

const Value& NSObject::associatedObject(std::string_view selector) const {
    return valueForKey(associatedObjects_, selector);
}

} // namespace prismo
