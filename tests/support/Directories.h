#pragma once

#include "platform/foundation/Result.h"
#include "platform/local/descriptors/SystemProblem.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <sys/stat.h>

namespace prismo {

/// Returns a function that opens the directory, creating it first if it is missing.
inline std::function<Result<UniqueFd>()> opener(std::filesystem::path path) {
    return [path = std::move(path)]() -> Result<UniqueFd> {
        ::mkdir(path.c_str(), 0700);
        UniqueFd opened(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!opened) return readProblem(path);
        return opened;
    };
}

inline std::string contents(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A new directory that is removed, with everything in it, on destruction.
class TemporaryDirectory {
  public:
    TemporaryDirectory() : path_(std::filesystem::temp_directory_path() / "prismo-events-XXXXXX") {
        std::string text = path_;
        if (!::mkdtemp(text.data())) throw std::filesystem::filesystem_error("mkdtemp", path_, {});
        path_ = text;
    }
    ~TemporaryDirectory() { std::filesystem::remove_all(path_); }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

} // namespace prismo
