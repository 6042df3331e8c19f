#pragma once

#include "settings/bundles/PreferenceEntries.h"

#include "platform/foundation/Result.h"
#include "platform/preferences/PSListController.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace prismo::settings {

/// The first page: a row for each settings bundle, which opens the bundle's principal page.
class BundleListController : public PSListController {
  public:
    static const Class& classObject();
    const Class& isa() const override { return classObject(); }

    /// Loads a bundle and returns its principal class.
    using Load = std::function<Result<const Class*>(const std::string& bundle)>;
    /// Receives the reason why a bundle did not open.
    using Complain = std::function<void(const std::string& why)>;
    static std::shared_ptr<BundleListController>
    initWithEntries(std::vector<PreferenceEntry> entries, std::string rootPath, Load load, Complain complain);

    std::shared_ptr<PSSpecifierList> specifiers() override;
    void openBundle(const std::shared_ptr<PSSpecifier>& row);

  private:
    std::vector<PreferenceEntry> entries_;
    std::string rootPath_;
    Load load_;
    Complain complain_;
};

} // namespace prismo::settings
