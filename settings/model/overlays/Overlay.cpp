#include "settings/model/overlays/Overlay.h"

#include "settings/model/Taps.h"

#include "platform/uikit/UIApplication.h"

#include <algorithm>
#include <utility>

namespace prismo::settings {

Overlay::Overlay(std::shared_ptr<NSObject> source, Taps& taps) : source_(std::move(source)), taps_(taps) {}

void Overlay::end(const char* from, std::function<void()> how) {
    taps_.add(from, [source = source_, how = std::move(how)] {
        const auto& presented = UIApplication::sharedApplication()->presented();
        if (std::ranges::find(presented, source) != presented.end()) how();
    });
}

} // namespace prismo::settings
