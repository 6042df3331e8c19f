#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/uikit/graphics/Geometry.h"

#include <memory>
#include <string>

namespace prismo {

enum class UIGraphicsOpacity { opaque, transparent };

/// A picture: its size in points and its encoded bytes, which a host decodes and scales to that size. An
/// image without bytes is blank: fully transparent, or black if it is opaque.
class UIImage : public NSObject {
  public:
    UIImage(CGSize size, Data data, double scale = 1,
            UIGraphicsOpacity opacity = UIGraphicsOpacity::transparent)
        : size_(size), data_(std::move(data)), scale_(scale), opacity_(opacity) {}

    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Loads the PNG file at a device path. Its size in points is its size in pixels. Returns null if there
    /// is no such file or it is not a PNG file.
    static std::shared_ptr<UIImage> imageWithContentsOfFile(const std::string& path);

    CGSize size() const { return size_; }
    const Data& data() const { return data_; }
    /// Pixels per point.
    double scale() const { return scale_; }
    UIGraphicsOpacity opacity() const { return opacity_; }

  private:
    CGSize size_;
    Data data_;
    double scale_;
    UIGraphicsOpacity opacity_;
};

} // namespace prismo
