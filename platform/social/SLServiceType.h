#pragma once

namespace prismo {

/// The services that posts can be shared on and requests be made to.
enum class SLServiceType { twitter };

inline constexpr SLServiceType SLServiceTypeTwitter = SLServiceType::twitter;

} // namespace prismo
