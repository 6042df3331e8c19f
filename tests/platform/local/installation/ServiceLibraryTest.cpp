#include "platform/local/installation/ServiceLibrary.h"

#include "platform/local/accounts/RequestSender.h"
#include "platform/local/desktop/DesktopServices.h"
#include "platform/local/processes/ChildProcess.h"
#include "tests/support/Answer.h"
#include "tests/support/Directories.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace prismo {

namespace {

using Reports = std::vector<Problem>;

struct Missing {
    static constexpr const char* serviceName = "missing";
    static constexpr const char* serviceMaker = "prismo2MakeMissing";
};
struct Misnamed {
    static constexpr const char* serviceName = "desktop";
    static constexpr const char* serviceMaker = "prismo2MakeMissing";
};

template <typename Interface>
Reports reports(int asked) {
    Reports result;
    ServiceLibrary<Interface> library([&](const Problem& problem) { result.push_back(problem); });
    for (int i = 0; i < asked; ++i)
        EXPECT_EQ(library.service(), nullptr);
    return result;
}

/// A program in an installation of its own.
class Installation {
  public:
    Installation() {
        std::filesystem::create_directory(program.parent_path());
        std::filesystem::copy(SERVICE_PROBE, program);
    }
    std::filesystem::path prefix() const { return directory_.path(); }
    std::string answer() const { return runAndRead(program, {}).value(); }
    void installServices() const {
        std::filesystem::create_directories(services.parent_path());
        std::filesystem::copy(BUILT_SERVICES, services);
    }

  private:
    TemporaryDirectory directory_;

  public:
    const std::filesystem::path program = prefix() / "bin/probe";
    const std::filesystem::path services = prefix() / std::filesystem::relative(BUILT_SERVICES, BUILD_TREE);
};

} // namespace

TEST(ServiceLibraryTest, ServicesAreFoundRelativeToTheProgram) {
    const Installation installation;
    installation.installServices();
    EXPECT_EQ(installation.answer(), "found");
}

TEST(ServiceLibraryTest, ServicesOfAnotherInstallationAreNotUsed) {
    const Installation installation;
    EXPECT_EQ(installation.answer(),
              (installation.services / "libprismo2-desktop.so").string() + ": No such file or directory");
}

TEST(ServiceLibraryTest, NothingIsLoadedIfEverybodyCanWriteThere) {
    const Installation installation;
    installation.installServices();
    std::filesystem::permissions(installation.prefix(), std::filesystem::perms::all);
    EXPECT_EQ(installation.answer(),
              "libprismo2-desktop.so: Everybody can write to " + installation.prefix().string());
}

TEST(ServiceLibraryTest, ServicesOfTheBuildTreeAreFound) {
    const auto fail = [](const Problem& problem) { ADD_FAILURE() << problem.text(); };
    ServiceLibrary<DesktopServices> desktop(fail);
    ServiceLibrary<RequestSender> sender(fail);
    EXPECT_NE(desktop.service(), nullptr);
    EXPECT_NE(sender.service(), nullptr);
}

TEST(ServiceLibraryTest, ServiceIsMadeOnce) {
    ServiceLibrary<DesktopServices> desktop([](const Problem&) {});
    EXPECT_EQ(desktop.service(), desktop.service());
}

TEST(ServiceLibraryTest, SenderOfTheLibraryRefusesWhatIsNotHttps) {
    ServiceLibrary<RequestSender> library([](const Problem&) {});
    auto* sender = library.service();
    ASSERT_NE(sender, nullptr);
    Answer<int> answer;
    sender->send({"GET", "http://127.0.0.1:1/", {}, {}}, {"a", "b", "c", "d"}, answer.completion());
    EXPECT_EQ(answer.get(), 0);
}

TEST(ServiceLibraryTest, MissingLibraryIsReportedOnce) {
    const auto told = reports<Missing>(2);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_TRUE(told[0].path.ends_with("/prismo2/libprismo2-missing.so")) << told[0].path;
    EXPECT_EQ(told[0].kind, Problem::Kind::missingService);
    EXPECT_EQ(told[0].cause, "No such file or directory");
}

TEST(ServiceLibraryTest, LibraryWithoutTheMakerIsReported) {
    const auto told = reports<Misnamed>(1);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].cause, "undefined symbol: prismo2MakeMissing");
}

} // namespace prismo
