#pragma once

#include "platform/linux/notifications/NotifyDirectory.h"
#include "tests/support/Directories.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace prismo {

/// A directory that is not yet there, one who observes in it and one who posts.
struct NotifyWorld : testing::Test {
    TemporaryDirectory temporary;
    std::filesystem::path path = temporary.path() / "run" / "notify";
    NotifyDirectory observer{opener(path)};
    NotifyDirectory poster{opener(path)};

    NotifyWorld() { std::filesystem::create_directory(path.parent_path()); }

    /// What is there to be read now; a post is there as soon as it returns.
    std::vector<std::string> delivered() {
        std::vector<std::string> names;
        EXPECT_EQ(observer.read([&](const std::string& name) { names.push_back(name); }), 0);
        return names;
    }
};

} // namespace prismo
