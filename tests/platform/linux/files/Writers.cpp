#include "tests/platform/linux/files/Writers.h"

#include "tests/platform/linux/files/WriteWorld.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace prismo {

namespace {

[[noreturn]] void fail(const char* call) { throw std::system_error(errno, std::generic_category(), call); }

[[noreturn]] void becomeWriter(const FilesWorld& world, WriteMode mode, int first, int count) {
    const auto root = world.directory.path().string();
    const auto from = std::to_string(first);
    const auto number = std::to_string(count);
    const char* how = mode == WriteMode::atomically ? "atomically" : "inPlace";
    ::execl(FILE_WRITER, FILE_WRITER, root.c_str(), how, from.c_str(), number.c_str(), nullptr);
    ::_exit(127);
}

} // namespace

Writer startWriter(const FilesWorld& world, int first, int count) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) fail("pipe2");
    const UniqueFd input(ends[1]);
    Writer writer{::fork(), UniqueFd(ends[0])};
    if (writer.process != 0) return writer;
    ::dup2(input.get(), STDOUT_FILENO);
    becomeWriter(world, WriteMode::atomically, first, count);
}

bool writeUntilCall(const FilesWorld& world, WriteMode mode, int call) {
    const pid_t process = ::fork();
    if (process == 0) {
        ::dup2(::open("/dev/null", O_WRONLY), STDOUT_FILENO);
        ::dup2(STDOUT_FILENO, STDERR_FILENO);
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        becomeWriter(world, mode, 2, 1);
    }
    int status = 0;
    const auto wait = [&] {
        if (::waitpid(process, &status, 0) != process) fail("waitpid");
    };
    wait();
    if (!WIFSTOPPED(status)) throw std::runtime_error("a child cannot be traced here");
    const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
    if (::ptrace(PTRACE_SETOPTIONS, process, nullptr, options) != 0) fail("ptrace");
    // It stops at the start and at the end of each call.
    for (int stops = 0; WIFSTOPPED(status);) {
        const bool isCall = WSTOPSIG(status) == (SIGTRAP | 0x80);
        if (isCall && stops++ % 2 == 0 && stops / 2 + 1 == call) {
            ::kill(process, SIGKILL);
            wait();
            return false;
        }
        const bool isTrap = isCall || WSTOPSIG(status) == SIGTRAP;
        const long signal = isTrap ? 0 : WSTOPSIG(status);
        if (::ptrace(PTRACE_SYSCALL, process, nullptr, signal) != 0) fail("ptrace");
        wait();
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) throw std::runtime_error("the writer failed");
    return true;
}

Dictionary numbered(int number) {
    return {{"number", number}, {"padding", std::string(20'000, 'x')}, {"same", number}};
}

std::int64_t numberIn(FilesWorld& world) {
    const auto dictionary = world.read(path);
    const auto number = dictionary ? valueForKey(*dictionary, "number").longLongValue() : -1;
    return dictionary == numbered(static_cast<int>(number)) ? number : -1;
}

} // namespace prismo
