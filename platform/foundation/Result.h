#pragma once

#include "platform/foundation/Problem.h"

#include <stdexcept>
#include <utility>
#include <variant>

namespace prismo {

/// The value of an operation that has none to return.
struct Done {};

/// What an operation returns if it can fail: its value, or the problem that prevented it.
template <typename Type = Done>
class Result {
  public:
    Result(Type value) : held_(std::in_place_index<0>, std::move(value)) {}
    Result(Problem problem) : held_(std::in_place_index<1>, std::move(problem)) {}

    /// Did it succeed?
    explicit operator bool() const { return held_.index() == 0; }

    /// Only after success.
    Type& value() & { return std::get<0>(held_); }
    const Type& value() const& { return std::get<0>(held_); }
    Type&& value() && { return std::get<0>(std::move(held_)); }

    /// Only after failure.
    const Problem& problem() const { return std::get<1>(held_); }

  private:
    std::variant<Type, Problem> held_;
};

/// A problem as an exception, for a constructor, which cannot return a Result.
class ProblemError : public std::runtime_error {
  public:
    explicit ProblemError(const Problem& problem) : std::runtime_error(problem.text()) {}
};

/// Returns the value. Throws ProblemError if the operation failed.
template <typename Type>
Type valueOrThrow(Result<Type> result) {
    if (!result) throw ProblemError(result.problem());
    return std::move(result).value();
}

} // namespace prismo
