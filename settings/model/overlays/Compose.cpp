#include "settings/model/overlays/Compose.h"

#include <utility>

namespace prismo::settings {

Compose::Compose(std::shared_ptr<SLComposeViewController> sheet, Taps& taps)
    : Overlay(sheet, taps), sheet_(std::move(sheet)) {
    changes_.follow(*sheet_);
}

void Compose::send() {
    end("Compose::send", [sheet = sheet_] { sheet->send(); });
}

void Compose::dismiss() {
    end("Compose::dismiss", [sheet = sheet_] { sheet->dismiss(); });
}

} // namespace prismo::settings
