// The lines of `drive` for rows and pages.

#include "cli/drive/DriveSession.h"
#include "cli/output/CommandError.h"
#include "cli/pages/PageJson.h"
#include "cli/pages/RowValue.h"

#include "platform/applist/ALApplicationTableDataSource.h"
#include "platform/preferences/PSListItemsController.h"

#include <algorithm>

namespace prismo::cli {

using Answer = nlohmann::ordered_json;

namespace {

std::shared_ptr<ALApplicationTableDataSource> dataSource(const UITableView& table) {
    return std::dynamic_pointer_cast<ALApplicationTableDataSource>(table.dataSource());
}

/// The picker's table as rows: sections become groups, applications become choices.
PSSpecifierList applicationRows(const ALApplicationTableDataSource& source) {
    PSSpecifierList rows;
    for (const auto& section : source.sections()) {
        rows.push_back(PSSpecifier::groupSpecifierWithName(section.title));
        for (const auto& application : section.applications) {
            auto row = PSSpecifier::preferenceSpecifierNamed(application.displayName, nullptr, "", "",
                                                             nullptr, PSCellType::listItem, nullptr);
            row->setIdentifier(application.displayIdentifier);
            row->setValues({application.displayIdentifier});
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

} // namespace

std::shared_ptr<UITableView> DriveSession::pickerTable() const {
    auto table = std::dynamic_pointer_cast<UITableView>(navigation_->topViewController()->view());
    return table && dataSource(*table) ? table : nullptr;
}

Answer DriveSession::rows(const Words& /*words*/) {
    if (const auto table = pickerTable())
        return json(dynamic_cast<PSViewController&>(*navigation_->topViewController()), root_.get(),
                    applicationRows(*dataSource(*table)));
    return json(*topPage());
}

Answer DriveSession::tap(const Words& words) {
    const auto tapped = row(words[0]);
    if (tapped->cellType() == PSCellType::segment)
        throw CommandError(wrongUsage, "'" + words[0] + "' is a segment; use 'set'");
    tapRow(*topPage(), *tapped);
    return Answer::object();
}

Answer DriveSession::set(const Words& words) {
    const auto changed = row(words[0]);
    if (changed->cellType() != PSCellType::switchCell && changed->cellType() != PSCellType::segment)
        throw CommandError(wrongUsage, "'" + words[0] + "' is neither a switch nor a segment");
    writeThroughRow(*changed, words[1]);
    return Answer::object();
}

Answer DriveSession::choose(const Words& words) {
    const auto chooser = std::dynamic_pointer_cast<PSListItemsController>(topPage());
    if (!chooser) throw CommandError(nothingThere, "the page on top is not a chooser");
    tapRow(*chooser, *row(words[0]));
    return Answer::object();
}

Answer DriveSession::select(const Words& words) {
    const auto table = pickerTable();
    if (!table) throw CommandError(nothingThere, "the page on top is not the application picker");
    const auto source = dataSource(*table);
    for (std::size_t section = 0; section < source->sections().size(); ++section) {
        const auto& applications = source->sections()[section].applications;
        const auto found =
            std::ranges::find(applications, words[0], &InstalledApplication::displayIdentifier);
        if (found == applications.end()) continue;
        const auto delegate = table->delegate();
        delegate->tableViewDidSelectRowAtIndexPath(
            *table, {section, static_cast<std::size_t>(found - applications.begin())});
        return Answer::object();
    }
    throw CommandError(nothingThere, "no application '" + words[0] + "'");
}

Answer DriveSession::back(const Words& /*words*/) {
    if (navigation_->viewControllers().size() < 2) throw CommandError(nothingThere, "this is the first page");
    navigation_->popViewController(true);
    return Answer::object();
}

} // namespace prismo::cli
