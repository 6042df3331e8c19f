// How long the root page takes to build its rows, next to one bare parse of the same settings file.

#include "platform/linux/LinuxDevice.h"
#include "prefs/SettingsFile.h"
#include "screens/Bundle.h"
#include "screens/root/Prismo2PrefsListController.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <plist/plist.h>
#include <string>

using namespace prismo;

namespace {

/// A temporary device root with a settings file of `keys` entries.
class World {
  public:
    explicit World(std::int64_t keys) {
        std::string pattern = std::filesystem::temp_directory_path() / "prismo2-bench-XXXXXX";
        if (!mkdtemp(pattern.data())) std::abort();
        root_ = pattern;
        // Without companions, the page does not query the version.
        device_ = std::make_unique<LinuxDevice>(root_, LinuxDevice::Clock::monotonic,
                                                LinuxDevice::Companions::none);
        current_ = std::make_unique<Device::Current>(*device_);
        Dictionary settings{{"enabled", true}};
        for (std::int64_t i = 1; i < keys; ++i) {
            const auto app = "com.example.app" + std::to_string(i / 3);
            if (i % 3 == 0) settings[app + "_scope_enabled"] = true;
            if (i % 3 == 1) settings[app + "_keyboard_color_type"] = 2;
            if (i % 3 == 2) settings[app + "_keyboard_color"] = "#3366ff:1.000000";
        }
        saveSettings(settings);
        registerPrismo2Prefs();
    }
    ~World() {
        current_.reset();
        device_.reset();
        std::filesystem::remove_all(root_);
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    std::string settingsFile() const { return root_ + settingsFilePath; }

  private:
    std::string root_;
    std::unique_ptr<LinuxDevice> device_;
    std::unique_ptr<Device::Current> current_;
};

void parseOnce(benchmark::State& state) {
    const World world(state.range(0));
    std::ifstream file(world.settingsFile(), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    for (auto _ : state) {
        plist_t root = nullptr;
        plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
        benchmark::DoNotOptimize(root);
        plist_free(root);
    }
}

void loadSettingsFile(benchmark::State& state) {
    const World world(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(loadSettings());
}

void buildPage(benchmark::State& state) {
    const World world(state.range(0));
    for (auto _ : state) {
        const auto page = std::make_shared<Prismo2PrefsListController>();
        benchmark::DoNotOptimize(page->rows());
    }
}

} // namespace

BENCHMARK(parseOnce)->Arg(40)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadSettingsFile)->Arg(40)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(buildPage)->Arg(40)->Arg(10'000)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
