#pragma once

#include "platform/preferences/PSViewController.h"
#include "platform/uikit/views/UITableView.h"

#include <memory>
#include <string>

namespace prismo {

class ALApplicationTableDataSource;

/// The page that chooses the application whose settings the root page, its parent, edits.
class Prismo2AppScope : public PSViewController, public UITableViewDelegate {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }
    ~Prismo2AppScope() override;

    /// Builds the table and its data source.
    bool initForContentSize(CGSize size) override;

    std::string title() const override { return "Select App"; }
    std::shared_ptr<UIView> view() override { return pTableView_; }
    void didMoveToParentViewController(const std::shared_ptr<UIViewController>& parent) override;
    const std::shared_ptr<UITableView>& table() const { return pTableView_; }
    const std::shared_ptr<UITableView>& pTableView() const { return pTableView_; }
    void setPTableView(std::shared_ptr<UITableView> table) { assign(pTableView_, std::move(table)); }
    /// The data source keeps this page alive in turn, until the page leaves its navigation stack.
    const std::shared_ptr<ALApplicationTableDataSource>& pDataSource() const { return pDataSource_; }
    void setPDataSource(std::shared_ptr<ALApplicationTableDataSource> dataSource) {
        assign(pDataSource_, std::move(dataSource));
    }
    /// The size of the table; (0, 0) without one.
    CGSize contentSize() const;

    /// Makes the tapped application the root page's scope and goes back to the root page.
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
    /// Does nothing: a picker has no values to change.
    void cellAtIndexPathDidChangeToValue(NSIndexPath indexPath, const Value& value);

  private:
    std::shared_ptr<UITableView> pTableView_;
    std::shared_ptr<ALApplicationTableDataSource> pDataSource_;
};

} // namespace prismo
