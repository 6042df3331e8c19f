#pragma once

namespace prismo {

/// The services that accept shared posts and requests.
enum class SLServiceType { twitter };

inline constexpr SLServiceType SLServiceTypeTwitter = SLServiceType::twitter;

} // namespace prismo
