#pragma once

#include "platform/foundation/Device.h"
#include "platform/linux/files/DeviceRoot.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <sys/stat.h>

namespace prismo {

/// Reads and writes the files of a device, on behalf of its device object, which gets the problems.
class PropertyListFiles {
  public:
    using Report = std::function<void(FileProblem::Kind kind, std::string path, std::string cause)>;

    /// The root must outlive this.
    PropertyListFiles(const DeviceRoot& root, Report report) : root_(root), report_(std::move(report)) {}

    // As `Device` says.
    std::optional<Dictionary> read(const std::string& path);
    std::optional<Data> readBytes(const std::string& path);

    /// As `Device` says. A file that cannot be read is not replaced, nor is one beyond the limits of
    /// PropertyListGuard.h. A malformed one is, and one from which the last reading here got nothing, so that
    /// `dictionary` cannot hold what it holds by now: their bytes are kept beside it under a new name
    /// ("x.plist.malformed-20261121T070000Z"). Mode and owner stay; a new file has mode 0644. Returns when
    /// the file is on the disk, or when that failed (a problem; true all the same).
    bool write(const std::string& path, const Dictionary& dictionary, WriteMode mode);
    /// Would `write` do it? Nothing is changed, and what it would say before it begins is said: why it would
    /// refuse, or that a file would be replaced, which is said once.
    bool rehearseWrite(const std::string& path, const Dictionary& dictionary, WriteMode mode);

  private:
    /// A state of a file's content.
    struct Stamp {
        explicit Stamp(const struct stat& status);
        auto operator<=>(const Stamp&) const = default;
        dev_t device;
        ino_t inode;
        off_t size;
        std::int64_t modified;
        std::int64_t changed;
    };
    struct Old {
        UniqueFd file;
        struct stat status {};
    };

    UniqueFd open(const std::string& path, struct stat& status);
    bool refuse(const std::string& path, const std::string& cause) const;
    std::optional<std::string> textFor(const std::string& path, const Dictionary& dictionary) const;
    std::optional<Old> openOld(const DeviceRoot::Place& place, std::string& cause) const;
    std::string reasonToKeep(const std::string& path, const Old& old, std::string& cause) const;

    const DeviceRoot& root_;
    Report report_;
    /// Files that were there when they were last read or written, and how they were if they held a
    /// dictionary: no need to look again before they are replaced.
    std::map<std::string, std::optional<Stamp>> known_;
    /// What was read last. A new block for each file would make the allocator tidy up each time, which costs
    /// a small file a quarter of its reading.
    Data bytes_;
};

} // namespace prismo
