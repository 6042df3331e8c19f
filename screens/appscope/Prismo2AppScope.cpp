#include "screens/appscope/Prismo2AppScope.h"

#include "screens/appscope/PXApplicationListDataSource.h"
#include "screens/root/Prismo2PrefsListController.h"

#include "platform/uikit/controllers/UINavigationController.h"

namespace prismo {

const Class& Prismo2AppScope::classObject() {
    static const Class objectClass("Prismo2AppScope", &PSViewController::classObject(),
                                   [] { return std::make_shared<Prismo2AppScope>(); });
    return objectClass;
}

Prismo2AppScope::~Prismo2AppScope() = default;

bool Prismo2AppScope::initForContentSize(CGSize size) {
    // Older systems lack the inherited initializer; a page does not need it there.
    if (instancesRespondToSelector(PSViewController::classObject(), "initForContentSize:") &&
        !PSViewController::initForContentSize(size))
        return false;
    const auto self = sharedSelf<Prismo2AppScope>();
    pTableView_ = std::make_shared<UITableView>(CGRect{{0, 0}, size}, UITableViewStyle::grouped);
    // Room for the status bar and the navigation bar above the first section.
    pTableView_->setContentInset({.top = 64, .left = 0, .bottom = 0, .right = 0});
    pDataSource_ = PXApplicationListDataSource::initWithController(self);
    pDataSource_->setSectionDescriptors(ALApplicationTableDataSource::standardSectionDescriptors());
    pTableView_->setDataSource(pDataSource_);
    pTableView_->setDelegate(self);
    pTableView_->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleTopMargin |
                                     UIViewAutoresizingFlexibleHeight);
    return true;
}

void Prismo2AppScope::didMoveToParentViewController(const std::shared_ptr<UIViewController>& parent) {
    if (!parent) setPDataSource(nullptr);
}

CGSize Prismo2AppScope::contentSize() const { return pTableView_ ? pTableView_->frame().size : CGSize{}; }

void Prismo2AppScope::tableViewDidSelectRowAtIndexPath(UITableView& /*table*/, NSIndexPath indexPath) {
    const auto root = std::dynamic_pointer_cast<Prismo2PrefsListController>(parentController());
    if (!root || !pDataSource_) return;
    root->setScopeId(pDataSource_->displayIdentifierForIndexPath(indexPath));
    root->reloadSpecifiers();
    if (const auto navigation = navigationController()) navigation->popToViewController(root, true);
}

void Prismo2AppScope::cellAtIndexPathDidChangeToValue(NSIndexPath /*indexPath*/, const Value& /*value*/) {}

} // namespace prismo
