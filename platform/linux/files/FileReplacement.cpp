#include "platform/linux/files/FileReplacement.h"

#include "platform/linux/files/TemporaryFile.h"
#include "platform/local/descriptors/FileBytes.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace prismo {

namespace {

constexpr mode_t newFileMode = 0644;
constexpr mode_t permissions = 07777;

Writing failure(Writing::Reached reached) { return {reached, errno, {}}; }

/// The file has its bytes; how safe are they?
Writing written(int file, bool isSynced) {
    Writing result{isSynced ? Writing::Reached::disk : Writing::Reached::file, isSynced ? 0 : errno, {}};
    ::fstat(file, &result.status);
    return result;
}

} // namespace

Writing replaceFile(const DeviceRoot::Place& place, const struct stat* old, std::string_view bytes) {
    const int directory = place.directory.get();
    TemporaryFile file(directory);
    struct stat status {};
    if (!file || ::fstat(file.descriptor(), &status) != 0) return failure(Writing::Reached::nothing);
    const bool isOthers = old && (old->st_uid != status.st_uid || old->st_gid != status.st_gid);
    const bool isReplaced =
        writeAll(file.descriptor(), bytes) &&
        (!isOthers || ::fchown(file.descriptor(), old->st_uid, old->st_gid) == 0) &&
        ::fchmod(file.descriptor(), old ? old->st_mode & permissions : newFileMode) == 0 &&
        file.replace(place.name);
    if (!isReplaced) return failure(Writing::Reached::nothing);
    return written(file.descriptor(), syncDirectory(directory));
}

Writing overwriteFile(const DeviceRoot::Place& place, std::string_view bytes) {
    constexpr int flags = O_WRONLY | O_NOFOLLOW | O_CLOEXEC | atOnce;
    const int directory = place.directory.get();
    const auto size = static_cast<off_t>(bytes.size());
    UniqueFd file(::openat(directory, place.name.c_str(), flags | O_CREAT | O_EXCL, newFileMode));
    const bool isNew = static_cast<bool>(file);
    if (!isNew && errno == EEXIST) file = UniqueFd(::openat(directory, place.name.c_str(), flags));
    if (!file) return failure(Writing::Reached::nothing);
    // Room first: a full disk is to be found while the old bytes are there.
    const bool hasRoom =
        ::fallocate(file.get(), FALLOC_FL_KEEP_SIZE, 0, size) == 0 || errno == EOPNOTSUPP || errno == ENOSYS;
    if (!isNew && !hasRoom) return failure(Writing::Reached::nothing);
    const bool isWritten = hasRoom && (!isNew || ::fchmod(file.get(), newFileMode) == 0) &&
                           writeAll(file.get(), bytes) && ::ftruncate(file.get(), size) == 0;
    if (isWritten)
        return written(file.get(), ::fsync(file.get()) == 0 && (!isNew || syncDirectory(directory)));
    const auto result = failure(isNew ? Writing::Reached::nothing : Writing::Reached::part);
    if (isNew) ::unlinkat(directory, place.name.c_str(), 0);
    return result;
}

} // namespace prismo
