#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <string_view>

namespace prismo {

class Value;

/// Follows a tap to the file for someone who reads the source: a line for each tap, each message sent by
/// name, each notification and each effect, in order, with what it came from. What happens within a step is
/// indented below it. PRISMO2_TRACE=1 in the environment turns it on, for the life of the process, on
/// standard error.
///
/// The times are those of the current device's run loop, in milliseconds since the first line. A control
/// character, which a value from outside may hold, shows as "?".
class Trace {
  public:
    static bool isOn() { return isOn_; }

    /// A step, for as long as this lives. `what` returns the text of its line; it is not called if the trace
    /// is off. `from` names the function or the object that it came from, or is "".
    class Step {
      public:
        template <std::invocable What>
        Step(const char* kind, What what, std::string_view from) : isTraced_(isOn()) {
            if (isTraced_) begin(kind, what(), from);
        }
        ~Step() {
            if (isTraced_) end();
        }
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

      private:
        static void begin(const char* kind, const std::string& what, std::string_view from);
        static void end();

        bool isTraced_;
    };

    /// The value as a line shows it: text in quotes, and cut if it is long.
    static std::string text(const Value& value);

    /// Turns the trace on, its lines going to `sink` in place of standard error; an empty one turns it off.
    /// The times start again.
    static void setSink(std::function<void(const std::string& line)> sink);

  private:
    static bool isOn_;
};

} // namespace prismo
