#pragma once

#include "platform/local/descriptors/UniqueFd.h"
#include "tests/platform/linux/files/FilesWorld.h"

#include <cstdint>
#include <string>
#include <sys/types.h>

namespace prismo {

/// A `file-writer` that writes the settings file of a device root, and its output.
struct Writer {
    pid_t process;
    UniqueFd output;
};
/// Writes `count` numbers, starting with `first`, atomically.
Writer startWriter(const FilesWorld& world, int first, int count);

/// Runs a writer of the number 2 and kills it just before the system call with this number, counted from its
/// start. Returns true if it finished before that.
bool writeUntilCall(const FilesWorld& world, WriteMode mode, int call);

/// What `file-writer` writes.
Dictionary numbered(int number);
/// The number in the settings file if that is complete, else -1.
std::int64_t numberIn(FilesWorld& world);

} // namespace prismo
