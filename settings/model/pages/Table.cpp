#include "settings/model/pages/Table.h"

#include "settings/model/Images.h"
#include "settings/model/pages/RowEdits.h"
#include "settings/model/Taps.h"

#include "platform/applist/ALApplicationTableDataSource.h"
#include "platform/swatchkit/SWLiteColorCell.h"

#include <algorithm>
#include <QPointer>
#include <QVariantMap>

namespace prismo::settings {

namespace {

enum Role {
    KindRole = Qt::UserRole,
    TitleRole,
    DetailRole,
    CheckedRole,
    SelectedRole,
    ChoicesRole,
    EnabledRole,
    OpensPageRole,
    SwatchRole,
    ImageRole,
    HeightRole,
    FontSizeRole,
    AlignmentRole,
    FirstRole,
    LastRole,
};

QVariant roleOf(const Row& row, int role) {
    switch (role) {
    case KindRole:
        return row.kind;
    case TitleRole:
        return row.title;
    case DetailRole:
        return row.detail;
    case CheckedRole:
        return row.isChecked;
    case SelectedRole:
        return row.selected;
    case ChoicesRole:
        return row.choices;
    case EnabledRole:
        return row.isEnabled;
    case OpensPageRole:
        return row.opensPage;
    case SwatchRole:
        return row.swatch;
    case ImageRole:
        return row.image;
    case HeightRole:
        return row.height;
    case FontSizeRole:
        return row.fontSize;
    case AlignmentRole:
        return row.alignment;
    case FirstRole:
        return row.isFirst;
    case LastRole:
        return row.isLast;
    default:
        return {};
    }
}

QString initialOf(const QString& name) {
    const auto letter = name.trimmed().left(1).normalized(QString::NormalizationForm_D).left(1).toUpper();
    return !letter.isEmpty() && letter[0].isLetter() ? letter : QStringLiteral("#");
}

} // namespace

Table::Table(const std::shared_ptr<UIViewController>& page, Taps& taps)
    : page_(page), list_(std::dynamic_pointer_cast<PSListController>(page)),
      table_(std::dynamic_pointer_cast<UITableView>(page->view())), taps_(taps) {
    if (!table_) return;
    tableChanges_.follow(*table_);
    look();
}

Table::~Table() {
    // The page may outlive this object, but its cells and their images are no longer needed.
    tableChanges_.followNothing();
    if (table_) table_->reloadData();
}

int Table::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant Table::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    if (!isSettingsList() && role == ImageRole && row.isInteractive()) {
        const auto cell = table_->cellForRowAtIndexPath(row.path);
        return cell ? Images::address(cell->image()) : QString();
    }
    return roleOf(row, role);
}

QHash<int, QByteArray> Table::roleNames() const {
    return {{KindRole, "kind"},           {TitleRole, "title"},         {DetailRole, "detail"},
            {CheckedRole, "isChecked"},   {SelectedRole, "selected"},   {ChoicesRole, "choices"},
            {EnabledRole, "isEnabled"},   {OpensPageRole, "opensPage"}, {SwatchRole, "swatch"},
            {ImageRole, "image"},         {HeightRole, "rowHeight"},    {FontSizeRole, "fontSize"},
            {AlignmentRole, "alignment"}, {FirstRole, "isFirst"},       {LastRole, "isLast"}};
}

void Table::tap(int row) {
    act("Table::tap", row, [this](NSIndexPath path) {
        if (list_)
            list_->tapRow(path);
        else if (const auto delegate = table_->delegate())
            delegate->tableViewDidSelectRowAtIndexPath(*table_, path);
    });
}

void Table::choose(int row, int choice) {
    act("Table::choose", row, [this, choice](NSIndexPath path) {
        const auto specifier = list_ ? list_->specifierAtIndexPath(path) : nullptr;
        const auto at = static_cast<std::size_t>(choice);
        if (specifier && choice >= 0 && at < specifier->values().size())
            specifier->performSetterWithValue(specifier->values()[at]);
    });
}

