#pragma once

#include <compare>
#include <string>

namespace prismo {

/// Something that could not be done, in terms that a person understands.
struct Problem {
    enum class Kind {
        /// There is no such file or directory. For a reader that is "no value", which it does not report.
        missing,
        /// It exists and cannot be read.
        unreadable,
        /// It can be read, but does not hold what it should, such as a property-list dictionary.
        malformed,
        /// It could not be written. The old content is still there, unless writing in place broke off.
        unwritable,
        /// It is written, but a power failure may undo that.
        unsynced,
        /// A file that could not be read was replaced. Its bytes are kept, under the name that `cause` gives.
        replaced,
        /// A notification reached nobody.
        notPosted,
        /// Notifications from other processes do not arrive.
        notObserved,
        /// Other users can post and see notifications.
        notPrivate,
        /// A part of the product is not installed, or cannot be loaded.
        missingService,
        /// A program could not be started.
        notStarted,
    };
    Kind kind;
    /// As the person knows it: on Linux the path on this machine, not the one on the device. May be empty.
    std::string path;
    /// In words, without the path: "No space left on device".
    std::string cause;

    /// The same problem, seen as one of another kind: a file is missing, so another one is unwritable.
    Problem as(Kind other) const { return {other, path, cause}; }
    /// "PATH: CAUSE".
    std::string text() const { return path.empty() ? cause : path + ": " + cause; }

    auto operator<=>(const Problem&) const = default;
};

} // namespace prismo
