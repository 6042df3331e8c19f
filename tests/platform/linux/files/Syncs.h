#pragma once

#include <string>
#include <vector>

namespace prismo {

/// Records the calls of fsync during its lifetime, and can make one of them fail.
class Syncs {
  public:
    /// `failing` is the number of the call that fails, from 1.
    explicit Syncs(int failing = 0);
    ~Syncs();
    Syncs(const Syncs&) = delete;
    Syncs& operator=(const Syncs&) = delete;

    /// What was synced, in order, as paths of this machine.
    const std::vector<std::string>& paths() const { return paths_; }

    int sync(int descriptor);

  private:
    int failing_;
    int calls_ = 0;
    std::vector<std::string> paths_;
};

} // namespace prismo
