#include "platform/plist/PropertyListWriter.h"
#include "tests/platform/linux/files/Writers.h"
#include "tests/platform/linux/files/WriteWorld.h"

#include <csignal>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace prismo {

namespace {

namespace fs = std::filesystem;

const std::string malformed = "<plist><dict><key>half a fi";

/// What a writer finds, and how it writes.
struct Beginning {
    std::string name;
    WriteMode mode;
    /// nullopt if neither the file nor its directory exists.
    std::optional<std::string> bytes;
};

bool isTemporary(const std::string& name) { return name.starts_with(".prismo2-"); }

class TracedWriter : public testing::TestWithParam<Beginning> {
  protected:
    void begin() {
        for (const char* name : {"User", "var"})
            fs::remove_all(world.directory.path() / name);
        if (const auto& bytes = GetParam().bytes) world.put(path, *bytes);
    }
    bool isAsItWas() {
        const auto& bytes = GetParam().bytes;
        return bytes ? world.bytes(path) == *bytes : !fs::exists(world.host(path));
    }
    std::vector<std::string> names() const {
        return fs::exists(world.host(directory)) ? world.names(directory) : std::vector<std::string>();
    }
    std::ptrdiff_t temporaries() const {
        const auto all = names();
        return std::ranges::count_if(all, isTemporary);
    }
    bool holdsMalformed() const {
        const auto all = names();
        return std::ranges::any_of(all, [&](const std::string& name) {
            return !isTemporary(name) && world.bytes(directory + "/" + name) == malformed;
        });
    }

    FilesWorld world;
};

std::string xml(const Dictionary& dictionary) { return xmlText(dictionary, path).value(); }

INSTANTIATE_TEST_SUITE_P(Beginning, TracedWriter,
                         testing::Values(Beginning{"AFile", WriteMode::atomically, xml(numbered(1))},
                                         Beginning{"NoFile", WriteMode::atomically, std::nullopt},
                                         Beginning{"AMalformedFile", WriteMode::atomically, malformed},
                                         Beginning{"AMalformedFileInPlace", WriteMode::inPlace, malformed}),
                         [](const auto& suite) { return suite.param.name; });

bool canTrace() {
    const pid_t child = ::fork();
    if (child == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(1);
        ::raise(SIGSTOP);
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    const bool result = WIFSTOPPED(status);
    if (result) {
        ::kill(child, SIGKILL);
        ::waitpid(child, &status, 0);
    }
    return result;
}

} // namespace

TEST_P(TracedWriter, KilledAtAnySystemCallLosesNothingAndTheNextOneLeavesNoOrphan) {
    if (!canTrace()) GTEST_SKIP() << "this machine lets nobody trace a child";
    const auto mode = GetParam().mode;
    bool oldSeen = false;
    bool newSeen = false;
    bool orphanSeen = false;
    for (int call = 1;; ++call) {
        ASSERT_LT(call, 1000);
        begin();
        const bool isDone = writeUntilCall(world, mode, call);
        const bool isOld = isAsItWas();
        const bool isNew = !isOld && numberIn(world) == 2;
        ASSERT_TRUE(isOld || isNew || mode == WriteMode::inPlace) << "killed at call " << call;
        ASSERT_TRUE(GetParam().bytes != malformed || holdsMalformed()) << "killed at call " << call;
        oldSeen = oldSeen || isOld;
        newSeen = newSeen || (isNew && !isDone);
        if (isDone) break;
        if (temporaries() == 0) continue;
        orphanSeen = true;
        ASSERT_TRUE(world.write(path, newContent, mode));
        ASSERT_EQ(temporaries(), 0) << "killed at call " << call;
    }
    // It was really killed before, during and after the replacement.
    EXPECT_TRUE(oldSeen);
    EXPECT_TRUE(newSeen);
    EXPECT_EQ(orphanSeen, mode == WriteMode::atomically);
}

} // namespace prismo
