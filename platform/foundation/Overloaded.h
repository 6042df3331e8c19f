#pragma once

namespace prismo {

/// Combines several lambdas into one visitor, for `Value::visit` and `std::visit`.
template <typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

} // namespace prismo
