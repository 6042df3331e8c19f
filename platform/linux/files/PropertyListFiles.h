#pragma once

#include "platform/foundation/Device.h"
#include "platform/linux/files/DeviceRoot.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <sys/stat.h>

namespace prismo {

/// Reads and writes the files of a device.
class PropertyListFiles {
  public:
    /// Gets the problems of an operation that succeeds nevertheless.
    using Report = std::function<void(const Problem&)>;

    /// The root must outlive this.
    PropertyListFiles(const DeviceRoot& root, Report report) : root_(root), report_(std::move(report)) {}

    /// The dictionary in the file, or nullopt if the file is missing or empty.
    Result<std::optional<Dictionary>> read(const std::string& path);
    /// The bytes of the file, or nullopt if it is missing.
    Result<std::optional<Data>> readBytes(const std::string& path);

    /// Replaces the whole file, as `Device::writePropertyList` says. Does not replace a file that cannot be
    /// read or that is beyond the limits of PropertyListGuard.h.
    ///
    /// Keeps the old bytes next to the new file, under a new name ("x.plist.malformed-20261121T070000Z"), if
    /// the old file is malformed, or if the last read here failed, since then `dictionary` cannot have what
    /// the file has by now. Reports that as `replaced`. Mode and owner stay; a new file has mode 0644.
    /// Returns when the file is on the disk. If only that failed, reports `unsynced` and succeeds.
    Result<> write(const std::string& path, const Dictionary& dictionary, WriteMode mode);
    /// Would `write` succeed? Changes nothing. Finds what `write` finds before it starts, and reports once
    /// that a file would be replaced.
    Result<> rehearseWrite(const std::string& path, const Dictionary& dictionary, WriteMode mode);

  private:
    /// Identifies a state of a file's content.
    struct Stamp {
        explicit Stamp(const struct stat& status);
        auto operator<=>(const Stamp&) const = default;
        dev_t device;
        ino_t inode;
        off_t size;
        std::int64_t modified;
        std::int64_t changed;
    };
    struct Opened {
        UniqueFd file;
        struct stat status = {};
    };

    Result<std::optional<Opened>> open(const std::string& path);
    Result<std::string> textFor(const std::string& path, const Dictionary& dictionary) const;
    static Result<std::optional<Opened>> openOld(const DeviceRoot::Place& place);
    Result<std::string> reasonToKeep(const std::string& path, const std::optional<Opened>& old) const;
    Result<> rehearseParents(const std::string& path, const Problem& problem) const;

    const DeviceRoot& root_;
    Report report_;
    /// The files that existed when they were last read or written, and their state if they held a dictionary.
    /// A file that is still in that state need not be read again before it is replaced.
    std::map<std::string, std::optional<Stamp>> known_;
    /// What was read last. A new block for each file would make the allocator trim its heap each time, which
    /// costs a quarter of the time that reading a small file takes.
    Data bytes_;
};

} // namespace prismo
