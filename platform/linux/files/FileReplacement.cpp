#include "platform/linux/files/FileReplacement.h"

#include "platform/linux/files/TemporaryFile.h"
#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/SystemProblem.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace prismo {

namespace {

using Kind = Problem::Kind;
using Reached = Writing::Reached;

constexpr mode_t newFileMode = 0644;
constexpr mode_t permissions = 07777;

Problem unwritable(const DeviceRoot::Place& place) { return systemProblem(Kind::unwritable, place.path); }

/// The file has its bytes. How safe they are depends on `isSynced`; if it is false, errno says why.
Writing written(const DeviceRoot::Place& place, int file, bool isSynced) {
    Writing result;
    result.reached = isSynced ? Reached::disk : Reached::file;
    if (!isSynced) {
        result.problem = systemProblem(Kind::unsynced, place.path);
        result.problem->cause = "Written, but perhaps not to the disk: " + result.problem->cause;
    }
    ::fstat(file, &result.status);
    return result;
}

Result<> give(const DeviceRoot::Place& place, int file, const struct stat* old) {
    struct stat status = {};
    if (::fstat(file, &status) != 0) return unwritable(place);
    const bool isOthers = old && (old->st_uid != status.st_uid || old->st_gid != status.st_gid);
    if (isOthers && ::fchown(file, old->st_uid, old->st_gid) != 0) return unwritable(place);
    if (::fchmod(file, old ? old->st_mode & permissions : newFileMode) != 0) return unwritable(place);
    return Done{};
}

Result<> fill(const DeviceRoot::Place& place, int file, bool isNew, std::string_view bytes) {
    if (isNew && ::fchmod(file, newFileMode) != 0) return unwritable(place);
    if (auto all = writeAll(file, bytes, place.path); !all) return all;
    if (::ftruncate(file, static_cast<off_t>(bytes.size())) != 0) return unwritable(place);
    return Done{};
}

} // namespace

Writing replaceFile(const DeviceRoot::Place& place, const struct stat* old, std::string_view bytes) {
    auto made = TemporaryFile::make(place.directory.get(), place.path);
    if (!made) return {Reached::nothing, made.problem()};
    auto& file = made.value();
    auto step = writeAll(file.descriptor(), bytes, place.path);
    if (step) step = give(place, file.descriptor(), old);
    if (step) step = file.replace(place.name);
    if (!step) return {Reached::nothing, step.problem()};
    return written(place, file.descriptor(), syncDirectory(place.directory.get()));
}

Writing overwriteFile(const DeviceRoot::Place& place, std::string_view bytes) {
    constexpr int flags = O_WRONLY | O_NOFOLLOW | O_CLOEXEC | atOnce;
    const int directory = place.directory.get();
    UniqueFd file(::openat(directory, place.name.c_str(), flags | O_CREAT | O_EXCL, newFileMode));
    const bool isNew = static_cast<bool>(file);
    if (!isNew && errno == EEXIST) file = UniqueFd(::openat(directory, place.name.c_str(), flags));
    if (!file) return {Reached::nothing, unwritable(place)};
    // Reserve room first, to notice a full disk while the old bytes are still there.
    const auto size = static_cast<off_t>(bytes.size());
    const bool hasRoom =
        ::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, size) == 0 || errno == EOPNOTSUPP || errno == ENOSYS;
    auto step = hasRoom ? fill(place, file.get(), isNew, bytes) : unwritable(place);
    if (step)
        return written(place, file.get(), ::fsync(file.get()) == 0 && (!isNew || syncDirectory(directory)));
    if (isNew) ::unlinkat(directory, place.name.c_str(), 0);
    if (isNew || !hasRoom) return {Reached::nothing, step.problem()};
    return {Reached::part, step.problem()};
}

} // namespace prismo
