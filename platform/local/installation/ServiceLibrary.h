#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace prismo {

/// Finds `maker` in the service's shared library and keeps the library for the life of the process. Libraries
/// are looked for in one place only, which goes with the running program; the environment and the working
/// directory have no say. Null where that fails: `path` and `cause` then say what and why.
void* findServiceMaker(const std::string& service, const char* maker, std::string& path, std::string& cause);

/// A service of a shared library of its own, loaded and made when it is first asked for. An `Interface` names
/// its library (`serviceName`) and the library's function that makes one (`serviceMaker`). Callable from
/// every thread.
template <typename Interface>
class ServiceLibrary {
  public:
    /// What is missing, with the path on this machine; called once, on the thread that asked first.
    using Report = std::function<void(std::string path, std::string cause)>;

    explicit ServiceLibrary(Report report) : report_(std::move(report)) {}

    /// Null where the library is not installed or cannot be loaded.
    Interface* service() {
        std::call_once(asked_, [this] { load(); });
        return service_.get();
    }

  private:
    void load() {
        std::string path;
        std::string cause;
        auto* maker = findServiceMaker(Interface::serviceName, Interface::serviceMaker, path, cause);
        if (maker) service_.reset(reinterpret_cast<Interface* (*)()>(maker)());
        if (maker && !service_) cause = "Cannot be started";
        if (!service_) report_(std::move(path), std::move(cause));
    }

    Report report_;
    std::once_flag asked_;
    std::unique_ptr<Interface> service_;
};

} // namespace prismo
