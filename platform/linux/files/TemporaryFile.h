#pragma once

#include "platform/local/descriptors/UniqueFd.h"

#include <string>

namespace prismo {

/// A new file beside the one that it is to replace. It goes when this does, unless it took that place.
///
/// Its writer holds a lock on it, so that what a killed writer left can be told from what is being written.
class TemporaryFile {
  public:
    /// Made in the open directory, which must outlive it, with mode 0600. Without a descriptor, and with
    /// errno set, where that failed.
    explicit TemporaryFile(int directory);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    explicit operator bool() const { return static_cast<bool>(descriptor_); }
    int descriptor() const { return descriptor_.get(); }

    /// Puts it, its bytes being on the disk, in the place of `name`. False, with errno set, where that
    /// failed.
    bool replace(const std::string& name);

    /// Removes those in the directory whose writer is no more.
    static void removeAbandoned(int directory);

  private:
    int directory_;
    std::string name_;
    UniqueFd descriptor_;
};

} // namespace prismo
