#pragma once

#include "platform/uikit/graphics/UIImage.h"

#include <memory>
#include <QQuickImageProvider>

namespace prismo::settings {

/// The framework's images for QML, under "image://device/". An image has one address for the same content, so
/// that a row which is built anew does not flicker. With "/icon" after it, with the round corners of an icon;
/// with "/rrggbb", its shape in that colour.
class Images : public QQuickImageProvider {
  public:
    Images();

    /// "" for no image and for one that shows nothing. It is found there as long as somebody keeps it.
    static QString address(const std::shared_ptr<UIImage>& image);

    /// Called on a thread of the engine. Empty for what is no picture, or an unreasonably large one.
    QImage requestImage(const QString& id, QSize* size, const QSize& requestedSize) override;
};

} // namespace prismo::settings
