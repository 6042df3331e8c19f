#include "platform/local/processes/ChildProcess.h"

#include "tests/support/Directories.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace prismo {
namespace {

using Texts = std::vector<std::string>;

std::string shell(const std::string& script) { return runAndRead("/bin/sh", {"-c", script}).value(); }

/// Waits until this process has no child left, not even a zombie.
bool noChildIsLeft() {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    siginfo_t ended{};
    while (std::chrono::steady_clock::now() < deadline) {
        if (::waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT) != 0) return errno == ECHILD;
        std::this_thread::yield();
    }
    return false;
}

/// Everything that the child wrote to `output`.
std::string read(int output) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t size = 0; (size = ::read(output, buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(size));
    return text;
}

TEST(RunAndRead, ReturnsWhatTheChildWrote) {
    EXPECT_EQ(runAndRead("/bin/echo", {"a", "b  c"}).value(), "a b  c\n");
}

TEST(RunAndRead, ReadsLongOutputToItsEnd) {
    EXPECT_EQ(runAndRead("/usr/bin/head", {"-c", "1048576", "/dev/zero"}).value(),
              std::string(1 << 20, '\0'));
}

TEST(RunAndRead, FirstArgumentIsTheExecutableItself) {
    EXPECT_EQ(runAndRead("/bin/sh", {"-c", "echo \"$0 $1\"", "x", "y"}).value(), "x y\n");
    EXPECT_EQ(shell("tr '\\0' '|' < /proc/$$/cmdline").substr(0, 11), "/bin/sh|-c|");
}

TEST(RunAndRead, ChildHasTheHostsEnvironment) {
    ::setenv("PRISMO_EVENTS_TEST", "here", 1);
    EXPECT_EQ(shell("echo $PRISMO_EVENTS_TEST"), "here\n");
}

TEST(RunAndRead, ChildHasNothingToRead) {
    const TemporaryDirectory temporary;
    const auto file = temporary.path() / "input";
    std::ofstream(file) << "the host's\n";
    const UniqueFd input(::dup(STDIN_FILENO));
    ::dup2(UniqueFd(::open(file.c_str(), O_RDONLY | O_CLOEXEC)).get(), STDIN_FILENO);
    const auto text = shell("cat; echo end");
    ::dup2(input.get(), STDIN_FILENO);
    EXPECT_EQ(text, "end\n");
}

TEST(RunAndRead, FailureOfTheChildKeepsItsOutput) { EXPECT_EQ(shell("echo a; exit 3"), "a\n"); }

TEST(RunAndRead, BackgroundWriterHoldsTheRead) {
    EXPECT_EQ(shell("(sleep 0.2; echo late) & echo early"), "early\nlate\n");
}

TEST(RunAndRead, ChildThatClosesItsOutputDoesNotHoldTheRead) {
    const TemporaryDirectory temporary;
    const auto gate = temporary.path() / "gate";
    ASSERT_EQ(::mkfifo(gate.c_str(), 0600), 0);
    EXPECT_EQ(shell("echo a; exec >&-; read line < " + gate.string()), "a\n");
    std::ofstream(gate) << "go\n";
    EXPECT_TRUE(noChildIsLeft());
}

TEST(RunAndRead, MissingExecutableIsNotRun) {
    const auto output = runAndRead("/nonexistent", {});
    ASSERT_FALSE(output);
    EXPECT_EQ(output.problem(),
              (Problem{Problem::Kind::notStarted, "/nonexistent", "No such file or directory"}));
}

TEST(RunAndRead, ExecutableIsNotSearchedFor) { EXPECT_FALSE(runAndRead("echo", {"a"})); }

TEST(RunAndRead, WorksIfTheHostHasNoStandardInputAndOutput) {
    const UniqueFd input(::dup(STDIN_FILENO));
    const UniqueFd output(::dup(STDOUT_FILENO));
    ::close(STDIN_FILENO);
    ::close(STDOUT_FILENO);
    const auto text = shell("cat; echo a");
    ::dup2(input.get(), STDIN_FILENO);
    ::dup2(output.get(), STDOUT_FILENO);
    EXPECT_EQ(text, "a\n");
}

