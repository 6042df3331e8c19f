#pragma once

#include <string>

namespace prismo {

/// Opens a Twitter profile in the first installed client, Tweetbot, Twitterrific, Tweetings, Twitter, else on
/// the web. The username goes into the link as it is. False where the link could not be opened. Callable from
/// every thread.
bool FBOpenTwitterUsername(const std::string& username);

/// Opens a new mail to an address, which goes into the link as it is. False where it could not be opened.
bool FBOpenMailAddress(const std::string& address);

} // namespace prismo
