#include "platform/memory/VirtualTimeDriver.h"

#include <algorithm>
#include <stdexcept>

namespace prismo {

void VirtualTimeDriver::wait(std::optional<RunLoop::Time> deadline) {
    if (woken_.exchange(false)) return;
    if (!deadline) throw std::logic_error("a wait that would never end");
    now_ = std::max(now_.load(), *deadline);
}

} // namespace prismo
