#include "platform/preferences/PSListController.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/Trace.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/UIScreen.h"

#include <algorithm>

namespace prismo {

const Class& PSListController::classObject() {
    static const Class objectClass("PSListController", &PSViewController::classObject(),
                                   [] { return std::make_shared<PSListController>(); });
    return objectClass;
}

std::shared_ptr<PSSpecifierList> PSListController::specifiers() {
    if (!specifiers_) specifiers_ = std::make_shared<PSSpecifierList>();
    return specifiers_;
}

std::shared_ptr<PSSpecifierList> PSListController::rows() { return specifiers_ ? specifiers_ : specifiers(); }

void PSListController::reloadSpecifiers() {
    specifiers_ = nullptr;
    specifiers();
    Device::current().recordEffect("reload", {{"name", isa().name()}}, "PSListController::reloadSpecifiers");
    if (table_) table_->reloadData();
    changed();
}

std::shared_ptr<PSSpecifier> PSListController::specifierForID(std::string_view identifier) {
    const auto list = rows();
    const auto found =
        std::ranges::find_if(*list, [&](const auto& row) { return row->identifier() == identifier; });
    return found == list->end() ? nullptr : *found;
}

void PSListController::loadView() {
    const auto* screen = UIScreen::mainScreen();
    table_ = std::make_shared<UITableView>(screen ? screen->bounds() : CGRect{}, UITableViewStyle::grouped);
    const auto self = sharedSelf<PSListController>();
    table_->setDataSource(self);
    table_->setDelegate(self);
    setView(table_);
}

std::vector<PSListController::Section> PSListController::sections() {
    std::vector<Section> result;
    const auto list = rows();
    for (std::size_t i = 0; i < list->size(); ++i) {
        const bool isGroup = (*list)[i]->cellType() == PSCellType::group;
        if (isGroup || result.empty()) result.push_back({i, i, isGroup});
        result.back().last = i + 1;
    }
    return result;
}

std::optional<NSIndexPath> PSListController::indexPathForIndex(std::size_t index) {
    const auto all = sections();
    for (std::size_t section = 0; section < all.size(); ++section)
        if (index >= all[section].rowsBegin() && index < all[section].last)
            return NSIndexPath{section, index - all[section].rowsBegin()};
    return std::nullopt;
}

std::optional<NSIndexPath> PSListController::indexPathForSpecifier(const PSSpecifier& specifier) {
    const auto list = rows();
    const auto found = std::ranges::find(*list, &specifier, &std::shared_ptr<PSSpecifier>::get);
    return indexPathForIndex(static_cast<std::size_t>(found - list->begin()));
}

std::shared_ptr<PSSpecifier> PSListController::specifierAtIndexPath(NSIndexPath indexPath) {
    const auto all = sections();
    if (indexPath.section >= all.size()) return nullptr;
    const auto index = all[indexPath.section].rowsBegin() + indexPath.row;
    return index < all[indexPath.section].last ? (*rows())[index] : nullptr;
}

std::shared_ptr<PSSpecifier> PSListController::groupAtSection(std::size_t section) {
    const auto all = sections();
    return section < all.size() && all[section].hasGroup ? (*rows())[all[section].first] : nullptr;
}

std::size_t PSListController::numberOfSectionsInTableView(UITableView& /*table*/) {
    return sections().size();
}

std::size_t PSListController::tableViewNumberOfRowsInSection(UITableView& /*table*/, std::size_t section) {
    const auto all = sections();
    return section < all.size() ? all[section].last - all[section].rowsBegin() : 0;
}

std::string PSListController::tableViewTitleForHeaderInSection(UITableView& /*table*/, std::size_t section) {
    const auto group = groupAtSection(section);
    return group ? group->name() : "";
}

std::shared_ptr<UITableViewCell> PSListController::tableViewCellForRowAtIndexPath(UITableView& /*table*/,
                                                                                  NSIndexPath indexPath) {
    const auto specifier = specifierAtIndexPath(indexPath);
    if (!specifier) return nullptr;
    const auto* cellClass = specifier->propertyForKey("cellClass").asClass();
    auto cell = std::dynamic_pointer_cast<PSTableCell>(cellClass ? cellClass->create() : nullptr);
    if (!cell) cell = std::make_shared<PSTableCell>();
    cell->setSpecifier(specifier);
    return cell;
}

void PSListController::tableViewDidSelectRowAtIndexPath(UITableView& /*table*/, NSIndexPath indexPath) {
    const auto specifier = specifierAtIndexPath(indexPath);
    if (!specifier || !specifier->isEnabled()) return;
    if (!specifier->buttonAction().empty())
        specifier->performButtonAction();
    else if (specifier->detailControllerClass())
        openDetailPage(specifier);
}

void PSListController::tapRow(NSIndexPath indexPath) {
    const auto specifier = specifierAtIndexPath(indexPath);
    const Trace::Step step(
        "tap", [&] { return Trace::text(specifier) + " on " + isa().name(); }, "PSListController::tapRow");
    if (specifier && specifier->isEnabled() && specifier->cellType() == PSCellType::switchCell)
        specifier->performSetterWithValue(!specifier->performGetter().boolValue());
    else
        tableViewDidSelectRowAtIndexPath(*table_, indexPath);
}

void PSListController::openDetailPage(const std::shared_ptr<PSSpecifier>& specifier) {
    const auto navigation = navigationController();
    const auto page =
        std::dynamic_pointer_cast<PSViewController>(specifier->detailControllerClass()->create());
    if (!navigation || !page) return;
    if (!page->initForContentSize(view()->frame().size)) return;
    page->setParentController(sharedSelf<PSListController>());
    page->setSpecifier(specifier);
    // A page that overrides `title` keeps its own.
    page->setTitle(specifier->name());
    navigation->pushViewController(page, true);
}

} // namespace prismo
