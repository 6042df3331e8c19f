#pragma once

#include "platform/foundation/Result.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace prismo {

/// The function `maker` in the shared library of a service, and that library's path.
struct ServiceMaker {
    std::string library;
    void* function = nullptr;
};

/// Finds `maker` in the service's shared library, which stays loaded for the life of the process. Looks in
/// one place only, which belongs to the running program; the environment and the working directory do not
/// matter. Fails as missingService.
Result<ServiceMaker> findServiceMaker(const std::string& service, const char* maker);

/// A service in a shared library of its own, which is loaded on first use. An `Interface` names its library
/// (`serviceName`) and the library's function that makes the service (`serviceMaker`). Callable from any
/// thread.
template <typename Interface>
class ServiceLibrary {
  public:
    /// Gets the problem, once, on the thread that asked first.
    using Report = std::function<void(const Problem&)>;

    explicit ServiceLibrary(Report report) : report_(std::move(report)) {}

    /// Null if the library is not installed or cannot be loaded.
    Interface* service() {
        std::call_once(asked_, [this] { load(); });
        return service_.get();
    }

  private:
    void load() {
        const auto maker = findServiceMaker(Interface::serviceName, Interface::serviceMaker);
        if (!maker) return report_(maker.problem());
        service_.reset(reinterpret_cast<Interface* (*)()>(maker.value().function)());
        if (!service_) report_({Problem::Kind::missingService, maker.value().library, "Cannot be started"});
    }

    Report report_;
    std::once_flag asked_;
    std::unique_ptr<Interface> service_;
};

} // namespace prismo
