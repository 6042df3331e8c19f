#include "tests/platform/local/desktop/DesktopWorld.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <poll.h>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace prismo {

namespace {

constexpr const char* png = "\x89PNG\r\n\x1a\n";

void write(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path) << text;
}

} // namespace

DesktopWorld& DesktopWorld::shared() {
    static DesktopWorld world;
    return world;
}

DesktopWorld::DesktopWorld() {
    ::setenv("HOME", (directory_.path() / "home").c_str(), 1);
    ::setenv("XDG_DATA_HOME", userData().c_str(), 1);
    ::setenv("XDG_DATA_DIRS", systemData().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (directory_.path() / "home/.config").c_str(), 1);
    ::setenv("XDG_CONFIG_DIRS", (directory_.path() / "etc/xdg").c_str(), 1);
    ::setenv("XDG_CURRENT_DESKTOP", "PRISMO", 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    for (const auto* name :
         {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "LANGUAGE"})
        ::unsetenv(name);
    writeApplications();
    writeHandlers();
    ::mkfifo(startsPipe().c_str(), 0600);
    // Open for reading and writing, so that the end of a writer does not end the pipe.
    starts_.reset(::open(startsPipe().c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
}

void DesktopWorld::writeEntry(const std::filesystem::path& data, const std::string& id,
                              const std::string& lines) const {
    write(data / "applications" / (id + ".desktop"), "[Desktop Entry]\nType=Application\n" + lines);
}

void DesktopWorld::writeApplications() const {
    const auto exec = "Exec=" + program().string() + " %u\n";
    writeEntry(userData(), "own", "Name=Own\nName[de]=Eigenes\n" + exec);
    writeEntry(systemData(), "org.example.system", "Name=System\nIcon=themed\n" + exec);
    writeEntry(systemData(), "absolute",
               "Name=Absolute\nIcon=" + (systemData() / "absolute.png").string() + "\n" + exec);
    writeEntry(systemData(), "vector", "Name=Vector\nIcon=vector\n" + exec);
    writeEntry(systemData(), "pretender", "Name=Pretender\nIcon=pretender\n" + exec);
    writeEntry(systemData(), "climber", "Name=Climber\nIcon=../absolute\n" + exec);
    writeEntry(systemData(), "flat", "Name=Flat\nIcon=flat\n" + exec);
    writeEntry(systemData(), "hidden", "Name=Hidden\nNoDisplay=true\n" + exec);
    writeEntry(systemData(), "elsewhere", "Name=Elsewhere\nOnlyShowIn=OTHER;\n" + exec);
    writeEntry(systemData(), "overridden", "Name=Overridden\n" + exec);
    writeEntry(userData(), "overridden", "Name=Overriding\n" + exec);
    writeEntry(systemData(), "con\x01trol", "Name=Control\n" + exec);
    write(systemData() / "applications/torn.desktop", "[Desktop Entry\nName=");
    write(systemData() / "icons/hicolor/48x48/apps/themed.png", png);
    write(systemData() / "icons/hicolor/64x64/apps/themed.png", png);
    write(systemData() / "icons/hicolor/scalable/apps/vector.svg", "<svg/>");
    write(systemData() / "icons/hicolor/64x64/apps/pretender.png", "<svg></svg>");
    write(systemData() / "pixmaps/flat.png", png);
    write(systemData() / "absolute.png", png);
}

void DesktopWorld::writeHandlers() const {
    write(program(), R"(#!/bin/sh
streams=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2)
signals=$(sed -n 's/^SigBlk:[[:space:]]*//p' /proc/$$/status)
{ printf '%s\n' "$#" "$@" "$streams" "$signals" end; } >)" +
                         startsPipe().string() + "\n");
    ::chmod(program().c_str(), 0700);
    const auto exec = "NoDisplay=true\nName=Handler\nExec=" + program().string();
    writeEntry(userData(), "link-handler", exec + " --link %u\n");
    writeEntry(userData(), "embedded-handler", exec + " --link=%u --last\n");
    writeEntry(userData(), "files-handler", exec + " %f\n");
    writeEntry(userData(), "broken-handler",
               "Name=Broken\nNoDisplay=true\nExec=" + program().string() + "-gone %u\n");
    write(directory_.path() / "home/.config/mimeapps.list",
          "[Default Applications]\n"
          "x-scheme-handler/tweetbot=link-handler.desktop\n"
          "x-scheme-handler/embedded=embedded-handler.desktop\n"
          "x-scheme-handler/files=files-handler.desktop\n"
          "x-scheme-handler/broken=broken-handler.desktop\n");
}

DesktopWorld::Start DesktopWorld::start() {
    std::string read;
    while (!read.ends_with("\nend\n")) {
        constexpr int patience = 30'000;
        pollfd ready{starts_.get(), POLLIN, 0};
        if (::poll(&ready, 1, patience) <= 0) throw std::runtime_error("no application was started");
        std::array<char, 4096> buffer{};
        const auto size = ::read(starts_.get(), buffer.data(), buffer.size());
        if (size > 0) read.append(buffer.data(), static_cast<std::size_t>(size));
    }
    std::istringstream lines(read);
    const auto line = [&] {
        std::string result;
        std::getline(lines, result);
        return result;
    };
    Start result;
    for (int left = std::stoi(line()); left > 0; --left)
        result.arguments.push_back(line());
    for (int left = 3; left > 0; --left)
        result.streams.push_back(line());
    result.heldOffSignals = line();
    return result;
}

} // namespace prismo
