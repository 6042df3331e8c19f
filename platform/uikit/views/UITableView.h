#pragma once

#include "platform/uikit/views/UITableViewCell.h"
#include "platform/uikit/views/UIView.h"

#include <compare>
#include <cstddef>
#include <map>
#include <memory>
#include <string>

namespace prismo {

class UITableView;

struct NSIndexPath {
    std::size_t section = 0;
    std::size_t row = 0;
    auto operator<=>(const NSIndexPath&) const = default;
};

/// Provides the content of a table. Sections and rows count from 0.
class UITableViewDataSource {
  public:
    virtual ~UITableViewDataSource() = default;
    virtual std::size_t numberOfSectionsInTableView(UITableView& table) = 0;
    virtual std::size_t tableViewNumberOfRowsInSection(UITableView& table, std::size_t section) = 0;
    /// "" if the section has no header.
    virtual std::string tableViewTitleForHeaderInSection(UITableView& table, std::size_t section) = 0;
    virtual std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                            NSIndexPath indexPath) = 0;
};

/// Is notified of what a person does with a table.
class UITableViewDelegate {
  public:
    virtual ~UITableViewDelegate() = default;
    virtual void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) = 0;
};

enum class UITableViewStyle { plain = 0, grouped = 1 };

/// A table. Its content comes from its data source, and its taps go to its delegate; it keeps neither alive.
class UITableView : public UIView {
  public:
    UITableView(CGRect frame, UITableViewStyle style) : UIView(frame), style_(style) {}

    UITableViewStyle style() const { return style_; }
    UIEdgeInsets contentInset() const { return contentInset_; }
    void setContentInset(UIEdgeInsets inset) { assign(contentInset_, inset); }
    std::shared_ptr<UITableViewDataSource> dataSource() const { return dataSource_.lock(); }
    void setDataSource(const std::shared_ptr<UITableViewDataSource>& dataSource);
    std::shared_ptr<UITableViewDelegate> delegate() const { return delegate_.lock(); }
    void setDelegate(const std::shared_ptr<UITableViewDelegate>& delegate) { assign(delegate_, delegate); }

    /// The cell at a position. The data source makes it once; the table keeps it until the next reload.
    std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(NSIndexPath indexPath);
    /// Discards all cells and notifies the observers.
    void reloadData();

  private:
    UITableViewStyle style_;
    UIEdgeInsets contentInset_;
    std::weak_ptr<UITableViewDataSource> dataSource_;
    std::weak_ptr<UITableViewDelegate> delegate_;
    std::map<NSIndexPath, std::shared_ptr<UITableViewCell>> cells_;
};

} // namespace prismo
