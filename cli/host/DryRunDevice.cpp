#include "cli/host/DryRunDevice.h"

namespace prismo::cli {

bool DryRunDevice::write(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
    return (!original_ || original_->rehearseWrite(path, dictionary, mode)) &&
           MemoryDevice::write(path, dictionary, mode);
}

bool DryRunDevice::post(const std::string& name) {
    return (!original_ || original_->rehearsePost(name)) && MemoryDevice::post(name);
}

void DryRunDevice::observe(const std::string& name) {
    if (!original_ || original_->rehearseObserve()) MemoryDevice::observe(name);
}

} // namespace prismo::cli
