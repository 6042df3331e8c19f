#include "settings/model/Notices.h"

#include "platform/linux/LinuxDevice.h"

#include <algorithm>

namespace prismo::settings {

namespace {

enum NoticeRole { HeadlineRole = Qt::UserRole, TextRole };

/// Of a root, on this machine.
bool isNotifyDirectory(const std::string& path) { return path.ends_with(notifyDirectory); }

QString headlineOf(const FileProblem& problem) {
    if (isNotifyDirectory(problem.path))
        return problem.kind == FileProblem::Kind::unwritable ? Notices::tr("Other Programs Are Not Told")
                                                             : Notices::tr("Changes by Others Are Not Seen");
    switch (problem.kind) {
    case FileProblem::Kind::unreadable:
        return Notices::tr("Cannot Be Read");
    case FileProblem::Kind::malformed:
        return Notices::tr("Damaged File");
    case FileProblem::Kind::unwritable:
        return Notices::tr("Change Not Saved");
    case FileProblem::Kind::unsynced:
        return Notices::tr("Change Perhaps Not Kept");
    case FileProblem::Kind::replaced:
        return Notices::tr("Damaged File Replaced");
    }
    return {};
}

} // namespace

void Notices::add(const FileProblem& problem) {
    const bool isSaid = std::ranges::find(said_, problem) != said_.end();
    if (isSaid && problem.kind != FileProblem::Kind::unwritable) return;
    if (!isSaid) said_.push_back(problem);
    if (!isToldWithWrite(problem))
        show({headlineOf(problem), QString::fromStdString(problem.path + ": " + problem.cause), problem});
}

bool Notices::isToldWithWrite(const FileProblem& problem) const {
    return isNotifyDirectory(problem.path) && problem.kind == FileProblem::Kind::unwritable &&
           std::ranges::any_of(shown_, [&](const Notice& other) {
               return other.problem && other.problem->kind == problem.kind &&
                      other.problem->cause == problem.cause;
           });
}

void Notices::add(const QString& headline, const QString& text) { show({headline, text, {}}); }

void Notices::show(const Notice& notice) {
    if (std::ranges::find(shown_, notice) != shown_.end()) return;
    beginInsertRows({}, rowCount(), rowCount());
    shown_.push_back(notice);
    endInsertRows();
}

void Notices::dismiss(int row) {
    if (row < 0 || row >= rowCount()) return;
    beginRemoveRows({}, row, row);
    shown_.erase(shown_.begin() + row);
    endRemoveRows();
}

int Notices::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

QVariant Notices::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& notice = shown_[static_cast<std::size_t>(index.row())];
    if (role == HeadlineRole) return notice.headline;
    return role == TextRole ? QVariant(notice.text) : QVariant();
}

QHash<int, QByteArray> Notices::roleNames() const { return {{HeadlineRole, "headline"}, {TextRole, "text"}}; }

} // namespace prismo::settings
