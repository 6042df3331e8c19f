#pragma once

#include "settings/model/pages/RowKind.h"

#include "platform/preferences/PSListController.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace prismo::settings {

/// One line of a page, ready to draw: a row, or a group's header or footer.
struct Row {
    Row() = default;
    Row(RowKind::Kind rowKind, QString rowTitle, NSIndexPath position)
        : kind(rowKind), title(std::move(rowTitle)), path(position) {}

    RowKind::Kind kind = RowKind::Link;
    /// The row's identifier, or "". Together with the kind it identifies the row when the page is rebuilt.
    QString identifier;
    QString title;
    /// A link list: the short title of its value.
    QString detail;
    /// A switch that is on, or the selected choice.
    bool isChecked = false;
    /// A segment: the index of the selected choice, or -1.
    int selected = -1;
    QStringList choices;
    bool isEnabled = true;
    bool opensPage = false;
    /// A color row.
    QColor swatch;
    QString image;
    /// In points; 0 means the default.
    double height = 0;
    double fontSize = 0;
    /// A footer: a Qt::AlignmentFlag.
    int alignment = Qt::AlignLeft;
    /// The position in the group's card.
    bool isFirst = false;
    bool isLast = false;
    /// The position in the table. A header or footer has the section's first position.
    NSIndexPath path;

    bool operator==(const Row&) const = default;
    bool isSameRow(const Row& other) const { return kind == other.kind && identifier == other.identifier; }
    bool isInteractive() const { return kind != RowKind::Header && kind != RowKind::Footer; }
};

/// Builds all lines of a page from its rows and their cells.
std::vector<Row> pageRows(PSListController& page);

} // namespace prismo::settings
