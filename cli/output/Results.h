#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace prismo::cli {

/// Standard output, reserved for this process's results from now on: programs that it starts get standard
/// error instead, so that their output never mixes with the results.
class Results {
  public:
    Results();

    /// Throws CommandError (failed) if it cannot be written.
    void write(const std::string& text);
    bool isTerminal() const;

  private:
    struct Close {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };
    /// Null if the process was started without a standard output.
    std::unique_ptr<std::FILE, Close> stream_;
};

} // namespace prismo::cli
