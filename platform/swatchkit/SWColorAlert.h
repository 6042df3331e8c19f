#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"
#include "platform/uikit/graphics/UIColor.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace prismo {

/// The color picker, as state. A host draws it while it is among the application's presented objects, and
/// ends it with `accept` or `cancel`.
class SWColorAlert : public NSObject, public Observable {
  public:
    using Completion = std::function<void(const UIColor& chosen)>;

    static std::shared_ptr<SWColorAlert> colorAlertWithStartColor(const UIColor& startColor, bool showAlpha);

    /// Presents the picker. Calls `completion` once, when a color is accepted, and never if the picker is
    /// canceled.
    void displayWithCompletion(Completion completion);

    const UIColor& startColor() const { return startColor_; }
    const UIColor& color() const { return color_; }
    bool showsAlpha() const { return showsAlpha_; }

    /// Sets the whole color, including its alpha.
    void setColor(const UIColor& color);
    /// Sets hue, saturation and brightness, each clamped to the range 0 to 1, and keeps the alpha. The hue
    /// survives even if the color turns gray.
    void setHSB(UIColor::HSB hsb);
    const UIColor::HSB& hsb() const { return hsb_; }
    /// The current color as "#rrggbb".
    std::string hexText() const;
    /// Sets the color from a color text, with its alpha only if the picker shows one. Returns false and
    /// changes nothing if it is not a color text.
    bool setHexText(std::string_view text);
    /// Sets the alpha, clamped to the range 0 to 1. Does nothing if the picker does not show alpha.
    void setAlpha(double alpha);

    void accept();
    void cancel();

    SWColorAlert(const UIColor& startColor, bool showAlpha);

  private:
    void show(const UIColor& color, UIColor::HSB hsb);

    UIColor startColor_;
    UIColor color_;
    UIColor::HSB hsb_;
    bool showsAlpha_;
    Completion completion_;
};

} // namespace prismo
