#pragma once

#include "settings/model/pages/Row.h"
#include "settings/model/Refresh.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <QVariantList>
#include <vector>

namespace prismo::settings {

class Taps;

/// The lines of one page's table. When the page is rebuilt, unchanged rows keep their delegates, so focus,
/// scroll position and running animations survive. A table that is not a settings list may be long: its cells
/// are created only when they come into view.
class Table : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Pages create their table")
    Q_PROPERTY(bool isSettingsList READ isSettingsList CONSTANT)
    Q_PROPERTY(QVariantList letters READ letters NOTIFY lettersChanged)

  public:
    /// If the page's view is not a table, there are no lines.
    Table(const std::shared_ptr<UIViewController>& page, Taps& taps);
    ~Table() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// Any other table may have thousands of rows.
    bool isSettingsList() const { return list_ != nullptr; }
    /// The first row of each initial letter, as {label, row} in table order. Empty for a settings list.
    QVariantList letters() const { return letters_; }

    /// The user taps the row: a switch changes, any other row is selected.
    Q_INVOKABLE void tap(int row);
    /// The user selects a part of a segment.
    Q_INVOKABLE void choose(int row, int choice);
    /// The nearest row at or after `row`, in the direction of `step`, that takes taps or focus; or -1.
    Q_INVOKABLE int interactiveRow(int row, int step) const;
    /// The row that gets the focus first: the selected choice, else the first row that takes taps or focus;
    /// or -1.
    Q_INVOKABLE int startRow() const;

  signals:
    void lettersChanged();

  private:
    /// Queues `act`. It runs only if the row at that position is then still the tapped one and enabled.
    /// `from` names the caller, for the trace.
    void act(const char* from, int row, std::function<void(NSIndexPath)> act);
    void look();
    void lookAtList();
    void lookAtApplications();
    void followCells();

    std::shared_ptr<UIViewController> page_;
    std::shared_ptr<PSListController> list_;
    std::shared_ptr<UITableView> table_;
    Taps& taps_;
    std::vector<Row> rows_;
    QVariantList letters_;
    Refresh tableChanges_{[this] { look(); }};
    Refresh cellChanges_{[this] { look(); }};
};

} // namespace prismo::settings
