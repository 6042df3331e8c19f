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

/// How a view follows its superview's size: a sum of these. The numbers are the platform's.
enum UIViewAutoresizing : std::uint32_t {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleWidth = 2,
    UIViewAutoresizingFlexibleTopMargin = 8,
    UIViewAutoresizingFlexibleHeight = 16,
};

/// A rectangle of the screen as state. A host observes it and draws; it never draws itself.
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
    /// A fade that begins or is cut short is a change too, where the alpha stays.
    void setAlpha(double alpha);
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden) { assign(hidden_, hidden); }
    const std::optional<UIColor>& backgroundColor() const { return backgroundColor_; }
    void setBackgroundColor(std::optional<UIColor> color) { assign(backgroundColor_, color); }
    /// Nothing stands for the system's own tint.
    const std::optional<UIColor>& tintColor() const { return tintColor_; }
    void setTintColor(std::optional<UIColor> color) { assign(tintColor_, color); }
    std::uint32_t autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(std::uint32_t mask) { assign(autoresizingMask_, mask); }
    bool autoresizesSubviews() const { return autoresizesSubviews_; }
    void setAutoresizesSubviews(bool resizes) { assign(autoresizesSubviews_, resizes); }

    /// Kept alive by their superview, back to front.
    const std::vector<std::shared_ptr<UIView>>& subviews() const { return subviews_; }
    std::shared_ptr<UIView> superview() const { return superview_.lock(); }
    void addSubview(const std::shared_ptr<UIView>& view);
    void bringSubviewToFront(const std::shared_ptr<UIView>& view);
    void removeFromSuperview();

    /// Runs `animations` now: the state has its new values at once, and what changed is drawn over
    /// `duration`. When that is over `completion` is called, on the run loop; it learns whether the animation
    /// went to its end or was cut short by another value.
    static void animateWithDuration(Seconds duration, const std::function<void()>& animations,
                                    std::function<void(bool finished)> completion);
    /// The alpha to draw at this moment of an animation.
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
    /// The one that is running.
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
