#pragma once

#include "tests/platform/linux/files/FilesWorld.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace prismo {

inline const std::string path = "/User/Library/Preferences/test.plist";
inline const std::string directory = "/User/Library/Preferences";
inline const std::vector<std::string> onlyTheFile{"test.plist"};
inline const Dictionary oldContent{{"old", true}};
inline const Dictionary newContent{{"new", 1}};

/// The files of a root, and the problems of its settings file.
struct FilesTest : testing::Test {
    void expectOneProblem(Problem::Kind kind, const std::string& cause) const {
        ASSERT_EQ(world.problems.size(), 1U);
        EXPECT_EQ(world.problems[0], (Problem{kind, world.host(path), cause}));
    }
    FilesWorld world;
};

/// A root with a settings file, for both modes of writing.
class WriteTest : public FilesTest, public testing::WithParamInterface<WriteMode> {
  protected:
    WriteTest() {
        world.write(path, oldContent);
        world.problems.clear();
    }
    bool write(const Dictionary& dictionary = newContent) {
        return world.write(path, dictionary, GetParam());
    }
    struct stat status() const {
        struct stat result = {};
        ::lstat(world.host(path).c_str(), &result);
        return result;
    }
    bool isTheOnlyProblem(Problem::Kind kind, const std::string& cause) const {
        return world.problems == std::vector{Problem{kind, world.host(path), cause}};
    }
};

inline const auto bothModes = testing::Values(WriteMode::atomically, WriteMode::inPlace);
inline std::string modeName(const testing::TestParamInfo<WriteMode>& suite) {
    return suite.param == WriteMode::atomically ? "atomically" : "inPlace";
}

} // namespace prismo
