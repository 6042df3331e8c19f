#pragma once

#include "platform/uikit/graphics/UIImage.h"

#include <memory>
#include <QQuickImageProvider>

namespace prismo::settings {

/// Provides the framework's images to QML under "image://device/". Images with the same content have the same
/// address, so a rebuilt row does not flicker. The suffix "/icon" adds an icon's round corners; the suffix
/// "/rrggbb" fills the image's shape with that color.
class Images : public QQuickImageProvider {
  public:
    Images();

    /// "" if there is no image or it has no data. The address is valid as long as the image exists.
    static QString address(const std::shared_ptr<UIImage>& image);

    /// Runs on an engine thread. Returns a null image for bad or unreasonably large data.
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace prismo::settings