void Table::act(const char* from, int row, std::function<void(NSIndexPath)> act) {
    if (row < 0 || row >= rowCount()) return;
    const auto tapped = rows_[static_cast<std::size_t>(row)];
    if (!tapped.isInteractive() || !tapped.isEnabled) return;
    // Keeps the page alive whatever the action does to the stack. This object may be destroyed.
    taps_.add(from, [self = QPointer<Table>(this), page = page_, tapped, act = std::move(act)] {
        if (!self) return;
        const auto cell = self->table_->cellForRowAtIndexPath(tapped.path);
        if (!cell || !cell->isEnabled() || cell->textLabel().text() != tapped.title.toStdString()) return;
        act(tapped.path);
        if (self) self->tableChanges_.later();
    });
}

int Table::interactiveRow(int row, int step) const {
    for (; row >= 0 && row < rowCount(); row += step)
        if (const auto& line = rows_[static_cast<std::size_t>(row)]; line.isInteractive() && line.isEnabled)
            return row;
    return -1;
}

int Table::startRow() const {
    const auto chosen = std::ranges::find_if(
        rows_, [](const Row& line) { return line.kind == RowKind::Choice && line.isChecked; });
    return interactiveRow(chosen == rows_.end() ? 0 : static_cast<int>(chosen - rows_.begin()), 1);
}

void Table::look() {
    if (list_)
        lookAtList();
    else
        lookAtApplications();
}

void Table::lookAtList() {
    auto rows = pageRows(*list_);
    for (const auto& edit : rowEdits(rows_, rows)) {
        const auto first = static_cast<int>(edit.at);
        const auto last = static_cast<int>(edit.at + edit.count) - 1;
        const auto at = rows_.begin() + first;
        if (edit.kind == RowEdit::Kind::remove) {
            beginRemoveRows({}, first, last);
            rows_.erase(at, at + static_cast<int>(edit.count));
            endRemoveRows();
        } else {
            beginInsertRows({}, first, last);
            const auto from = rows.begin() + static_cast<int>(edit.from);
            rows_.insert(at, from, from + static_cast<int>(edit.count));
            endInsertRows();
        }
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (rows_[i] == rows[i]) continue;
        rows_[i] = std::move(rows[i]);
        const auto changed = index(static_cast<int>(i));
        emit dataChanged(changed, changed);
    }
    followCells();
}

void Table::followCells() {
    cellChanges_.followNothing();
    for (const auto& row : rows_)
        if (row.isInteractive())
            if (const auto cell = table_->cellForRowAtIndexPath(row.path)) cellChanges_.follow(*cell);
}

void Table::lookAtApplications() {
    const auto source = table_->dataSource();
    if (!source) return;
    const auto applications = std::dynamic_pointer_cast<ALApplicationTableDataSource>(source);
    const auto nameAt = [&](NSIndexPath path) {
        // Avoids creating the cell, which would read the icon.
        if (applications)
            return QString::fromStdString(
                applications->sections()[path.section].applications[path.row].displayName);
        const auto cell = table_->cellForRowAtIndexPath(path);
        return cell ? QString::fromStdString(cell->textLabel().text()) : QString();
    };
    beginResetModel();
    rows_.clear();
    letters_.clear();
    for (std::size_t section = 0; section < source->numberOfSectionsInTableView(*table_); ++section) {
        const auto title = source->tableViewTitleForHeaderInSection(*table_, section);
        rows_.emplace_back(RowKind::Header, QString::fromStdString(title), NSIndexPath{section, 0});
        const auto count = source->tableViewNumberOfRowsInSection(*table_, section);
        QString initial;
        for (std::size_t i = 0; i < count; ++i) {
            const auto name = nameAt({section, i});
            if (initialOf(name) != initial) {
                initial = initialOf(name);
                letters_.append(QVariantMap{{"label", initial}, {"row", rowCount()}});
            }
            auto& row = rows_.emplace_back(RowKind::Application, name, NSIndexPath{section, i});
            row.isFirst = i == 0;
            row.isLast = i + 1 == count;
        }
    }
    endResetModel();
    emit lettersChanged();
}

} // namespace prismo::settings
