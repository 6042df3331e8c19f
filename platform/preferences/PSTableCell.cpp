#include "platform/preferences/PSTableCell.h"

#include <utility>

namespace prismo {

const Class& PSTableCell::classObject() {
    static const Class objectClass("PSTableCell", &UITableViewCell::classObject(),
                                   [] { return std::make_shared<PSTableCell>(); });
    return objectClass;
}

void PSTableCell::setSpecifier(std::shared_ptr<PSSpecifier> specifier) {
    assign(specifier_, std::move(specifier));
    refreshCellContents();
}

void PSTableCell::refreshCellContents() {
    textLabel().setText(specifier_->name());
    setEnabled(specifier_->isEnabled());
    setImage(specifier_->propertyForKey("iconImage").object<UIImage>());
    const auto type = specifier_->cellType();
    if (type == PSCellType::linkList)
        detailTextLabel().setText(
            titleForValue(specifier_->shortTitleDictionary(), specifier_->performGetter()));
    if (specifier_->detailControllerClass() && (type == PSCellType::link || type == PSCellType::linkList))
        setAccessoryType(UITableViewCellAccessory::disclosureIndicator);
}

} // namespace prismo
