#pragma once

#include "platform/foundation/Device.h"

#include <optional>
#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace prismo::settings {

/// What the person has to be told, because the framework is silent about it: each problem once; it stands
/// until it is dismissed. A write that fails again is said again, but one whose post fails for the same cause
/// is told as one.
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
        std::optional<FileProblem> problem;
        bool operator==(const Notice&) const = default;
    };
    void show(const Notice& notice);
    /// A change that could not be written is not made known either, and both have the same cause.
    bool isToldWithWrite(const FileProblem& problem) const;

    std::vector<Notice> shown_;
    std::vector<FileProblem> said_;
};

} // namespace prismo::settings
