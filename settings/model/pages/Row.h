#pragma once

#include "platform/preferences/PSListController.h"

#include <QColor>
#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace prismo::settings {

/// One line of a page as it is to be drawn: a row, or a group's header or footer.
struct Row {
    Row() = default;
    Row(QString rowKind, QString rowTitle, NSIndexPath position)
        : kind(std::move(rowKind)), title(std::move(rowTitle)), path(position) {}

    /// Which delegate draws it: "header", "footer", "switch", "segment", "link", "linkList", "choice",
    /// "color", "button", "tall" or "application".
    QString kind;
    /// The row's identifier where it has one. With the kind it tells the same row of a rebuilt page.
    QString identifier;
    QString title;
    /// The short title of a link list's value.
    QString detail;
    /// On or chosen; of a switch and a choice.
    bool isChecked = false;
    /// The chosen one of `choices`, -1 for none; of a segment.
    int selected = -1;
    QStringList choices;
    bool isEnabled = true;
    bool opensPage = false;
    /// Of a colour row.
    QColor swatch;
    QString image;
    /// In points; 0 for the usual one.
    double height = 0;
    double fontSize = 0;
    /// Of a footer, a Qt::AlignmentFlag.
    int alignment = Qt::AlignLeft;
    /// Where it stands in its group's card.
    bool isFirst = false;
    bool isLast = false;
    /// Its position in the table; a header and footer have that of their section.
    NSIndexPath path;

    bool operator==(const Row&) const = default;
    bool isSameRow(const Row& other) const { return kind == other.kind && identifier == other.identifier; }
    bool isInteractive() const { return kind != "header" && kind != "footer"; }
};

/// All lines of a page, from its rows and their cells.
std::vector<Row> pageRows(PSListController& page);

} // namespace prismo::settings
