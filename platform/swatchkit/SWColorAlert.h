#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"
#include "platform/uikit/graphics/UIColor.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace prismo {

/// The colour picker, as state: a host draws it while it is among the application's presented objects, and
/// ends it with `accept` or `cancel`.
class SWColorAlert : public NSObject, public Observable {
  public:
    using Completion = std::function<void(const UIColor& chosen)>;

    static std::shared_ptr<SWColorAlert> colorAlertWithStartColor(const UIColor& startColor, bool showAlpha);

    /// Presents the picker. `completion` is called once, when a colour is accepted; never on cancelling.
    void displayWithCompletion(Completion completion);

    const UIColor& startColor() const { return startColor_; }
    const UIColor& color() const { return color_; }
    bool showsAlpha() const { return showsAlpha_; }

    /// Sets the whole colour, its alpha too.
    void setColor(const UIColor& color);
    /// Changes hue, saturation and brightness (0 to 1) and keeps the alpha. A hue that a grey would lose is
    /// kept.
    void setHSB(UIColor::HSB hsb);
    const UIColor::HSB& hsb() const { return hsb_; }
    /// "#rrggbb" of the current colour.
    std::string hexText() const;
    /// Takes a colour text; its alpha only where the picker shows one. False, and nothing changes, where it
    /// is no colour text.
    bool setHexText(std::string_view text);
    /// From 0 to 1; does nothing where the picker shows no alpha.
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
