#include "settings/model/overlays/Alert.h"

#include <utility>

namespace prismo::settings {

Alert::Alert(std::shared_ptr<UIAlertView> alert, Taps& taps)
    : Overlay(alert, taps), alert_(std::move(alert)) {}

QString Alert::title() const { return QString::fromStdString(alert_->title().value_or("")); }

QString Alert::message() const { return QString::fromStdString(alert_->message().value_or("")); }

QStringList Alert::buttons() const {
    QStringList titles;
    for (const auto& title : alert_->buttonTitles())
        titles += QString::fromStdString(title);
    return titles;
}

void Alert::click(int button) {
    if (button < 0 || static_cast<std::size_t>(button) >= alert_->buttonTitles().size()) return;
    end("Alert::click",
        [alert = alert_, button] { alert->clickButtonAtIndex(static_cast<std::size_t>(button)); });
}

} // namespace prismo::settings
