#include "settings/model/overlays/RecentColors.h"

#include "platform/swatchkit/ColorText.h"

#include <QSettings>
#include <utility>

namespace prismo::settings {

namespace {

constexpr const char* key = "recentColors";

} // namespace

RecentColors::RecentColors(QString stateFile) : stateFile_(std::move(stateFile)) {
    if (stateFile_.isEmpty()) return;
    const auto kept = QSettings(stateFile_, QSettings::IniFormat).value(key).toStringList();
    for (const auto& text : kept) {
        const auto color = colorFromText(text.toStdString());
        if (color) texts_ += QString::fromStdString(hexFromColor(*color));
    }
    texts_.removeDuplicates();
    texts_ = texts_.mid(0, most);
}

void RecentColors::add(const QString& text) {
    texts_.removeAll(text);
    texts_.prepend(text);
    texts_ = texts_.mid(0, most);
    if (!stateFile_.isEmpty()) QSettings(stateFile_, QSettings::IniFormat).setValue(key, texts_);
    emit changed();
}

} // namespace prismo::settings
