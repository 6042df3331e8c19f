#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace prismo {

// libplist 2.2 recurses as deep as a file nests, copies what a binary file shares, and takes quadratic time
// for some texts and keys. So these guards check a file before the library gets it. With these limits the
// slowest file that passes takes less than a twentieth of a second, or a third in sanitized builds. Settings
// are far below them: 10,000 keys are 20,000 nodes.

/// Bytes of a file. The library takes 4 ms for each MiB of Base64 or text.
inline constexpr std::size_t maximumPropertyListSize = std::size_t{8} << 20;
/// Levels of nested lists. The smallest usual stack of a thread has room for many times that. A deeper file
/// is malformed: no reader of the platform accepts it.
inline constexpr std::size_t maximumPropertyListDepth = 256;
/// Values, keys, comments and CDATA sections, counted as often as they occur in the expanded file.
inline constexpr std::size_t maximumPropertyListNodes = 75'000;
/// How many nodes a date counts as, since the library needs several steps for one that is far away or, in a
/// binary file, has a fraction. Other binary dates count as one.
inline constexpr std::uint32_t nodesOfXmlDate = 8;
inline constexpr std::uint32_t nodesOfFarBinaryDate = 40;
/// Bytes of all texts and data in a binary file. Shared ones count each time.
inline constexpr std::size_t maximumExpandedBytes = maximumPropertyListSize;
/// Comparisons of keys while the library fills dictionaries: 10 ns each, three times that for long keys.
inline constexpr std::size_t maximumKeyComparisons = 2'500'000;
/// Bytes that the library moves while it replaces character references: 10 to 15 ms for each 10^9.
inline constexpr std::size_t maximumMovedBytes = 1'000'000'000;

enum class Verdict {
    /// The library can read it without harm and without changing a value.
    safe,
    malformed,
    /// It was in order up to the first limit that it exceeds; the rest was not checked. Of a file that is too
    /// long,
    /// only the depth of its beginning counts.
    beyondLimits,
};

/// An entry of the dictionary at the top of an XML file, as written there.
struct XmlEntry {
    /// Without its tags. Empty if it is written with references, CDATA or comments.
    std::string_view key;
    /// From its start tag to its end tag.
    std::string_view value;
};
/// A file is malformed if it is not a well-formed property list, if its document type has declarations, or if
/// it has numbers, dates or data that the library would misread ("010" as 8, "12x" as 12, any text as a date
/// in 1970, February 30 as March 1, data without padding as less). If `entries` is given, it must be empty,
/// and gets the entries of the dictionary at the top, if there is one, in their order.
Verdict judgeXml(std::string_view text, std::vector<XmlEntry>* entries = nullptr);

/// A file is malformed if it points outside itself, has cycles or values that are not property-list kinds, or
/// has text that is invalid or contains a NUL, where the library would cut it off.
Verdict judgeBinary(std::span<const std::uint8_t> bytes);

} // namespace prismo
