#pragma once

#include "platform/local/descriptors/UniqueFd.h"
#include "tests/platform/linux/files/FilesWorld.h"

#include <cstdint>
#include <string>
#include <sys/types.h>

namespace prismo {

/// A `file-writer` at work on the settings file of a device root, and its output.
struct Writer {
    pid_t process;
    UniqueFd output;
};
/// Writes the numbers from `first` on, `count` of them, atomically.
Writer startWriter(const FilesWorld& world, int first, int count);

/// Runs a writer of the number 2 and kills it where it is about to make its system call of this number,
/// counted from its start. True where it came to its end before, having written.
bool writeUntilCall(const FilesWorld& world, WriteMode mode, int call);

/// What `file-writer` writes.
Dictionary numbered(int number);
/// The number in the settings file where it is whole, else -1.
std::int64_t numberIn(FilesWorld& world);

} // namespace prismo
