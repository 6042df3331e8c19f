#include "settings/options/Options.h"
#include "settings/supervisor/Instance.h"
#include "settings/supervisor/Supervisor.h"

#include "platform/linux/files/DeviceRootPath.h"
#include "platform/local/installation/RunningProgram.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <optional>
#include <system_error>

namespace prismo::settings {

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Returns nullopt if there is no root; the window reports that.
std::optional<struct stat> rootStatus(const Options& options) {
    const auto root = DeviceRootPath::choose(options.root);
    if (!root || !root.value().makeIfDefault()) return std::nullopt;
    struct stat status = {};
    if (::stat(root.value().path().c_str(), &status) != 0) return std::nullopt;
    return status;
}

/// Leaves `instance` empty if the check for an existing window fails: the window should open anyway.
void claim(std::optional<Instance>& instance, const struct stat& root) {
    const auto token = environment("XDG_ACTIVATION_TOKEN");
    try {
        instance.emplace(root, token.empty() ? environment("DESKTOP_STARTUP_ID") : token);
    } catch (const std::system_error& error) {
        std::fprintf(stderr, "prismo2-settings: cannot check for an open window: %s\n", error.what());
    }
}

int run(const std::vector<std::string>& arguments) {
    const auto options = parseOptions(arguments);
    if (options.requests >= 0) throw UsageError("--requests is reserved for the window");
    if (!options.answer.empty())
        return std::fputs(options.answer.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;

    std::optional<Instance> instance;
    if (const auto root = rootStatus(options)) claim(instance, *root);
    if (instance && !instance->isFirst()) return 0;

    const auto program = valueOrThrow(runningProgram());
    Supervisor::Command window{(program.parent_path() / PRISMO_WINDOW).lexically_normal(), arguments, -1};
    if (instance) {
        window.inherited = instance->requests();
        window.arguments.push_back("--requests=" + std::to_string(window.inherited));
    }
    return Supervisor(std::move(window)).run();
}

} // namespace

} // namespace prismo::settings

int main(int argc, char** argv) {
    try {
        return prismo::settings::run({argv + (argc > 0 ? 1 : 0), argv + argc});
    } catch (const prismo::settings::UsageError& error) {
        std::fprintf(stderr, "prismo2-settings: %s\n", error.what());
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "prismo2-settings: %s\n", error.what());
        return 1;
    }
}
