#pragma once

namespace prismo {

/// One visitor made of several lambdas, for `Value::visit` and `std::visit`.
template <typename... Visitors>
struct Overloaded : Visitors... {
    using Visitors::operator()...;
};
template <typename... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

} // namespace prismo
