#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace prismo {

// libplist 2.2 recurses as deep as a file nests, copies what a binary file shares, and needs quadratic time
// for some texts and keys. So a file is looked over before the library gets it. The limits keep the slowest
// file that passes below a twentieth of a second, a third in sanitized builds, and are far from what settings
// need: 10,000 keys are 20,000 nodes.

/// Bytes of a file. Base64 and text take the library 4 ms for each MiB.
inline constexpr std::size_t maximumPropertyListSize = std::size_t{8} << 20;
/// Lists in lists. A thread's smallest usual stack holds many times that. What is deeper is malformed: no
/// reader of the platform takes it.
inline constexpr std::size_t maximumPropertyListDepth = 256;
/// Values, keys, comments and CDATA sections, each as often as the expanded file holds it.
inline constexpr std::size_t maximumPropertyListNodes = 75'000;
/// What a date counts as, for the ways in which the library tells a far one, and in a binary file one with a
/// fraction; other binary ones count as one.
inline constexpr std::uint32_t nodesOfXmlDate = 8;
inline constexpr std::uint32_t nodesOfFarBinaryDate = 40;
/// Bytes of all texts and data in a binary file, those that are shared counted each time.
inline constexpr std::size_t maximumExpandedBytes = maximumPropertyListSize;
/// Comparisons of keys while dictionaries are filled: 10 ns each, and three times that for long ones.
inline constexpr std::size_t maximumKeyComparisons = 2'500'000;
/// Bytes moved while character references are replaced, 10 to 15 ms for each 10^9.
inline constexpr std::size_t maximumMovedBytes = 1'000'000'000;

enum class Verdict {
    /// The library can read it without harm, and without changing a value.
    safe,
    malformed,
    /// It was in order as far as it was looked at, which is to the first limit that it goes beyond. Of what
    /// is too long, only the depth of its beginning is judged.
    beyondLimits,
};

/// An entry of the dictionary at the top of an XML file, both parts as they are written there.
struct XmlEntry {
    /// Without its tags. Empty where it is spelled in a roundabout way: with references, CDATA or comments.
    std::string_view key;
    /// From its start tag to its end tag.
    std::string_view value;
};
/// Malformed is what is no well-formed property list, a document type with declarations of its own, and
/// numbers, dates and data that the library would misread ("010" as 8, "12x" as 12, any text as a date in
/// 1970, the 30th of February as the 1st of March, data without its padding as less). Fills an empty list,
/// where there is one, with the entries, in their order; without such a dictionary there are none.
Verdict judgeXml(std::string_view text, std::vector<XmlEntry>* entries = nullptr);

/// Malformed is what points outside the file, cycles, kinds that are no property-list kinds, and text that is
/// not valid or holds a NUL, where the library would end it.
Verdict judgeBinary(std::span<const std::uint8_t> bytes);

} // namespace prismo
