#include "settings/model/Notices.h"

#include <algorithm>

namespace prismo::settings {

namespace {

enum NoticeRole { HeadlineRole = Qt::UserRole, TextRole };

QString headlineOf(Problem::Kind kind) {
    switch (kind) {
    case Problem::Kind::missing:
        return Notices::tr("File Not Found");
    case Problem::Kind::unreadable:
        return Notices::tr("Cannot Be Read");
    case Problem::Kind::malformed:
        return Notices::tr("Damaged File");
    case Problem::Kind::unwritable:
        return Notices::tr("Change Not Saved");
    case Problem::Kind::unsynced:
        return Notices::tr("Change Perhaps Not Kept");
    case Problem::Kind::replaced:
        return Notices::tr("Damaged File Replaced");
    case Problem::Kind::notPosted:
        return Notices::tr("Other Programs Are Not Told");
    case Problem::Kind::notObserved:
        return Notices::tr("Changes by Others Are Not Seen");
    case Problem::Kind::notPrivate:
        return Notices::tr("Other Users Can See Changes");
    case Problem::Kind::missingService:
        return Notices::tr("Part of the Program Is Missing");
    case Problem::Kind::notStarted:
        return Notices::tr("Cannot Be Started");
    }
    return {};
}

} // namespace

void Notices::add(const Problem& problem) {
    const bool isNew = known_.add(problem);
    if (!isNew && problem.kind != Problem::Kind::unwritable) return;
    if (shown_.explains(problem)) return;
    show({headlineOf(problem.kind), QString::fromStdString(problem.text()), problem});
    removeExplained();
}

void Notices::add(const QString& headline, const QString& text) { show({headline, text, {}}); }

void Notices::show(const Notice& notice) {
    if (std::ranges::find(notices_, notice) != notices_.end()) return;
    beginInsertRows({}, rowCount(), rowCount());
    notices_.push_back(notice);
    endInsertRows();
    if (notice.problem) shown_.add(*notice.problem);
}

void Notices::removeExplained() {
    for (int row = rowCount() - 1; row >= 0; --row) {
        const auto& problem = notices_[static_cast<std::size_t>(row)].problem;
        if (problem && shown_.explains(*problem)) dismiss(row);
    }
}

void Notices::dismiss(int row) {
    if (row < 0 || row >= rowCount()) return;
    beginRemoveRows({}, row, row);
    const auto notice = notices_.begin() + row;
    if (notice->problem) shown_.remove(*notice->problem);
    notices_.erase(notice);
    endRemoveRows();
}

int Notices::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(notices_.size());
}

QVariant Notices::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& notice = notices_[static_cast<std::size_t>(index.row())];
    if (role == HeadlineRole) return notice.headline;
    return role == TextRole ? QVariant(notice.text) : QVariant();
}

QHash<int, QByteArray> Notices::roleNames() const { return {{HeadlineRole, "headline"}, {TextRole, "text"}}; }

} // namespace prismo::settings
