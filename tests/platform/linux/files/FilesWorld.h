#pragma once

#include "platform/linux/files/PropertyListFiles.h"
#include "tests/support/Directories.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
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

    bool write(const std::string& path, const Dictionary& dictionary,
               WriteMode mode = WriteMode::atomically) {
        return files.write(path, dictionary, mode);
    }

    TemporaryDirectory directory;
    DeviceRoot root{directory.path()};
    std::vector<FileProblem> problems;
    PropertyListFiles files{root, [this](FileProblem::Kind kind, std::string path, std::string cause) {
                                problems.push_back({kind, std::move(path), std::move(cause)});
                            }};
};

} // namespace prismo
