#include "platform/linux/files/TemporaryFile.h"

#include "platform/local/descriptors/DirectoryNames.h"
#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/SystemProblem.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/stat.h>

namespace prismo {

namespace {

constexpr std::string_view prefix = ".prismo2-";
constexpr std::string_view suffix = ".tmp";
constexpr std::size_t tokenLength = 16;

/// A name that nobody can guess, so that nobody can plant something under it. Empty, with errno set, on
/// failure.
std::string newName() {
    std::uint64_t number = 0;
    if (::getrandom(&number, sizeof number, 0) != sizeof number) return {};
    std::array<char, tokenLength + 1> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(number));
    return std::string(prefix) + text.data() + std::string(suffix);
}

bool isName(std::string_view name) {
    return name.size() == prefix.size() + tokenLength + suffix.size() && name.starts_with(prefix) &&
           name.ends_with(suffix);
}

} // namespace

Result<TemporaryFile> TemporaryFile::make(int directory, const std::string& path) {
    constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
    TemporaryFile file(directory, path);
    struct stat status = {};
    do {
        file.name_ = newName();
        if (!file.name_.empty())
            file.descriptor_ = UniqueFd(::openat(directory, file.name_.c_str(), flags, 0600));
        if (file.name_.empty() || !file.descriptor_) return systemProblem(Problem::Kind::unwritable, path);
        // If the file system has no locks, no other process gets one to take the file for abandoned.
        ::flock(file.descriptor_.get(), LOCK_EX);
        // Before it was locked, another process may have removed it.
    } while (::fstat(file.descriptor_.get(), &status) == 0 && status.st_nlink == 0);
    return file;
}

TemporaryFile::~TemporaryFile() {
    if (descriptor_ && !name_.empty()) ::unlinkat(directory_, name_.c_str(), 0);
}

Result<> TemporaryFile::replace(const std::string& name) {
    if (::fsync(descriptor_.get()) != 0 ||
        ::renameat(directory_, name_.c_str(), directory_, name.c_str()) != 0)
        return systemProblem(Problem::Kind::unwritable, path_);
    name_.clear();
    return Done{};
}

void TemporaryFile::removeAbandoned(int directory) {
    const UniqueFd opened(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened) return;
    forEachName(opened.get(), [&](const char* name) {
        if (!isName(name)) return;
        const UniqueFd file(::openat(directory, name, O_RDONLY | O_NOFOLLOW | O_CLOEXEC | atOnce));
        if (file && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) ::unlinkat(directory, name, 0);
    });
}

} // namespace prismo
