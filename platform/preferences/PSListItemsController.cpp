#include "platform/preferences/PSListItemsController.h"

namespace prismo {

const Class& PSListItemsController::classObject() {
    static const Class objectClass("PSListItemsController", &PSListController::classObject(),
                                   [] { return std::make_shared<PSListItemsController>(); });
    return objectClass;
}

void PSListItemsController::viewDidLoad() {
    PSListController::viewDidLoad();
    if (const auto opener = parentController())
        openerChanges_ = opener->observe([this] { table()->reloadData(); });
}

std::shared_ptr<PSSpecifierList> PSListItemsController::specifiers() {
    if (specifiers_) return specifiers_;
    specifiers_ = std::make_shared<PSSpecifierList>();
    if (!specifier()) return specifiers_;
    for (const auto& [value, title] : specifier()->titleDictionary()) {
        auto row = PSSpecifier::preferenceSpecifierNamed(title, sharedSelf<PSListItemsController>(), "", "",
                                                         nullptr, PSCellType::listItem, nullptr);
        row->setValues({value});
        specifiers_->push_back(std::move(row));
    }
    return specifiers_;
}

Value PSListItemsController::readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier) {
    return specifier ? specifier->performGetter() : Value();
}

void PSListItemsController::setPreferenceValue(const Value& value,
                                               const std::shared_ptr<PSSpecifier>& specifier) {
    if (specifier) specifier->performSetterWithValue(value);
}

bool PSListItemsController::isChecked(const PSSpecifier& row) {
    return row.cellType() == PSCellType::listItem && !row.values().empty() &&
           row.values().front().isEqual(readPreferenceValue(specifier()));
}

std::shared_ptr<UITableViewCell>
PSListItemsController::tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    auto cell = PSListController::tableViewCellForRowAtIndexPath(table, indexPath);
    if (cell && isChecked(*specifierAtIndexPath(indexPath)))
        cell->setAccessoryType(UITableViewCellAccessory::checkmark);
    return cell;
}

void PSListItemsController::tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    const auto row = specifierAtIndexPath(indexPath);
    if (!row || !row->isEnabled() || row->values().empty()) return;
    setPreferenceValue(row->values().front(), specifier());
    table.reloadData();
}

} // namespace prismo
