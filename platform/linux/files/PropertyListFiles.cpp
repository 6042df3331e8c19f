#include "platform/linux/files/PropertyListFiles.h"

#include "platform/linux/files/FileReplacement.h"
#include "platform/linux/files/KeptFile.h"
#include "platform/linux/files/TemporaryFile.h"
#include "platform/local/descriptors/FileBytes.h"
#include "platform/plist/PropertyListGuard.h"
#include "platform/plist/PropertyListReader.h"
#include "platform/plist/PropertyListWriter.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>
#include <variant>

namespace prismo {

namespace {

/// Of an image, for instance. Nothing that a page shows comes near it.
constexpr std::size_t maximumFileSize = std::size_t{64} << 20;
constexpr const char* tooMuch = "More than a property list may hold here";

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

PropertyListFiles::Stamp::Stamp(const struct stat& status)
    : device(status.st_dev), inode(status.st_ino), size(status.st_size),
      modified(nanoseconds(status.st_mtim)), changed(nanoseconds(status.st_ctim)) {}

UniqueFd PropertyListFiles::open(const std::string& path, struct stat& status) {
    auto file = root_.open(path, O_RDONLY | atOnce);
    if (!file && (errno == ENOENT || errno == ENOTDIR)) {
        known_.erase(path);
        return file;
    }
    std::string cause;
    if (!file || ::fstat(file.get(), &status) != 0)
        cause = std::strerror(errno);
    else
        cause = notRegular(status);
    if (cause.empty()) return file;
    known_.insert_or_assign(path, std::nullopt);
    report_(FileProblem::Kind::unreadable, root_.hostPath(path), cause);
    return {};
}

std::optional<Dictionary> PropertyListFiles::read(const std::string& path) {
    struct stat status {};
    const auto file = open(path, status);
    if (!file) return {};
    auto& known = known_[path];
    known.reset();
    const auto fail = [&](FileProblem::Kind kind, const char* cause) {
        report_(kind, root_.hostPath(path), cause);
        return std::nullopt;
    };
    if (!readAll(file.get(), status, maximumPropertyListSize, bytes_) && errno != EFBIG)
        return fail(FileProblem::Kind::unreadable, std::strerror(errno));
    // An empty one, as a power cut may leave it, is no problem.
    if (bytes_.empty()) return {};
    auto parsed = parseDictionary(bytes_);
    if (const auto* refusal = std::get_if<Refusal>(&parsed))
        return *refusal == Refusal::beyondLimits
                   ? fail(FileProblem::Kind::unreadable, tooMuch)
                   : fail(FileProblem::Kind::malformed, "No property-list dictionary");
    known = Stamp(status);
    return std::get<Dictionary>(std::move(parsed));
}

std::optional<Data> PropertyListFiles::readBytes(const std::string& path) {
    struct stat status {};
    const auto file = open(path, status);
    if (!file) return {};
    auto bytes = readAll(file.get(), maximumFileSize);
    if (!bytes) report_(FileProblem::Kind::unreadable, root_.hostPath(path), std::strerror(errno));
    return bytes;
}

bool PropertyListFiles::refuse(const std::string& path, const std::string& cause) const {
    report_(FileProblem::Kind::unwritable, root_.hostPath(path), cause);
    return false;
}

/// Nothing, which is said, where no file may hold it.
std::optional<std::string> PropertyListFiles::textFor(const std::string& path,
                                                      const Dictionary& dictionary) const {
    auto text = xmlText(dictionary);
    std::string cause;
    if (const auto* unwritable = std::get_if<Unwritable>(&text)) {
        cause = unwritable->cause;
    } else {
        // Beyond this limit the kernel would end the process, and not the write alone.
        rlimit limit{};
        if (::getrlimit(RLIMIT_FSIZE, &limit) != 0 || std::get<std::string>(text).size() <= limit.rlim_cur)
            return std::get<std::string>(std::move(text));
        cause = std::strerror(EFBIG);
    }
    refuse(path, cause);
    return {};
}

bool PropertyListFiles::rehearseWrite(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
    if (!textFor(path, dictionary)) return false;
    const auto place = root_.place(path);
    if (!place) return root_.couldMakeParents(path) || refuse(path, std::strerror(errno));
    std::string cause;
    const auto old = openOld(*place, cause);
    const auto reason = old && cause.empty() ? reasonToKeep(path, *old, cause) : "";
    if (!cause.empty()) return refuse(path, cause);
    const bool isEntered = mode == WriteMode::atomically || !old;
    if (::faccessat(place->directory.get(), isEntered ? "." : place->name.c_str(), W_OK, AT_EACCESS) != 0)
        return refuse(path, std::strerror(errno));
    if (reason.empty()) return true;
    report_(FileProblem::Kind::replaced, root_.hostPath(path),
            reason + " and would be replaced; its bytes would be kept beside it");
    known_.insert_or_assign(path, Stamp(old->status));
    return true;
}

bool PropertyListFiles::write(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
    const auto fail = [&](const std::string& cause) { return refuse(path, cause); };
    const auto text = textFor(path, dictionary);
    if (!text) return false;
    std::optional<DeviceRoot::Place> place;
    if (root_.makeParents(path)) place = root_.place(path);
    if (!place) return fail(std::strerror(errno));
    std::string cause;
    const auto old = openOld(*place, cause);
    const auto reason = old && cause.empty() ? reasonToKeep(path, *old, cause) : "";
    if (!cause.empty()) return fail(cause);

    const int directory = place->directory.get();
    std::optional<std::string> kept;
    if (!reason.empty()) {
        kept = keepBeside(directory, place->name, old->file.get(), old->status, mode);
        if (!kept) return fail(std::string("The old bytes cannot be kept: ") + std::strerror(errno));
    }
    const auto writing = mode == WriteMode::atomically
                             ? replaceFile(*place, old ? &old->status : nullptr, *text)
                             : overwriteFile(*place, *text);
    using Reached = Writing::Reached;
    if (kept && writing.reached == Reached::nothing)
        ::unlinkat(directory, kept->c_str(), 0);
    else if (kept)
        report_(FileProblem::Kind::replaced, root_.hostPath(path),
                reason + " and is replaced; its bytes are kept as " + *kept);
    if (writing.reached == Reached::nothing) return fail(std::strerror(writing.error));
    if (writing.reached == Reached::part)
        return fail(std::string("Written in part only: ") + std::strerror(writing.error));
    if (writing.reached == Reached::file)
        report_(FileProblem::Kind::unsynced, root_.hostPath(path),
                std::string("Written, but perhaps not to the disk: ") + std::strerror(writing.error));
    known_.insert_or_assign(path, Stamp(writing.status));
    TemporaryFile::removeAbandoned(directory);
    return true;
}

/// The file as it is now; nothing, and no cause, where there is none.
std::optional<PropertyListFiles::Old> PropertyListFiles::openOld(const DeviceRoot::Place& place,
                                                                 std::string& cause) const {
    Old old;
    old.file = UniqueFd(
        ::openat(place.directory.get(), place.name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | atOnce));
    if (!old.file && errno == ENOENT) return {};
    if (!old.file || ::fstat(old.file.get(), &old.status) != 0)
        cause = std::strerror(errno);
    else
        cause = notRegular(old.status);
    return old;
}

/// "" where the dictionary that is written tells what the file says, or says it anew.
std::string PropertyListFiles::reasonToKeep(const std::string& path, const Old& old,
                                            std::string& cause) const {
    const auto known = known_.find(path);
    const bool isKnown = known != known_.end();
    if (old.status.st_size == 0 || (isKnown && known->second == Stamp(old.status))) return "";
    Data bytes;
    if (!readAll(old.file.get(), old.status, maximumPropertyListSize, bytes) && errno != EFBIG) {
        cause = std::strerror(errno);
        return "";
    }
    const auto parsed = parseDictionary(bytes);
    const auto* refusal = std::get_if<Refusal>(&parsed);
    if (refusal && *refusal == Refusal::beyondLimits) cause = tooMuch;
    if (refusal) return "Was no property list";
    return isKnown && !known->second ? "Could not be read before" : "";
}

} // namespace prismo
