#pragma once

#include "settings/model/Notices.h"
#include "settings/model/overlays/RecentColors.h"
#include "settings/model/Refresh.h"
#include "settings/model/Stage.h"
#include "settings/model/Taps.h"

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UISplitViewController.h"

#include <memory>
#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>
#include <vector>

namespace prismo::settings {

class Banner;

/// The phone's screen for QML: the page stack, its navigation bar, and everything above them.
class Phone : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program creates the phone")
    Q_PROPERTY(prismo::settings::Stage* pages READ pages CONSTANT)
    Q_PROPERTY(prismo::settings::Stage* overlays READ overlays CONSTANT)
    Q_PROPERTY(QVariantList banners READ banners NOTIFY bannersChanged)
    /// True while the window, and so its banners, is above the status bar.
    Q_PROPERTY(bool coversStatusBar READ coversStatusBar NOTIFY bannersChanged)
    Q_PROPERTY(prismo::settings::Notices* notices READ notices CONSTANT)
    Q_PROPERTY(prismo::settings::RecentColors* recentColors READ recentColors CONSTANT)
    // The navigation bar's colors. An invalid color means the window's default.
    Q_PROPERTY(QColor tint READ tint NOTIFY barChanged)
    Q_PROPERTY(QColor barTint READ barTint NOTIFY barChanged)
    Q_PROPERTY(QColor titleColor READ titleColor NOTIFY barChanged)
    /// The device root.
    Q_PROPERTY(QString rootPath READ rootPath CONSTANT)
    Q_PROPERTY(QString rootName READ rootName CONSTANT)

  public:
    struct Start {
        QString rootPath;
        /// Where the window keeps its own state; "" for nowhere.
        QString stateFile;
    };
    /// Uses the current device. Shows nothing until `open` is called.
    explicit Phone(Start start);
    ~Phone() override;

    /// Pushes the first page.
    void open(const std::shared_ptr<UIViewController>& firstPage);

    Stage* pages() { return &pages_; }
    Stage* overlays() { return &overlays_; }
    QVariantList banners() const;
    bool coversStatusBar() const;
    Notices* notices() { return &notices_; }
    RecentColors* recentColors() { return &recentColors_; }
    QColor tint() const;
    QColor barTint() const;
    QColor titleColor() const;
    QString rootPath() const { return start_.rootPath; }
    QString rootName() const;
    UINavigationController& navigation() { return *navigation_; }

    /// The user goes back one page.
    Q_INVOKABLE void back();
    /// Reports the window's size in points.
    Q_INVOKABLE void setSize(double width, double height);

  signals:
    void bannersChanged();
    void barChanged();

  private:
    std::unique_ptr<QObject> makeOverlay(const std::shared_ptr<NSObject>& object);
    void lookAtPages();
    void lookAtApplication();
    void lookAtWindow();

    Start start_;
    Taps taps_;
    Notices notices_;
    RecentColors recentColors_;
    std::shared_ptr<UINavigationController> navigation_ = std::make_shared<UINavigationController>();
    std::shared_ptr<UISplitViewController> split_ = std::make_shared<UISplitViewController>();
    Stage pages_;
    Stage overlays_;
    std::vector<std::unique_ptr<Banner>> banners_;
    Refresh pageChanges_{[this] { lookAtPages(); }};
    Refresh barChanges_{[this] { emit barChanged(); }};
    Refresh applicationChanges_{[this] { lookAtApplication(); }};
    Refresh windowChanges_{[this] { lookAtWindow(); }};
};

} // namespace prismo::settings
