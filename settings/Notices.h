#pragma once

#include "platform/foundation/Device.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace prismo::settings {

/// What the person has to be told, because the framework is silent about it: each problem once, until it is
/// dismissed; a write that fails again is said again.
class Notices : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screen has them")

  public:
    void add(const FileProblem& problem);
    void add(const QString& headline, const QString& text);
    Q_INVOKABLE void dismiss(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

  private:
    struct Notice {
        QString headline;
        QString text;
        bool operator==(const Notice&) const = default;
    };
    std::vector<Notice> shown_;
    std::vector<FileProblem> said_;
};

} // namespace prismo::settings
