#include "settings/model/Stage.h"

#include "platform/foundation/NSObject.h"

#include <algorithm>
#include <QQmlEngine>
#include <utility>

namespace prismo::settings {

namespace {

enum StageRole { ObjectRole = Qt::UserRole, LeavingRole, ClassRole };

} // namespace

Stage::Stage(Make make) : make_(std::move(make)) {}

Stage::~Stage() = default;

void Stage::show(const std::vector<std::shared_ptr<NSObject>>& objects) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const bool stays = std::ranges::find(objects, entries_[i].source) != objects.end();
        if (stays == !entries_[i].isLeaving) continue;
        entries_[i].isLeaving = !stays;
        const auto changed = index(static_cast<int>(i));
        emit dataChanged(changed, changed, {LeavingRole});
    }
    for (const auto& source : objects) {
        if (std::ranges::find(entries_, source, &Entry::source) != entries_.end()) continue;
        auto object = make_(source);
        if (!object) continue;
        QQmlEngine::setObjectOwnership(object.get(), QQmlEngine::CppOwnership);
        beginInsertRows({}, rowCount(), rowCount());
        entries_.push_back({source, std::move(object)});
        endInsertRows();
    }
    emit topChanged();
}

QObject* Stage::top() const {
    const auto last =
        std::find_if(entries_.rbegin(), entries_.rend(), [](const auto& e) { return !e.isLeaving; });
    return last == entries_.rend() ? nullptr : last->object.get();
}

int Stage::depth() const { return static_cast<int>(std::ranges::count(entries_, false, &Entry::isLeaving)); }

void Stage::remove(QObject* object) {
    const auto found = std::ranges::find_if(
        entries_, [&](const Entry& entry) { return entry.object.get() == object && entry.isLeaving; });
    if (found == entries_.end()) return;
    const auto row = static_cast<int>(found - entries_.begin());
    beginRemoveRows({}, row, row);
    auto* const removed = found->object.release();
    entries_.erase(found);
    endRemoveRows();
    // The item that draws it reads from it until it is deleted, also later. This deletion comes after.
    removed->deleteLater();
}

int Stage::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

QVariant Stage::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& entry = entries_[static_cast<std::size_t>(index.row())];
    if (role == LeavingRole) return entry.isLeaving;
    if (role == ClassRole) return QString(entry.object->metaObject()->className()).section("::", -1);
    return role == ObjectRole ? QVariant::fromValue(entry.object.get()) : QVariant();
}

QHash<int, QByteArray> Stage::roleNames() const {
    return {{ObjectRole, "object"}, {LeavingRole, "isLeaving"}, {ClassRole, "kind"}};
}

} // namespace prismo::settings
