#pragma once

#include "settings/model/pages/Row.h"
#include "settings/model/Refresh.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <QVariantList>
#include <vector>

namespace prismo::settings {

class Taps;

/// The lines of one page's table. Rows that stay keep their place when the page is built anew, so that focus,
/// scrolling and a control's animation go on; the cells of a long table that is no settings list are asked
/// for as they come into view.
class Table : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A page has one")
    Q_PROPERTY(bool isSettingsList READ isSettingsList CONSTANT)
    Q_PROPERTY(QVariantList letters READ letters NOTIFY lettersChanged)

  public:
    /// `page` may have another view than a table, and then there are no lines.
    Table(const std::shared_ptr<UIViewController>& page, Taps& taps);
    ~Table() override;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// What is none may have thousands of rows.
    bool isSettingsList() const { return list_ != nullptr; }
    /// Where each initial letter begins in a table that is no settings list: {label, row}, in the table's
    /// order.
    QVariantList letters() const { return letters_; }

    /// A person taps the row: a switch changes, everything else is selected.
    Q_INVOKABLE void tap(int row);
    /// A person chooses that part of a segment.
    Q_INVOKABLE void choose(int row, int choice);
    /// The nearest row from `row` on in that direction that takes taps or focus, or -1.
    Q_INVOKABLE int interactiveRow(int row, int step) const;
    /// Where a person begins: at what is chosen, or the first row that takes taps or focus; or -1.
    Q_INVOKABLE int startRow() const;

  signals:
    void lettersChanged();

  private:
    /// Does `act` with the row that stands there when its turn has come, where that is still the tapped one
    /// and enabled.
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
