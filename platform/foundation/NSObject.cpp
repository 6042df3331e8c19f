#include "platform/foundation/NSObject.h"

#include "platform/foundation/Trace.h"

#include <stdexcept>

namespace prismo {

namespace {

/// "setValue:(1) to Page". An inherited method also names the class whose table lists it.
std::string messageText(const NSObject& receiver, const Method& method, std::span<const Value> arguments) {
    auto text = method.selector + '(';
    for (const auto& argument : arguments)
        text += (&argument == arguments.data() ? "" : ", ") + Trace::text(argument);
    text += ") to " + receiver.description();
    const auto* lister = &receiver.isa();
    while (lister->superclass() && lister->superclass()->method(method.selector) == &method)
        lister = lister->superclass();
    return lister == &receiver.isa() ? text : text + " (listed by " + lister->name() + ')';
}

} // namespace

const Class& NSObject::classObject() {
    static const Class objectClass("NSObject", nullptr, [] { return std::make_shared<NSObject>(); });
    return objectClass;
}

Value NSObject::performSelector(std::string_view selector, std::initializer_list<Value> arguments,
                                std::string_view sender) {
    const auto* method = isa().method(selector);
    if (!method) throw std::logic_error(isa().name() + " has no method " + std::string(selector));
    const auto keepAlive = weak_from_this().lock();
    const std::span given(arguments.begin(), arguments.size());
    const Trace::Step step(
        "message", [&] { return messageText(*this, *method, given); }, sender);
    return method->invoke(*this, given);
}

void NSObject::setAssociatedObject(std::string_view selector, Value value) {
    associatedObjects_[std::string(selector)] = std::move(value);
}

const Value& NSObject::associatedObject(std::string_view selector) const {
    return valueForKey(associatedObjects_, selector);
}

} // namespace prismo
