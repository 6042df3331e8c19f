#pragma once

#include "platform/foundation/NSObject.h"
#include "platform/foundation/Observable.h"

#include <memory>
#include <string>

namespace prismo {

class UIBarButtonItem;

/// What a page shows in the navigation bar while it is on top.
class UINavigationItem : public NSObject, public Observable {
  public:
    const std::string& title() const { return title_; }
    void setTitle(std::string title) { assign(title_, std::move(title)); }
    const std::shared_ptr<UIBarButtonItem>& rightBarButtonItem() const { return rightBarButtonItem_; }
    void setRightBarButtonItem(std::shared_ptr<UIBarButtonItem> item) {
        assign(rightBarButtonItem_, std::move(item));
    }

  private:
    std::string title_;
    std::shared_ptr<UIBarButtonItem> rightBarButtonItem_;
};

} // namespace prismo
