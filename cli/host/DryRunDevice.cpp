#include "cli/host/DryRunDevice.h"

namespace prismo::cli {

Result<> DryRunDevice::write(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
    if (original_)
        if (auto rehearsed = original_->rehearseWrite(path, dictionary, mode); !rehearsed) return rehearsed;
    return MemoryDevice::write(path, dictionary, mode);
}

Result<> DryRunDevice::post(const std::string& name) {
    if (original_)
        if (auto rehearsed = original_->rehearsePost(name); !rehearsed) return rehearsed;
    return MemoryDevice::post(name);
}

Result<> DryRunDevice::observe(const std::string& name) {
    if (companions_ != Companions::all) return Done{};
    if (original_)
        if (auto rehearsed = original_->rehearseObserve(); !rehearsed) return rehearsed;
    return MemoryDevice::observe(name);
}

Result<std::string> DryRunDevice::run(const std::string& executable,
                                      const std::vector<std::string>& arguments) {
    if (companions_ == Companions::none)
        return Problem{Problem::Kind::notStarted, executable, "No tasks are run"};
    return MemoryDevice::run(executable, arguments);
}

} // namespace prismo::cli
