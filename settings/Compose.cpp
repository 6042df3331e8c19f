#include "settings/Compose.h"

#include "settings/Taps.h"

#include <utility>

namespace prismo::settings {

Compose::Compose(std::shared_ptr<SLComposeViewController> sheet, Taps& taps)
    : sheet_(std::move(sheet)), taps_(taps) {
    changes_.follow(*sheet_);
}

void Compose::send() {
    taps_.add([sheet = sheet_] { sheet->send(); });
}

void Compose::dismiss() {
    taps_.add([sheet = sheet_] { sheet->dismiss(); });
}

} // namespace prismo::settings
