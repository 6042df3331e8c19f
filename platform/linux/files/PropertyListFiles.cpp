#include "platform/linux/files/PropertyListFiles.h"

#include "platform/linux/files/FileReplacement.h"
#include "platform/linux/files/KeptFile.h"
#include "platform/linux/files/TemporaryFile.h"
#include "platform/local/descriptors/FileBytes.h"
#include "platform/local/descriptors/SystemProblem.h"
#include "platform/plist/PropertyListGuard.h"
#include "platform/plist/PropertyListReader.h"
#include "platform/plist/PropertyListWriter.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace prismo {

namespace {

using Kind = Problem::Kind;

/// For files that are not property lists, such as images. Nothing that a page shows comes near it.
constexpr std::size_t maximumFileSize = std::size_t{64} << 20;

std::int64_t nanoseconds(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace

PropertyListFiles::Stamp::Stamp(const struct stat& status)
    : device(status.st_dev), inode(status.st_ino), size(status.st_size),
      modified(nanoseconds(status.st_mtim)), changed(nanoseconds(status.st_ctim)) {}

/// Returns nullopt if there is no such file.
Result<std::optional<PropertyListFiles::Opened>> PropertyListFiles::open(const std::string& path) {
    auto file = root_.open(path, O_RDONLY | atOnce);
    if (!file && file.problem().kind == Kind::missing) {
        known_.erase(path);
        return std::optional<Opened>();
    }
    const auto status = file ? regularStatus(file.value().get(), root_.hostPath(path)) : file.problem();
    if (status) return std::optional(Opened{std::move(file).value(), status.value()});
    known_.insert_or_assign(path, std::nullopt);
    return status.problem();
}

Result<std::optional<Dictionary>> PropertyListFiles::read(const std::string& path) {
    const auto opened = open(path);
    if (!opened) return opened.problem();
    if (!opened.value()) return std::optional<Dictionary>();
    const auto& [file, status] = *opened.value();
    const auto hostPath = root_.hostPath(path);
    auto& known = known_[path];
    known.reset();
    const auto read = readStart(file.get(), status, maximumPropertyListSize, bytes_, hostPath);
    if (!read) return read.problem();
    // An empty file, which a power failure may leave, is not a problem.
    if (bytes_.empty()) return std::optional<Dictionary>();
    auto parsed = parseDictionary(bytes_, hostPath);
    if (!parsed) return parsed.problem();
    known = Stamp(status);
    return std::optional(std::move(parsed).value());
}

Result<std::optional<Data>> PropertyListFiles::readBytes(const std::string& path) {
    const auto opened = open(path);
    if (!opened) return opened.problem();
    if (!opened.value()) return std::optional<Data>();
    auto bytes = readAll(opened.value()->file.get(), maximumFileSize, root_.hostPath(path));
    if (!bytes) return bytes.problem();
    return std::optional(std::move(bytes).value());
}

Result<std::string> PropertyListFiles::textFor(const std::string& path, const Dictionary& dictionary) const {
    auto text = xmlText(dictionary, root_.hostPath(path));
    if (!text) return text;
    // The kernel ends a process that writes beyond this limit, rather than failing the write.
    rlimit limit{};
    if (::getrlimit(RLIMIT_FSIZE, &limit) == 0 && text.value().size() > limit.rlim_cur)
        return Problem{Kind::unwritable, root_.hostPath(path), std::strerror(EFBIG)};
    return text;
}

Result<> PropertyListFiles::rehearseWrite(const std::string& path, const Dictionary& dictionary,
                                          WriteMode mode) {
    if (const auto text = textFor(path, dictionary); !text) return text.problem();
    const auto place = root_.place(path);
    if (!place) return rehearseParents(path, place.problem());
    const auto& [directory, name, hostPath] = place.value();
    const auto old = openOld(place.value());
    if (!old) return old.problem();
    const auto reason = reasonToKeep(path, old.value());
    if (!reason) return reason.problem();
    const bool isEntered = mode == WriteMode::atomically || !old.value();
    if (::faccessat(directory.get(), isEntered ? "." : name.c_str(), W_OK, AT_EACCESS) != 0)
        return systemProblem(Kind::unwritable, hostPath);
    if (reason.value().empty()) return Done{};
    report_({Kind::replaced, hostPath,
             reason.value() + " and would be replaced; its bytes would be kept next to it"});
    known_.insert_or_assign(path, Stamp(old.value()->status));
    return Done{};
}

/// The file has no place now, which is `problem`. That is fine if `write` would make its directories.
Result<> PropertyListFiles::rehearseParents(const std::string& path, const Problem& problem) const {
    const auto parents = root_.couldMakeParents(path);
    if (!parents) return parents.problem();
    if (!parents.value()) return problem;
    return Done{};
}

Result<> PropertyListFiles::write(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
    const auto text = textFor(path, dictionary);
    if (!text) return text.problem();
    if (auto made = root_.makeParents(path); !made) return made;
    const auto found = root_.place(path);
    if (!found) return found.problem();
    const auto& place = found.value();
    const auto old = openOld(place);
    if (!old) return old.problem();
    const auto reason = reasonToKeep(path, old.value());
    if (!reason) return reason.problem();

    std::optional<std::string> kept;
    if (!reason.value().empty()) {
        auto name = keepNextTo(place, old.value()->file.get(), old.value()->status, mode);
        if (!name) return name.problem();
        kept = std::move(name).value();
    }
    const auto writing = mode == WriteMode::atomically
                             ? replaceFile(place, old.value() ? &old.value()->status : nullptr, text.value())
                             : overwriteFile(place, text.value());
    using Reached = Writing::Reached;
    if (kept && writing.reached == Reached::nothing)
        ::unlinkat(place.directory.get(), kept->c_str(), 0);
    else if (kept)
        report_({Kind::replaced, place.path,
                 reason.value() + " and is replaced; its bytes are kept as " + *kept});
    if (writing.reached == Reached::nothing) return *writing.problem;
    if (writing.reached == Reached::part)
        return Problem{Kind::unwritable, place.path, "Written in part only: " + writing.problem->cause};
    if (writing.problem) report_(*writing.problem);
    known_.insert_or_assign(path, Stamp(writing.status));
    TemporaryFile::removeAbandoned(place.directory.get());
    return Done{};
}

/// The file as it is now. Returns nullopt if there is none.
Result<std::optional<PropertyListFiles::Opened>> PropertyListFiles::openOld(const DeviceRoot::Place& place) {
    UniqueFd file(
        ::openat(place.directory.get(), place.name.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | atOnce));
    if (!file && errno == ENOENT) return std::optional<Opened>();
    if (!file) return systemProblem(Kind::unwritable, place.path);
    const auto status = regularStatus(file.get(), place.path);
    if (!status) return status.problem().as(Kind::unwritable);
    return std::optional(Opened{std::move(file), status.value()});
}

/// Why the old bytes must be kept, in words. Empty if they need not: then the new dictionary is the old one
/// with a change, or says the same again.
Result<std::string> PropertyListFiles::reasonToKeep(const std::string& path,
                                                    const std::optional<Opened>& old) const {
    if (!old || old->status.st_size == 0) return std::string();
    const auto known = known_.find(path);
    const bool isKnown = known != known_.end();
    if (isKnown && known->second == Stamp(old->status)) return std::string();
    const auto hostPath = root_.hostPath(path);
    Data bytes;
    const auto read = readStart(old->file.get(), old->status, maximumPropertyListSize, bytes, hostPath);
    if (!read) return read.problem().as(Kind::unwritable);
    const auto parsed = parseDictionary(bytes, hostPath);
    if (!parsed && parsed.problem().kind != Kind::malformed) return parsed.problem().as(Kind::unwritable);
    if (!parsed) return std::string("Was not a property list");
    return std::string(isKnown && !known->second ? "Could not be read before" : "");
}

} // namespace prismo
