// Settings bundles, loaded by a program that does not know what they contain.

#include "platform/local/processes/ChildProcess.h"
#include "tests/support/Directories.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace prismo {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

Lines lines(const std::string& text) {
    Lines result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        result.push_back(line);
    return result;
}

/// A program in an installation of its own, with a bundle "Example" that is a copy of the real one.
struct PreferenceBundleTest : testing::Test {
    PreferenceBundleTest() {
        fs::create_directories(bundle);
        fs::create_directories(program.parent_path());
        fs::copy(BUNDLE_PROBE, program);
        fs::copy(fs::path(BUNDLE).parent_path(), bundle);
    }

    /// What the program prints about the bundle: one line if it cannot be loaded.
    Lines load(const std::string& name = "Example") const {
        return lines(runAndRead(program, {name, root.path()}).value());
    }
    void writeInfo(const std::string& entries) const {
        std::ofstream(bundle / "Info.plist")
            << "<plist version=\"1.0\"><dict>" << entries << "</dict></plist>";
    }
    static std::string entry(const std::string& key, const std::string& value) {
        return "<key>" + key + "</key><string>" + value + "</string>";
    }
    std::string path(const std::string& file) const { return bundle / file; }

    TemporaryDirectory installation;
    TemporaryDirectory root;
    const fs::path program = installation.path() / "tests/probe";
    const fs::path bundle =
        installation.path() / fs::relative(BUNDLE, BUILD_TREE).parent_path().parent_path() / "Example.bundle";
    const std::string executable = entry("CFBundleExecutable", "Prismo2Prefs");
    const std::string principal = entry("NSPrincipalClass", "Prismo2PrefsListController");
};

TEST_F(PreferenceBundleTest, OpensWithThePageOfItsPrincipalClass) {
    EXPECT_EQ(load().front(), "Prismo2PrefsListController");
}

TEST_F(PreferenceBundleTest, PageBuildsTheRowsOfSystemScope) {
    const auto said = load();
    ASSERT_EQ(said.size(), 2U + 33);
    EXPECT_EQ(Lines(said.begin() + 2, said.begin() + 8),
              (Lines{"Scope", "Scope", "Prismo Enabled", "Global", "Global Color", "Global Enabled"}));
    EXPECT_EQ(said[said.size() - 2], "Album Art Color for NC|CC|HUD");
}

TEST_F(PreferenceBundleTest, ItsImageIsReadFromTheBaseLayer) {
    // The page uses a fixed path on the device, which is that of the real bundle.
    const auto real = lines(runAndRead(BUNDLE_PROBE, {"Prismo2Prefs", root.path()}).value());
    ASSERT_GT(real.size(), 2U);
    EXPECT_EQ(real[1], "44");
}

TEST_F(PreferenceBundleTest, PrincipalClassIsTheOneThatItsInfoNames) {
    writeInfo(executable + entry("NSPrincipalClass", "PrismoTypeItemsController"));
    EXPECT_EQ(load(), (Lines{"PrismoTypeItemsController", "-", "", "Global", "", "Disabled", "", "Custom"}));
}

TEST_F(PreferenceBundleTest, MissingBundleIsAMissingInfo) {
    EXPECT_EQ(load("Other"), (Lines{(bundle.parent_path() / "Other.bundle/Info.plist").string() +
                                    ": No such file or directory"}));
}

TEST_F(PreferenceBundleTest, MissingInfoIsTheCause) {
    fs::remove(bundle / "Info.plist");
    EXPECT_EQ(load(), (Lines{path("Info.plist") + ": No such file or directory"}));
}

TEST_F(PreferenceBundleTest, InfoThatIsADirectoryIsTheCause) {
    fs::remove(bundle / "Info.plist");
    fs::create_directory(bundle / "Info.plist");
    EXPECT_EQ(load(), (Lines{path("Info.plist") + ": Is a directory"}));
}

TEST_F(PreferenceBundleTest, InfoThatIsNotAPropertyListIsTheCause) {
    std::ofstream(bundle / "Info.plist") << "{}";
    EXPECT_EQ(load(), (Lines{path("Info.plist") + ": not a property list"}));
}

TEST_F(PreferenceBundleTest, InfoWithoutAnExecutableIsTheCause) {
    writeInfo(principal);
    EXPECT_EQ(load(), (Lines{path("Info.plist") + ": names no CFBundleExecutable"}));
}

TEST_F(PreferenceBundleTest, ExecutableOutsideTheBundleIsIgnored) {
    writeInfo(entry("CFBundleExecutable", "../Example.bundle/Prismo2Prefs") + principal);
    EXPECT_EQ(load(), (Lines{path("Info.plist") + ": names no CFBundleExecutable"}));
}

TEST_F(PreferenceBundleTest, InfoWithoutAPrincipalClassIsTheCause) {
    writeInfo(executable);
    EXPECT_EQ(load(), (Lines{path("Info.plist") + ": names no NSPrincipalClass"}));
}

TEST_F(PreferenceBundleTest, MissingExecutableIsTheCause) {
    fs::remove(bundle / "Prismo2Prefs");
    EXPECT_EQ(load(), (Lines{path("Prismo2Prefs") + ": cannot open shared object file: No such file or "
                                                    "directory"}));
}

TEST_F(PreferenceBundleTest, ExecutableThatIsNotCodeIsTheCause) {
    std::ofstream(bundle / "Prismo2Prefs") << "#!/bin/sh";
    EXPECT_EQ(load(), (Lines{path("Prismo2Prefs") + ": file too short"}));
}

TEST_F(PreferenceBundleTest, LibraryThatRegistersNothingIsNotABundle) {
    fs::copy(NO_BUNDLE, bundle / "Prismo2Prefs", fs::copy_options::overwrite_existing);
    EXPECT_EQ(load(), (Lines{path("Prismo2Prefs") + ": not a settings bundle"}));
}

TEST_F(PreferenceBundleTest, PrincipalClassThatIsNotRegisteredIsTheCause) {
    writeInfo(executable + entry("NSPrincipalClass", "NoSuchController"));
    EXPECT_EQ(load(), (Lines{path("Prismo2Prefs") + ": has no class NoSuchController"}));
}

TEST_F(PreferenceBundleTest, NameThatLeadsElsewhereIsNotABundle) {
    for (const std::string name : {"", ".", "../Example", "a/b"})
        EXPECT_EQ(load(name), (Lines{"no bundle can be named '" + name + "'"}));
}

TEST_F(PreferenceBundleTest, NothingIsLoadedIfEverybodyCanWriteThere) {
    fs::permissions(installation.path(), fs::perms::all);
    EXPECT_EQ(load(), (Lines{bundle.string() + "/: Everybody can write to " + installation.path().string()}));
}

TEST_F(PreferenceBundleTest, BundleOfTheDeviceRootIsNotLoaded) {
    const auto onDevice = root.path() / "Library/PreferenceBundles/Rogue.bundle";
    fs::create_directories(onDevice.parent_path());
    fs::copy(bundle, onDevice);
    EXPECT_EQ(load("Rogue"), (Lines{(bundle.parent_path() / "Rogue.bundle/Info.plist").string() +
                                    ": No such file or directory"}));
}

} // namespace
} // namespace prismo
