#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/PSViewController.h"
#include "platform/uikit/views/UITableView.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace prismo {

/// A settings page made of rows: a grouped table with a section for each group row.
class PSListController : public PSViewController, public UITableViewDataSource, public UITableViewDelegate {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Builds the page's rows, keeps them in `specifiers_` and returns them. A page overrides it.
    virtual std::shared_ptr<PSSpecifierList> specifiers();
    /// The rows as they are: asks `specifiers` where the page has none, and not again before a reload. This
    /// is what the page's machinery and every host go by.
    std::shared_ptr<PSSpecifierList> rows();
    /// Forgets the rows, asks `specifiers` for new ones and redraws the table.
    void reloadSpecifiers();

    /// The first row of that identifier, or null.
    std::shared_ptr<PSSpecifier> specifierForID(std::string_view identifier);

    const std::shared_ptr<UITableView>& table() const { return table_; }
    void loadView() override;

    // Positions in the table: section s is the s-th group row with the rows that follow it; rows before the
    // first group row are a section of their own, without header.

    /// The position of the row at `index` of `rows`; nothing for a group row and beyond the end.
    std::optional<NSIndexPath> indexPathForIndex(std::size_t index);
    /// The position of a row of this page; nothing for a group row and for another page's.
    std::optional<NSIndexPath> indexPathForSpecifier(const PSSpecifier& specifier);
    /// The row at a position, or null.
    std::shared_ptr<PSSpecifier> specifierAtIndexPath(NSIndexPath indexPath);
    /// The group row of a section, or null.
    std::shared_ptr<PSSpecifier> groupAtSection(std::size_t section);

    std::size_t numberOfSectionsInTableView(UITableView& table) override;
    std::size_t tableViewNumberOfRowsInSection(UITableView& table, std::size_t section) override;
    std::string tableViewTitleForHeaderInSection(UITableView& table, std::size_t section) override;
    std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                    NSIndexPath indexPath) override;
    /// A tap on a row: a row with an action sends it, one with a detail page opens it. A disabled row does
    /// nothing.
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

    /// A person has tapped the row there; called by the host. A switch is turned, any other row selected.
    void tapRow(NSIndexPath indexPath);

    /// Makes the row's detail page and pushes it on this page's navigation controller.
    void openDetailPage(const std::shared_ptr<PSSpecifier>& specifier);

  protected:
    /// The rows once they are built; empty before, and between a reload and the next building.
    std::shared_ptr<PSSpecifierList> specifiers_;

  private:
    /// Where each section starts and ends in `rows`: [first, last), group row included.
    struct Section {
        std::size_t first;
        std::size_t last;
        bool hasGroup;
        std::size_t rowsBegin() const { return hasGroup ? first + 1 : first; }
    };
    std::vector<Section> sections();
    std::shared_ptr<UITableView> table_;
};

} // namespace prismo
