#pragma once

#include "platform/linux/files/PropertyListFiles.h"
#include "tests/support/Directories.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

/// The files of an empty device root, and the problems that they made.
struct FilesWorld {
    std::filesystem::path host(const std::string& path) const { return directory.path() / path.substr(1); }

    void put(const std::string& path, std::string_view bytes) const {
        std::filesystem::create_directories(host(path).parent_path());
        std::ofstream(host(path), std::ios::binary) << bytes;
    }
    std::string bytes(const std::string& path) const { return contents(host(path)); }

    /// The names in the device's directory, in order.
    std::vector<std::string> names(const std::string& path) const {
        std::vector<std::string> result;
        for (const auto& entry : std::filesystem::directory_iterator(host(path)))
            result.push_back(entry.path().filename());
        std::ranges::sort(result);
        return result;
    }

    // As on a device, a failure becomes one of the problems.

    bool write(const std::string& path, const Dictionary& dictionary,
               WriteMode mode = WriteMode::atomically) {
        const auto written = files.write(path, dictionary, mode);
        if (!written) problems.push_back(written.problem());
        return static_cast<bool>(written);
    }
    std::optional<Dictionary> read(const std::string& path) { return valueOf(files.read(path)); }
    std::optional<Data> readBytes(const std::string& path) { return valueOf(files.readBytes(path)); }

    TemporaryDirectory directory;
    DeviceRoot root = DeviceRoot::at(directory.path()).value();
    std::vector<Problem> problems;
    PropertyListFiles files{root, [this](const Problem& problem) { problems.push_back(problem); }};

  private:
    template <typename Value>
    std::optional<Value> valueOf(Result<std::optional<Value>> result) {
        if (result) return std::move(result).value();
        problems.push_back(result.problem());
        return std::nullopt;
    }
};

} // namespace prismo
