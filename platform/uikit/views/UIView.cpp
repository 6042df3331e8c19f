#include "platform/uikit/views/UIView.h"

#include "platform/foundation/Device.h"

#include <algorithm>
#include <utility>

namespace prismo {

struct UIView::Animation {
    Seconds duration;
    bool isFinished = true;
};

std::shared_ptr<UIView::Animation> UIView::animation;

UIView::~UIView() = default;

const Class& UIView::classObject() {
    static const Class objectClass("UIView", &NSObject::classObject(),
                                   [] { return std::make_shared<UIView>(); });
    return objectClass;
}

void UIView::setAlpha(double alpha) {
    Fade fade;
    if (animation) {
        const auto now = Device::current().runLoop().now();
        fade = {presentationAlpha(), now, now + std::chrono::round<RunLoop::Time>(animation->duration)};
    }
    if (alpha == alpha_ && fade == fade_) return;
    const auto former = fadesIn_.lock();
    if (former && former != animation && Device::current().runLoop().now() < fade_.end)
        former->isFinished = false;
    alpha_ = alpha;
    fade_ = fade;
    fadesIn_ = animation;
    changed();
}

double UIView::presentationAlpha() const {
    if (fade_.end == fade_.start) return alpha_;
    const auto now = Device::current().runLoop().now();
    if (now >= fade_.end) return alpha_;
    const double progress = Seconds(now - fade_.start) / Seconds(fade_.end - fade_.start);
    return fade_.from + (alpha_ - fade_.from) * progress;
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
    const auto former = view->superview();
    if (former.get() == this) return bringSubviewToFront(view);
    if (former) std::erase(former->subviews_, view);
    subviews_.push_back(view);
    view->superview_ = sharedSelf<UIView>();
    if (former) former->changed();
    changed();
    view->changed();
}

void UIView::bringSubviewToFront(const std::shared_ptr<UIView>& view) {
    const auto found = std::ranges::find(subviews_, view);
    if (found == subviews_.end() || *found == subviews_.back()) return;
    std::rotate(found, found + 1, subviews_.end());
    changed();
}

void UIView::removeFromSuperview() {
    const auto superview = superview_.lock();
    if (!superview) return;
    const auto self = sharedSelf<UIView>();
    superview_.reset();
    std::erase(superview->subviews_, self);
    superview->changed();
    changed();
}

void UIView::animateWithDuration(Seconds duration, const std::function<void()>& animations,
                                 std::function<void(bool)> completion) {
    const auto made = std::make_shared<Animation>(Animation{duration});
    const auto outer = std::exchange(animation, made);
    animations();
    animation = outer;
    Device::current().runLoop().schedule(
        duration, [completion = std::move(completion), made] { completion(made->isFinished); });
}

} // namespace prismo
