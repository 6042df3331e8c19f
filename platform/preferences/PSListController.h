#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/PSViewController.h"
#include "platform/uikit/views/UITableView.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

namespace prismo {

/// A settings page made of rows: a grouped table with one section per group row.
class PSListController : public PSViewController, public UITableViewDataSource, public UITableViewDelegate {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Builds the page's rows, caches them in `specifiers_` and returns them. Pages override it.
    virtual std::shared_ptr<PSSpecifierList> specifiers();
    /// The current rows. Calls `specifiers` only if there are none yet, so at most once between reloads. The
    /// page's machinery and all hosts use this.
    std::shared_ptr<PSSpecifierList> rows();
    /// Discards the rows, builds new ones with `specifiers` and reloads the table.
    void reloadSpecifiers();

    /// The first row with this identifier, or null.
    std::shared_ptr<PSSpecifier> specifierForID(std::string_view identifier);

    const std::shared_ptr<UITableView>& table() const { return table_; }
    void loadView() override;

    // Positions in the table. Each group row starts a section with the rows that follow it; rows before the
    // first group row form a section of their own, without a header.

    /// The position of the row at `index` in `rows`; nullopt for a group row or past the end.
    std::optional<NSIndexPath> indexPathForIndex(std::size_t index);
    /// The position of a row of this page; nullopt for a group row or a row of another page.
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
    /// Handles a tap: sends the row's action if it has one, and otherwise opens its detail page if it has
    /// one. A disabled row does nothing.
    void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

    /// Called by the host when a person taps the row. Toggles a switch; selects any other row.
    void tapRow(NSIndexPath indexPath);

    /// Creates the row's detail page and pushes it onto this page's navigation controller. Does nothing
    /// without a navigation controller or if the page cannot be built.
    void openDetailPage(const std::shared_ptr<PSSpecifier>& specifier);

  protected:
    /// The cached rows; null before the first build, and from a reload until the next build.
    std::shared_ptr<PSSpecifierList> specifiers_;

  private:
    /// The range [first, last) of a section in `rows`, including its group row.
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
