#include "platform/uikit/views/UITableView.h"

namespace prismo {

void UITableView::setDataSource(const std::shared_ptr<UITableViewDataSource>& dataSource) {
    dataSource_ = dataSource;
    reloadData();
}

std::shared_ptr<UITableViewCell> UITableView::cellForRowAtIndexPath(NSIndexPath indexPath) {
    const auto kept = cells_.find(indexPath);
    if (kept != cells_.end()) return kept->second;
    const auto source = dataSource_.lock();
    if (!source) return nullptr;
    auto cell = source->tableViewCellForRowAtIndexPath(*this, indexPath);
    cells_[indexPath] = cell;
    return cell;
}

void UITableView::reloadData() {
    cells_.clear();
    changed();
}

} // namespace prismo
