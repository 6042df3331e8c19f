#include "screens/appscope/PXApplicationListDataSource.h"

#include "screens/appscope/Prismo2AppScope.h"

namespace prismo {

const Class& PXApplicationListDataSource::classObject() {
    static const Class objectClass("PXApplicationListDataSource",
                                   &ALApplicationTableDataSource::classObject(),
                                   [] { return std::make_shared<PXApplicationListDataSource>(); });
    return objectClass;
}

std::shared_ptr<PXApplicationListDataSource>
PXApplicationListDataSource::initWithController(std::shared_ptr<Prismo2AppScope> controller) {
    auto dataSource = std::make_shared<PXApplicationListDataSource>();
    dataSource->setRootController(std::move(controller));
    return dataSource;
}

std::shared_ptr<UITableViewCell>
PXApplicationListDataSource::tableViewCellForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) {
    auto cell = ALApplicationTableDataSource::tableViewCellForRowAtIndexPath(table, indexPath);
    if (const auto valueCell = std::dynamic_pointer_cast<ALValueCell>(cell))
        valueCell->setDelegate(std::static_pointer_cast<PXApplicationListDataSource>(shared_from_this()));
    return cell;
}

void PXApplicationListDataSource::valueCellDidChangeToValue(ALValueCell& /*cell*/, const Value& /*value*/) {}

} // namespace prismo