TEST(RunAndRead, LeavesNoDescriptorOpen) {
    const auto lowest = [] { return UniqueFd(::dup(STDERR_FILENO)).get(); };
    const int before = lowest();
    shell("echo a");
    runAndRead("/nonexistent", {});
    EXPECT_EQ(lowest(), before);
}

TEST(RunAndRead, LeavesNoZombie) {
    for (int i = 0; i < 20; ++i)
        shell("echo a");
    EXPECT_TRUE(noChildIsLeft());
}

TEST(SpawnDetached, ArgumentsAndEnvironmentArriveExactly) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const UniqueFd output(ends[0]);
    UniqueFd input(ends[1]);
    const auto variable = "OUTPUT=" + std::to_string(input.get());
    EXPECT_EQ(spawnDetached(PRINT_ARGUMENTS, {"killall", "-9", "", "a b;$c", "\u00e9"},
                            {variable, "B=", "no value"}),
              0);
    input.reset();
    const std::string end("\0", 1);
    std::string expected;
    for (const auto& text : Texts{"killall", "-9", "", "a b;$c", "\u00e9", "--", variable, "B=", "no value"})
        expected += text + end;
    EXPECT_EQ(read(output.get()), expected);
}

TEST(SpawnDetached, MissingExecutableIsAnError) {
    EXPECT_EQ(spawnDetached("/nonexistent", {"nonexistent"}, {}), ENOENT);
}

TEST(SpawnDetached, ExecutableIsNotSearchedFor) { EXPECT_EQ(spawnDetached("true", {"true"}, {}), ENOENT); }

TEST(SpawnDetached, FileThatMayNotRunIsAnError) {
    EXPECT_EQ(spawnDetached("/etc/passwd", {"passwd"}, {}), EACCES);
}

TEST(SpawnDetached, ReturnsWhileTheChildRuns) {
    const TemporaryDirectory temporary;
    const auto gate = temporary.path() / "gate";
    ASSERT_EQ(::mkfifo(gate.c_str(), 0600), 0);
    EXPECT_EQ(spawnDetached("/bin/sh", {"sh", "-c", "read line < " + gate.string()}, {}), 0);
    std::ofstream(gate) << "go\n";
    EXPECT_TRUE(noChildIsLeft());
}

TEST(SpawnDetached, SecondChildRunsNextToTheFirst) {
    const TemporaryDirectory temporary;
    const auto gate = temporary.path() / "gate";
    ASSERT_EQ(::mkfifo(gate.c_str(), 0600), 0);
    // The second child ends the first one.
    EXPECT_EQ(spawnDetached("/bin/sh", {"sh", "-c", "read line < " + gate.string()}, {}), 0);
    EXPECT_EQ(spawnDetached("/bin/sh", {"sh", "-c", "echo go > " + gate.string()}, {}), 0);
    EXPECT_TRUE(noChildIsLeft());
}

TEST(SpawnDetached, LeavesNoZombie) {
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(spawnDetached("/bin/true", {"true"}, {}), 0);
    EXPECT_TRUE(noChildIsLeft());
}

TEST(SpawnDetached, LeavesTheHostsOwnChildrenAlone) {
    std::string name = "false";
    std::array<char*, 2> argv{name.data(), nullptr};
    pid_t own = -1;
    ASSERT_EQ(::posix_spawn(&own, "/bin/false", nullptr, nullptr, argv.data(), environ), 0);
    for (int i = 0; i < 10; ++i)
        spawnDetached("/bin/true", {"true"}, {});
    int status = 0;
    EXPECT_EQ(::waitpid(own, &status, 0), own);
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_TRUE(noChildIsLeft());
}

TEST(SpawnDetached, LeavesTheHostsSignalsAlone) {
    sigset_t before;
    sigset_t after;
    ::sigemptyset(&before);
    ::sigaddset(&before, SIGUSR1);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    spawnDetached("/bin/sleep", {"sleep", "0.05"}, {});
    ::pthread_sigmask(SIG_SETMASK, nullptr, &after);
    for (int signal = 1; signal < NSIG; ++signal)
        EXPECT_EQ(::sigismember(&after, signal), signal == SIGUSR1);
    ::sigemptyset(&before);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    EXPECT_TRUE(noChildIsLeft());
}

} // namespace
} // namespace prismo
