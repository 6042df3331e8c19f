#pragma once

#include <string>

namespace prismo {

/// Opens a Twitter profile in the first installed client (Tweetbot, Twitterrific, Tweetings, Twitter), or
/// else on the web. The username goes into the link unescaped. Returns false if the link could not be opened.
/// Callable from any thread.
bool FBOpenTwitterUsername(const std::string& username);

/// Starts a new mail to an address, which goes into the link unescaped. Returns false if the link could not
/// be opened.
bool FBOpenMailAddress(const std::string& address);

} // namespace prismo
