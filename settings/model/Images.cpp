#include "settings/model/Images.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <string_view>

namespace prismo::settings {

namespace {

struct Known {
    std::mutex mutex;
    std::map<QString, std::weak_ptr<UIImage>> images;
};

Known& known() {
    static Known images;
    return images;
}

QImage decode(const UIImage& image, QSize requested) {
    // Icons are small. A larger image may be an attack.
    constexpr int largestSide = 4096;
    QByteArray bytes(reinterpret_cast<const char*>(image.data().data()),
                     static_cast<qsizetype>(image.data().size()));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    const auto size = reader.size();
    if (!size.isValid() || size.width() > largestSide || size.height() > largestSide) return {};
    if (requested.width() > 0 && requested.height() > 0 && requested.width() <= largestSide &&
        requested.height() <= largestSide)
        reader.setScaledSize(size.scaled(requested, Qt::KeepAspectRatio));
    return reader.read();
}

QImage withRoundCorners(const QImage& picture) {
    constexpr double cornerOfSide = 0.225;
    QImage rounded(picture.size(), QImage::Format_ARGB32_Premultiplied);
    rounded.fill(Qt::transparent);
    QPainter painter(&rounded);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(picture));
    const auto radius = cornerOfSide * picture.width();
    painter.drawRoundedRect(picture.rect(), radius, radius);
    return rounded;
}

QImage inColor(const QImage& shape, const QColor& color) {
    QImage tinted = shape.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&tinted);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(tinted.rect(), color);
    return tinted;
}

} // namespace

Images::Images() : QQuickImageProvider(QQuickImageProvider::Image) {}

QString Images::address(const std::shared_ptr<UIImage>& image) {
    if (!image || image->data().empty()) return {};
    const std::string_view bytes(reinterpret_cast<const char*>(image->data().data()), image->data().size());
    const auto key = QString::number(std::hash<std::string_view>{}(bytes), 16);
    auto& [mutex, images] = known();
    const std::scoped_lock lock(mutex);
    // Removes expired entries now and then.
    constexpr std::size_t many = 1024;
    if (images.size() > many) std::erase_if(images, [](const auto& entry) { return entry.second.expired(); });
    images[key] = image;
    return "image://device/" + key;
}

QImage Images::requestImage(const QString& id, QSize* size, const QSize& requestedSize) {
    const auto slash = id.indexOf('/');
    const auto image = [&]() -> std::shared_ptr<UIImage> {
        auto& [mutex, images] = known();
        const std::scoped_lock lock(mutex);
        const auto found = images.find(id.left(slash));
        return found == images.end() ? nullptr : found->second.lock();
    }();
    auto picture = image ? decode(*image, requestedSize) : QImage();
    const auto look = slash < 0 ? QString() : id.mid(slash + 1);
    if (!picture.isNull() && look == "icon")
        picture = withRoundCorners(picture);
    else if (!picture.isNull() && !look.isEmpty())
        picture = inColor(picture, QColor("#" + look));
    if (size) *size = picture.size();
    return picture;
}

} // namespace prismo::settings
