#pragma once

#include "platform/foundation/Problem.h"

#include <algorithm>
#include <vector>

namespace prismo {

/// Problems as a host presents them to a person: each one once, and without those that another one explains.
class ProblemList {
  public:
    /// False if the same problem is already in the list, which then stays as it is.
    bool add(const Problem& problem) {
        const bool isNew = std::ranges::find(problems_, problem) == problems_.end();
        if (isNew) problems_.push_back(problem);
        return isNew;
    }
    void remove(const Problem& problem) { std::erase(problems_, problem); }

    /// Does a problem in the list say all that this one would?
    ///
    /// What became of the write that met a malformed file says more than that the file was malformed. A
    /// change that could not be written is not posted either, and one cause is enough for both.
    bool explains(const Problem& problem) const {
        using Kind = Problem::Kind;
        return std::ranges::any_of(problems_, [&](const Problem& other) {
            if (problem.kind == Kind::malformed)
                return (other.kind == Kind::replaced || other.kind == Kind::unwritable) &&
                       other.path == problem.path;
            return problem.kind == Kind::notPosted && other.kind == Kind::unwritable &&
                   other.cause == problem.cause;
        });
    }

    /// In the order in which they occurred.
    auto begin() const { return problems_.begin(); }
    auto end() const { return problems_.end(); }

  private:
    std::vector<Problem> problems_;
};

} // namespace prismo
