#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace prismo::cli {

/// Standard output, from now on for this process' results alone: what it starts has standard error in its
/// place, so that a tool's words never stand among them.
class Results {
  public:
    Results();

    /// Throws CommandError (failed) where it cannot be written.
    void write(const std::string& text);
    bool isTerminal() const;

  private:
    struct Close {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };
    /// Null where the process was started without one.
    std::unique_ptr<std::FILE, Close> stream_;
};

} // namespace prismo::cli
