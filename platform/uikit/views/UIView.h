#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"
#include "platform/foundation/RunLoop.h"
#include "platform/uikit/graphics/Geometry.h"
#include "platform/uikit/graphics/UIColor.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace prismo {

/// How a view follows its superview's size; combine them with |. The values are the platform's.
enum UIViewAutoresizing : std::uint32_t {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleWidth = 2,
    UIViewAutoresizingFlexibleTopMargin = 8,
    UIViewAutoresizingFlexibleHeight = 16,
};

/// A rectangle on the screen, as state. A host observes and draws it; a view never draws itself.
class UIView : public NSObject, public Observable {
  public:
    UIView() = default;
    explicit UIView(CGRect frame) : frame_(frame) {}
    ~UIView() override;

    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// In the superview's coordinates.
    CGRect frame() const { return frame_; }
    void setFrame(CGRect frame) { assign(frame_, frame); }
    double alpha() const { return alpha_; }
    /// Notifies observers if a fade starts or is cut short, even if the alpha stays the same.
    void setAlpha(double alpha);
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden) { assign(hidden_, hidden); }
    const std::optional<UIColor>& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(std::optional<UIColor> color) { assign(backgroundColor_, color); }
    /// nullopt means the system's own tint.
    const std::optional<UIColor>& tintColor() const { return tintColor_; }
    void setTintColor(std::optional<UIColor> color) { assign(tintColor_, color); }
    std::uint32_t autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(std::uint32_t mask) { assign(autoresizingMask_, mask); }
    bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool resizes) { assign(autoresizesSubviews_, resizes); }

    /// In order from back to front. The view keeps them alive.
    const std::vector<std::shared_ptr<UIView>>& subviews() const { return subviews_; }
    std::shared_ptr<UIView> superview() const { return superview_.lock(); }
    void addSubview(const std::shared_ptr<UIView>& view);
    void bringSubviewToFront(const std::shared_ptr<UIView>& view);
    void removeFromSuperview();

    /// Runs `animations` immediately: the state has its new values at once, and the host draws the change
    /// over `duration`. When that is over, calls `completion` on the run loop; `finished` is false if another
    /// value cut the animation short.
    static void animateWithDuration(Seconds duration, const std::function<void()>& animations,
                                    std::function<void(bool finished)> completion);
    /// The alpha to draw now, during an animation.
    double presentationAlpha() const;
    /// When the last animation of the alpha ends, in the run loop's time.
    RunLoop::Time animationEnd() const { return fade_.end; }

  private:
    struct Fade {
        double from = 1;
        RunLoop::Time start{};
        RunLoop::Time end{};
        bool operator==(const Fade&) const = default;
    };
    struct Animation;
    /// The animation whose block is running, or null.
    static std::shared_ptr<Animation> animation;

    CGRect frame_;
    double alpha_ = 1;
    bool hidden_ = false;
    std::optional<UIColor> backgroundColor_;
    std::optional<UIColor> tintColor_;
    std::uint32_t autoresizingMask_ = UIViewAutoresizingNone;
    bool autoresizesSubviews_ = true;
    Fade fade_;
    std::weak_ptr<Animation> fadesIn_;
    std::weak_ptr<UIView> superview_;
    std::vector<std::shared_ptr<UIView>> subviews_;
};

} // namespace prismo
