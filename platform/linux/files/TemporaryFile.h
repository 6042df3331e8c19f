#pragma once

#include "platform/foundation/Result.h"
#include "platform/local/descriptors/UniqueFd.h"

#include <string>

namespace prismo {

/// A new file next to the one that it will replace. Its destructor removes it, unless it took that place.
///
/// Its writer holds a lock on it. That distinguishes a file that a killed writer left from one that is being
/// written.
class TemporaryFile {
  public:
    /// Makes a file with mode 0600 in the open directory, which must outlive it. `path` is the file that it
    /// will replace, for problems (unwritable).
    static Result<TemporaryFile> make(int directory, const std::string& path);
    ~TemporaryFile();
    TemporaryFile(TemporaryFile&&) = default;
    TemporaryFile& operator=(TemporaryFile&&) = delete;

    int descriptor() const { return descriptor_.get(); }

    /// Brings its bytes to the disk and moves it to the place of `name`.
    Result<> replace(const std::string& name);

    /// Removes those files in the directory whose writer is gone.
    static void removeAbandoned(int directory);

  private:
    TemporaryFile(int directory, std::string path) : directory_(directory), path_(std::move(path)) {}

    int directory_;
    std::string path_;
    std::string name_;
    UniqueFd descriptor_;
};

} // namespace prismo
