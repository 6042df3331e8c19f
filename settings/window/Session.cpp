#include "settings/window/Session.h"

#include "settings/bundles/BundleListController.h"
#include "settings/bundles/PreferenceEntries.h"
#include "settings/model/Images.h"
#include "settings/options/Options.h"
#include "settings/window/QtDriver.h"
#include "settings/window/StateFile.h"

#include "platform/linux/files/DeviceRootPath.h"
#include "platform/local/installation/PreferenceBundle.h"
#include "platform/uikit/UIApplication.h"

#include <QGuiApplication>
#include <QScreen>
#include <QtQml/qqmlextensionplugin.h>
#include <QWindow>
#include <stdexcept>

Q_IMPORT_QML_PLUGIN(Prismo_SettingsPlugin)

namespace prismo::settings {

namespace {

QList<QRect> screenPlaces() {
    QList<QRect> places;
    for (const auto* screen : QGuiApplication::screens())
        places.append(screen->availableGeometry());
    return places;
}

} // namespace

Session::Session(const Options& options) : place_(stateFile()) {
    QString failure;
    try {
        const auto root = valueOrThrow(DeviceRootPath::choose(options.root));
        valueOrThrow(root.makeIfDefault());
        openDevice(root.path());
    } catch (const std::runtime_error& error) {
        failure = error.what();
        phone_.reset();
    }
    engine_.addImageProvider("device", new Images);
    engine_.addImportPath("qrc:/qt/qml");
    QVariantMap properties{{"style", QString::fromStdString(options.style)}};
    if (phone_)
        properties["phone"] = QVariant::fromValue(&*phone_);
    else
        properties["reason"] = failure;
    if (const auto place = place_.kept(screenPlaces()))
        properties.insert(
            {{"x", place->x()}, {"y", place->y()}, {"width", place->width()}, {"height", place->height()}});
    engine_.setInitialProperties(properties);
    engine_.load(QUrl(phone_ ? "qrc:/qt/qml/Prismo/Settings/qml/Main.qml"
                             : "qrc:/qt/qml/Prismo/Settings/qml/FailureWindow.qml"));
    if (auto* made = window()) place_.follow(*made);
}

QWindow* Session::window() const {
    const auto roots = engine_.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QWindow*>(roots.first());
}

void Session::openDevice(const std::string& rootPath) {
    QtDriver* driver = nullptr;
    device_.emplace(rootPath, [&] {
        auto made = std::make_unique<QtDriver>();
        driver = made.get();
        return made;
    });
    driver->drive(&device_->runLoop());
    current_.emplace(*device_);
    UIApplication::restart();
    phone_.emplace(Phone::Start{QString::fromStdString(rootPath), stateFile()});
    auto* notices = phone_->notices();
    device_->setProblemObserver([notices](const Problem& problem) { notices->add(problem); });
    phone_->open(BundleListController::initWithEntries(
        findPreferenceEntries(*device_), rootPath, loadPreferenceBundle, [notices](const std::string& why) {
            notices->add(Notices::tr("Cannot Be Opened"), QString::fromStdString(why));
        }));
}

Session::~Session() {
    if (device_) device_->setProblemObserver({});
}

} // namespace prismo::settings
