#pragma once

#include "platform/foundation/ProblemList.h"

#include <optional>
#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace prismo::settings {

/// What the person needs to know, because the framework is silent about it. Each problem appears once, and
/// stays until the person dismisses it. A write that fails again appears again. A problem that another notice
/// explains does not appear, or goes when that notice comes.
class Notices : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The screen has them")

  public:
    void add(const Problem& problem);
    void add(const QString& headline, const QString& text);
    Q_INVOKABLE void dismiss(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

  private:
    struct Notice {
        QString headline;
        QString text;
        std::optional<Problem> problem;
        bool operator==(const Notice&) const = default;
    };
    void show(const Notice& notice);
    void removeExplained();

    std::vector<Notice> notices_;
    /// The problems of these notices.
    ProblemList shown_;
    /// All problems so far.
    ProblemList known_;
};

} // namespace prismo::settings
