#include "platform/preferences/PSViewController.h"

namespace prismo {

const Class& PSViewController::classObject() {
    static const Class objectClass(
        "PSViewController", &UIViewController::classObject(),
        [] { return std::make_shared<PSViewController>(); },
        {// A size is not a Value, so a call by name passes an empty one.
         {"initForContentSize:",
          [](NSObject& page, std::span<const Value>) {
              return Value(dynamic_cast<PSViewController&>(page).initForContentSize({}));
          }},
         method<&PSViewController::readPreferenceValue>("readPreferenceValue:"),
         method<&PSViewController::setPreferenceValue>("setPreferenceValue:specifier:")});
    return objectClass;
}

bool PSViewController::initForContentSize(CGSize /*size*/) { return true; }

Value PSViewController::readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) {
    return specifier ? specifier->propertyForKey("default") : Value();
}

void PSViewController::setPreferenceValue(const Value& /*value*/,
                                          const std::shared_ptr<PSSpecifier>& /*specifier*/) {}

} // namespace prismo
