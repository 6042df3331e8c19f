#pragma once

#include "platform/linux/notifications/NotifyDirectory.h"
#include "tests/support/Directories.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace prismo {

/// A directory that does not exist yet, an observer and a poster.
struct NotifyWorld : testing::Test {
    TemporaryDirectory temporary;
    std::filesystem::path path = temporary.path() / "run" / "notify";
    NotifyDirectory observer{path, opener(path)};
    NotifyDirectory poster{path, opener(path)};

    NotifyWorld() { std::filesystem::create_directory(path.parent_path()); }

    /// What can be read now. A post can be read as soon as it returns.
    std::vector<std::string> delivered() {
        std::vector<std::string> names;
        EXPECT_TRUE(observer.read([&](const std::string& name) { names.push_back(name); }));
        return names;
    }
};

} // namespace prismo
