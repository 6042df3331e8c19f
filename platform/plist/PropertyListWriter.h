#pragma once

#include "platform/foundation/Result.h"
#include "platform/foundation/Value.h"

#include <string>

namespace prismo {

/// The dictionary as an XML property list, with keys in byte order and a newline at the end. Dates are cut to
/// whole seconds, since XML has no more.
///
/// Fails (unwritable, for the file at `path`) for what `parseDictionary` would refuse: text that is not UTF-8
/// or has a NUL, a date before the year 1 or after 9999, and anything beyond the reader's limits. Also fails
/// for text with a character that XML does not have: our reader takes it, others do not.
///
/// Does not use the library's writer. It writes dates before the year 1000 with too few digits and drops the
/// sign of -0.0. Its constructors take no sign for an integer and no date beyond 32 bits. And a carriage
/// return that it writes is a line feed to other readers.
Result<std::string> xmlText(const Dictionary& dictionary, const std::string& path);

} // namespace prismo
