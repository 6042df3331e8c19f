#include "platform/local/descriptors/DirectoryNames.h"

#include <array>
#include <dirent.h>
#include <sys/types.h>

namespace prismo {

void forEachName(int directory, const std::function<void(const char* name)>& act) {
    alignas(dirent64) std::array<char, 8192> entries{};
    for (;;) {
        const auto size = ::getdents64(directory, entries.data(), entries.size());
        if (size <= 0) return;
        for (ssize_t at = 0; at < size;) {
            const auto* entry = reinterpret_cast<const dirent64*>(entries.data() + at);
            act(entry->d_name);
            at += entry->d_reclen;
        }
    }
}

} // namespace prismo
