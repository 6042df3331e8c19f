#pragma once

#include "platform/local/descriptors/UniqueFd.h"
#include "tests/support/Directories.h"

#include <filesystem>
#include <string>
#include <vector>

namespace prismo {

/// The files of a desktop, which replace this machine's for the rest of the process, since the desktop's
/// library reads them once. Needs no display and no bus. Shows what its applications were started with.
///
/// Applications: "own" and "link-handler" of the user; "system", with icons of all kinds; some that no menu
/// shows. Links: "tweetbot" (link-handler), "embedded" (the link is part of an argument), "files" (an
/// application that takes no links), "broken" (its program is missing).
class DesktopWorld {
  public:
    /// This process's only one.
    static DesktopWorld& shared();

    struct Start {
        std::vector<std::string> arguments;
        /// Its standard input, output and error.
        std::vector<std::string> streams;
        /// The signals that it blocks, in hexadecimal.
        std::string heldOffSignals;
    };
    /// The next application that was started. Throws if there is none in time.
    Start start();

    std::filesystem::path userData() const { return directory_.path() / "home/.local/share"; }
    std::filesystem::path systemData() const { return directory_.path() / "usr/share"; }

  private:
    DesktopWorld();
    void writeEntry(const std::filesystem::path& data, const std::string& id, const std::string& lines) const;
    void writeApplications() const;
    void writeHandlers() const;
    std::filesystem::path program() const { return directory_.path() / "handler"; }
    std::filesystem::path startsPipe() const { return directory_.path() / "starts"; }

    TemporaryDirectory directory_;
    UniqueFd starts_;
};

} // namespace prismo
