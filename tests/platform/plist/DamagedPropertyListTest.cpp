#include "platform/plist/PropertyListWriter.h"
#include "tests/platform/plist/MadeFiles.h"
#include "tests/support/Processes.h"

#include <random>

namespace prismo {

namespace {

std::string sample(const std::string& format) {
    const auto result =
        shell("/usr/bin/python3 -c 'import plistlib, sys, datetime; sys.stdout.buffer.write("
              "plistlib.dumps({\"a\": [1, -2, 2**63, 0.5, {\"b\": b\"data\"}], \"t\": \"text\", "
              "\"u\": \"\\u4f60\\U0001F600\", \"d\": datetime.datetime(2020, 1, 2), \"y\": True}, "
              "fmt=plistlib." +
              format + "))'");
    EXPECT_TRUE(read(result.output)) << format;
    return result.output;
}

} // namespace

TEST(DamagedPropertyList, FileCutAnywhereIsNotADictionary) {
    for (const char* format : {"FMT_XML", "FMT_BINARY"}) {
        const auto whole = sample(format);
        const auto end = whole.find_last_not_of('\n') + 1;
        for (std::size_t size = 0; size < end; ++size)
            ASSERT_FALSE(read(whole.substr(0, size))) << format << ' ' << size;
    }
}

TEST(DamagedPropertyList, DamagedFilesAreRefusedOrCanBeWrittenAgain) {
    std::mt19937 random(20261121);
    for (const char* format : {"FMT_XML", "FMT_BINARY"}) {
        const auto whole = sample(format);
        for (int i = 0; i < 20'000; ++i) {
            auto damaged = whole;
            for (auto flips = random() % 4 + 1; flips > 0; --flips)
                damaged[random() % damaged.size()] ^= static_cast<char>(1U << random() % 8);
            const auto dictionary = read(damaged);
            if (!dictionary) continue;
            const auto text = xmlText(*dictionary, "");
            if (text)
                ASSERT_TRUE(read(text.value()));
            else
                ASSERT_TRUE(text.problem().cause.starts_with("a date before") ||
                            text.problem().cause.starts_with("text with a character"))
                    << text.problem().cause;
        }
    }
}

} // namespace prismo
