#pragma once

#include "platform/foundation/Value.h"

#include <string>
#include <variant>

namespace prismo {

/// Why a dictionary cannot be written, in words.
struct Unwritable {
    std::string cause;
};

/// The dictionary as an XML property list: keys in byte order, a newline at the end. Dates are cut to whole
/// seconds, which is all that XML has. What `readDictionary` would refuse is not written: text that is not
/// UTF-8 or holds a NUL, dates before the year 1 or after 9999, and what is beyond the reader's limits. Nor
/// is text with a character that XML does not have, which this reader takes and others do not.
///
/// Not the library's own writer: that one writes dates before the year 1000 with too few digits and drops the
/// sign of -0.0, its constructors take no integer's sign and no date outside 32 bits, and a carriage return
/// that it writes is a line feed to other readers.
std::variant<std::string, Unwritable> xmlText(const Dictionary& dictionary);

} // namespace prismo
