#pragma once

#include "platform/local/descriptors/UniqueFd.h"
#include "tests/support/Directories.h"

#include <filesystem>
#include <string>
#include <vector>

namespace prismo {

/// The files of a desktop, in place of this machine's and without a display or a bus, for the rest of the
/// process: the desktop's library reads them once. What its applications are started with can be asked for.
///
/// Applications: "own" and "link-handler" of the user; "system", with icons of all kinds; some that no menu
/// shows. Links: "tweetbot" (link-handler), "embedded" (the link as a part of an argument), "files" (an
/// application that takes no links), "broken" (one whose program is not there).
class DesktopWorld {
  public:
    /// The one of this process.
    static DesktopWorld& shared();

    struct Start {
        std::vector<std::string> arguments;
        /// What its standard input, output and error are.
        std::vector<std::string> streams;
        /// The signals that it holds off, in hexadecimal.
        std::string heldOffSignals;
    };
    /// The next application that was started. Throws where there is none in time.
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
