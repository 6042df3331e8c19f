#include "platform/swatchkit/SWLiteColorCell.h"

#include "platform/foundation/CFNotificationCenter.h"

namespace prismo {

namespace {

void refreshCell(const std::shared_ptr<NSObject>& observer) {
    if (const auto cell = std::dynamic_pointer_cast<SWLiteColorCell>(observer)) cell->refreshSwatch();
}

} // namespace

const Class& SWLiteColorCell::classObject() {
    static const Class objectClass("SWLiteColorCell", &PSTableCell::classObject(),
                                   [] { return std::make_shared<SWLiteColorCell>(); });
    return objectClass;
}

void SWLiteColorCell::setSpecifier(std::shared_ptr<PSSpecifier> specifier) {
    PSTableCell::setSpecifier(std::move(specifier));
    refreshSwatch();
    const auto& name = this->specifier()->propertyForKey("NotificationListener").text();
    if (!name.empty())
        CFNotificationCenterGetDarwinNotifyCenter().addObserver(shared_from_this(), refreshCell, name,
                                                                SuspensionBehavior::coalesce);
}

} // namespace prismo
