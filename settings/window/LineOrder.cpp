#include "settings/window/LineOrder.h"

#include <algorithm>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlProperty>
#include <QVariant>

namespace prismo::settings {

void LineOrder::setParentOfLines(QQuickItem* parent) {
    parent_ = parent;
    // A new line gets its index only after it is added, so the refresh is deferred.
    connect(parent_, &QQuickItem::childrenChanged, &changes_, &Refresh::later);
    // On a height change the list lays out its lines again and decides which are in view.
    connect(parent_, &QQuickItem::heightChanged, &changes_, &Refresh::later);
    connect(parent_->parentItem(), &QQuickItem::heightChanged, &changes_, &Refresh::later);
}

void LineOrder::putInOrder() {
    auto lines = parent_->childItems();
    lines.removeIf([](const QQuickItem* child) { return !child->property("index").isValid(); });
    std::ranges::stable_sort(lines, {},
                             [](const QQuickItem* line) { return line->property("index").toInt(); });
    // Going from the last to the first moves only lines that were added late.
    for (auto next = lines.size() - 1; next > 0; --next) {
        const auto children = parent_->childItems();
        if (children.indexOf(lines[next - 1]) + 1 != children.indexOf(lines[next]))
            lines[next - 1]->stackBefore(lines[next]);
    }
    for (auto* line : lines)
        QQmlProperty::write(line, "Accessible.ignored", false, qmlContext(line));
}

} // namespace prismo::settings
