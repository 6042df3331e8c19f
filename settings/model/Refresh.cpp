#include "settings/model/Refresh.h"

#include <utility>

namespace prismo::settings {

void Refresh::later() {
    if (std::exchange(isDue_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isDue_ = false;
            look_();
        },
        Qt::QueuedConnection);
}

} // namespace prismo::settings
