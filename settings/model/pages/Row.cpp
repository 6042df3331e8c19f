#include "settings/model/pages/Row.h"

#include "settings/model/Colors.h"
#include "settings/model/Images.h"

#include "platform/preferences/PSTableCell.h"
#include "platform/swatchkit/SWLiteColorCell.h"

#include <algorithm>

namespace prismo::settings {

namespace {

RowKind::Kind kindOf(const PSSpecifier& row, const UITableViewCell& cell) {
    if (dynamic_cast<const SWLiteColorCell*>(&cell)) return RowKind::Color;
    switch (row.cellType()) {
    case PSCellType::group:
        break;
    case PSCellType::switchCell:
        return RowKind::Switch;
    case PSCellType::segment:
        return RowKind::Segment;
    case PSCellType::linkList:
        return RowKind::LinkList;
    case PSCellType::listItem:
        return RowKind::Choice;
    case PSCellType::button:
        return RowKind::Button;
    case PSCellType::link:
        return row.propertyForKey("height").isNothing() ? RowKind::Link : RowKind::Tall;
    }
    return RowKind::Link;
}

int selectedChoice(PSSpecifier& row) {
    const auto value = row.performGetter();
    const auto found =
        std::ranges::find_if(row.values(), [&](const Value& choice) { return choice.isEqual(value); });
    return found == row.values().end() ? -1 : static_cast<int>(found - row.values().begin());
}

Row rowAt(PSListController& page, NSIndexPath path, std::size_t rowsInSection) {
    Row result;
    result.path = path;
    result.isFirst = path.row == 0;
    result.isLast = path.row + 1 == rowsInSection;
    const auto row = page.specifierAtIndexPath(path);
    const auto cell = page.table()->cellForRowAtIndexPath(path);
    if (!row || !cell) return result;
    result.kind = kindOf(*row, *cell);
    result.identifier = QString::fromStdString(row->identifier());
    result.title = QString::fromStdString(cell->textLabel().text());
    result.detail = QString::fromStdString(cell->detailTextLabel().text());
    result.isEnabled = cell->isEnabled();
    result.image = Images::address(cell->image());
    result.opensPage = cell->accessoryType() == UITableViewCellAccessory::disclosureIndicator;
    result.isChecked = cell->accessoryType() == UITableViewCellAccessory::checkmark;
    const auto fontSize = cell->textLabel().font().pointSize;
    if (fontSize != UIFont().pointSize) result.fontSize = fontSize;
    result.height = row->propertyForKey("height").doubleValue();
    if (result.kind == RowKind::Switch) result.isChecked = row->performGetter().boolValue();
    if (result.kind == RowKind::Segment) {
        result.selected = selectedChoice(*row);
        for (const auto& value : row->values())
            result.choices += QString::fromStdString(titleForValue(row->titleDictionary(), value));
    }
    if (const auto* color = dynamic_cast<const SWLiteColorCell*>(cell.get()))
        result.swatch = toQColor(color->swatch());
    return result;
}

/// The platform's values: 0 left, 1 centered, 2 right.
int alignmentOf(const PSSpecifier& group) {
    switch (group.propertyForKey("footerAlignment").intValue()) {
    case 1:
        return Qt::AlignHCenter;
    case 2:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

} // namespace

std::vector<Row> pageRows(PSListController& page) {
    std::vector<Row> rows;
    auto& table = *page.table();
    for (std::size_t section = 0; section < page.numberOfSectionsInTableView(table); ++section) {
        const auto group = page.groupAtSection(section);
        // A header without text still separates the groups.
        const auto header = page.tableViewTitleForHeaderInSection(table, section);
        rows.emplace_back(RowKind::Header, QString::fromStdString(header), NSIndexPath{section, 0});
        const auto count = page.tableViewNumberOfRowsInSection(table, section);
        for (std::size_t row = 0; row < count; ++row)
            rows.push_back(rowAt(page, {section, row}, count));
        const auto footer = group ? group->propertyForKey("footerText").text() : "";
        if (footer.empty()) continue;
        rows.emplace_back(RowKind::Footer, QString::fromStdString(footer), NSIndexPath{section, 0});
        rows.back().alignment = alignmentOf(*group);
    }
    return rows;
}

} // namespace prismo::settings
