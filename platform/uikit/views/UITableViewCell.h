#pragma once

#include "platform/uikit/graphics/UIImage.h"
#include "platform/uikit/views/UILabel.h"
#include "platform/uikit/views/UIView.h"

#include <memory>

namespace prismo {

enum class UITableViewCellAccessory { none, disclosureIndicator, checkmark };

/// One row of a table, as it should be drawn.
class UITableViewCell : public UIView {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Owned by the cell, which reports their changes as its own.
    UILabel& textLabel() { return *textLabel_; }
    UILabel& detailTextLabel() { return *detailTextLabel_; }
    const std::shared_ptr<UIImage>& image() const { return image_; }
    void setImage(std::shared_ptr<UIImage> image) { assign(image_, std::move(image)); }
    UITableViewCellAccessory accessoryType() const { return accessoryType_; }
    void setAccessoryType(UITableViewCellAccessory type) { assign(accessoryType_, type); }
    /// A disabled cell is grayed out and ignores taps.
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled) { assign(enabled_, enabled); }

  private:
    std::shared_ptr<UILabel> textLabel_ = std::make_shared<UILabel>();
    std::shared_ptr<UILabel> detailTextLabel_ = std::make_shared<UILabel>();
    Subscription textChanges_ = textLabel_->observe([this] { changed(); });
    Subscription detailTextChanges_ = detailTextLabel_->observe([this] { changed(); });
    std::shared_ptr<UIImage> image_;
    UITableViewCellAccessory accessoryType_ = UITableViewCellAccessory::none;
    bool enabled_ = true;
};

} // namespace prismo
