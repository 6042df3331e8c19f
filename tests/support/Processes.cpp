#include "tests/support/Processes.h"

#include <array>
#include <cstdio>
#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace prismo {

CommandResult shell(const std::string& command) {
    std::FILE* pipe = ::popen(("{ " + command + "; } 2>&1").c_str(), "r");
    if (!pipe) return {-1, ""};
    std::string output;
    std::array<char, 4096> buffer;
    for (std::size_t size = 0; (size = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0;)
        output.append(buffer.data(), size);
    const int status = ::pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), output};
}

std::string quoted(const std::string& text) {
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

bool inChild(const std::function<bool()>& body) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(body() ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool asNobody(const std::function<bool()>& body) {
    return inChild([&] {
        constexpr uid_t nobody = 65534;
        if (::getuid() == 0 &&
            (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0))
            return false;
        return body();
    });
}

} // namespace prismo
