#include "settings/options/Options.h"

#include <gtest/gtest.h>

namespace prismo::settings {
namespace {

std::string complaint(const std::vector<std::string>& arguments) {
    try {
        parseOptions(arguments);
    } catch (const UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(OptionsTest, DefaultsAreTheDefaultRootAndTheDesktopStyle) {
    EXPECT_EQ(parseOptions({}).root, "");
    EXPECT_EQ(parseOptions({}).style, "system");
    EXPECT_EQ(parseOptions({}).requests, -1);
    EXPECT_EQ(parseOptions({}).answer, "");
}

TEST(OptionsTest, ValueFollowsInTheSameOrTheNextArgument) {
    EXPECT_EQ(parseOptions({"--root", "/a=b"}).root, "/a=b");
    EXPECT_EQ(parseOptions({"--root=/a=b"}).root, "/a=b");
    EXPECT_EQ(parseOptions({"--root", "--help"}).root, "--help");
    EXPECT_EQ(parseOptions({"--style=dark"}).style, "dark");
    EXPECT_EQ(parseOptions({"--requests=7"}).requests, 7);
}

TEST(OptionsTest, HelpNamesTheProgramAndItsOptions) {
    const auto help = parseOptions({"--help"}).answer;
    EXPECT_TRUE(help.starts_with("Usage: prismo2-settings "));
    EXPECT_NE(help.find("--root DIR"), std::string::npos);
    EXPECT_NE(help.find("--style STYLE"), std::string::npos);
    EXPECT_EQ(parseOptions({"-h"}).answer, help);
}

TEST(OptionsTest, VersionNamesTheProgram) {
    EXPECT_TRUE(parseOptions({"--version"}).answer.starts_with("prismo2-settings 2."));
}

TEST(OptionsTest, ErrorNamesTheBadArgument) {
    EXPECT_EQ(complaint({"--rot", "/a"}), "unknown option '--rot'");
    EXPECT_EQ(complaint({"/a"}), "unexpected argument '/a'");
    EXPECT_EQ(complaint({"--style", "pink"}), "'pink' is not a style: use light, dark or system");
    EXPECT_EQ(complaint({"--root", ""}), "the device root is empty");
    EXPECT_EQ(complaint({"--root"}), "--root needs a value");
    EXPECT_EQ(complaint({"--requests=7x"}), "'7x' is not a descriptor");
}

} // namespace
} // namespace prismo::settings
