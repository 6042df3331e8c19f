#pragma once

#include "platform/preferences/PSSpecifier.h"
#include "platform/uikit/controllers/UIViewController.h"

#include <memory>

namespace prismo {

/// A page of the Settings application. It gets its parent page and the row that opened it before it appears
/// on screen.
class PSViewController : public UIViewController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Called once, right after the page is created. Returns false if the page cannot be built. Older systems
    /// lack the selector "initForContentSize:".
    virtual bool initForContentSize(CGSize size);

    /// The page that opened this one, or null; not kept alive.
    std::shared_ptr<PSViewController> parentController() const { return parentController_.lock(); }
    void setParentController(const std::shared_ptr<PSViewController>& parent) {
        assign(parentController_, parent);
    }
    /// The row that opened this page, or null.
    const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
    void setSpecifier(std::shared_ptr<PSSpecifier> specifier) { assign(specifier_, std::move(specifier)); }

    /// The value of a row of this page; by default, the row's "default".
    virtual Value readPreferenceValue(const std::shared_ptr<PSSpecifier>& specifier);
    /// Stores the value of a row of this page; by default, does nothing.
    virtual void setPreferenceValue(const Value& value, const std::shared_ptr<PSSpecifier>& specifier);

  private:
    std::weak_ptr<PSViewController> parentController_;
    std::shared_ptr<PSSpecifier> specifier_;
};

} // namespace prismo
