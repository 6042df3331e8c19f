#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/views/UIView.h"

#include <cstdint>
#include <memory>
#include <string>

namespace prismo {

class UINavigationController;
class UISplitViewController;

/// The edges of the screen to which a page's view extends under the bars; combine them with |. The values are
/// the platform's.
enum UIRectEdge : std::uint32_t {
    UIRectEdgeNone = 0,
    UIRectEdgeTop = 1,
    UIRectEdgeBottom = 4,
    UIRectEdgeAll = 15
};

/// A page: a view with a life cycle. A host brings it on screen through a navigation controller.
class UIViewController : public NSObject, public Observable {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    virtual std::string title() const { return navigationItem_->title(); }
    void setTitle(std::string title) { navigationItem_->setTitle(std::move(title)); }
    /// Owned by the page, which reports the item's changes as its own.
    UINavigationItem& navigationItem() { return *navigationItem_; }

    /// The page's view. Loads it first if necessary: `loadView`, then `viewDidLoad`.
    virtual std::shared_ptr<UIView> view();
    bool isViewLoaded() const { return view_ != nullptr; }

    virtual void loadView();
    virtual void viewDidLoad() {}
    virtual void viewWillAppear(bool /*animated*/) {}
    virtual void viewDidAppear(bool /*animated*/) {}
    virtual void viewWillDisappear(bool /*animated*/) {}
    virtual void viewDidDisappear(bool /*animated*/) {}
    /// The page has entered a container. If `parent` is null, it has left one for good and releases whatever
    /// would keep it alive.
    virtual void didMoveToParentViewController(const std::shared_ptr<UIViewController>& /*parent*/) {}

    /// The navigation controller whose stack holds this page, or null.
    std::shared_ptr<UINavigationController> navigationController() const {
        return navigationController_.lock();
    }

    /// The split view controller that contains this page or its navigation controller, or null.
    std::shared_ptr<UISplitViewController> splitViewController() const;

    /// Older systems lack it: ask `respondsToSelector("edgesForExtendedLayout")` first.
    std::uint32_t edgesForExtendedLayout() const { return edgesForExtendedLayout_; }
    void setEdgesForExtendedLayout(std::uint32_t edges) { assign(edgesForExtendedLayout_, edges); }

    /// Shows a page over this one until it is dismissed.
    void presentViewController(const std::shared_ptr<UIViewController>& page, bool animated);
    /// Dismisses this page, which must have been presented.
    void dismissViewController(bool animated);
    /// The page over which this one is presented, or null; not kept alive.
    std::shared_ptr<UIViewController> presentingViewController() const {
        return presentingViewController_.lock();
    }

  protected:
    void setView(std::shared_ptr<UIView> view) { assign(view_, std::move(view)); }

  private:
    friend class UINavigationController;
    friend class UISplitViewController;

    void setNavigationController(const std::shared_ptr<UINavigationController>& controller) {
        assign(navigationController_, controller);
    }
    void setSplitViewController(const std::shared_ptr<UISplitViewController>& controller) {
        assign(splitViewController_, controller);
    }

    std::shared_ptr<UINavigationItem> navigationItem_ = std::make_shared<UINavigationItem>();
    Subscription itemChanges_ = navigationItem_->observe([this] { changed(); });
    std::shared_ptr<UIView> view_;
    std::weak_ptr<UINavigationController> navigationController_;
    std::weak_ptr<UISplitViewController> splitViewController_;
    std::weak_ptr<UIViewController> presentingViewController_;
    std::uint32_t edgesForExtendedLayout_ = UIRectEdgeAll;
};

} // namespace prismo
