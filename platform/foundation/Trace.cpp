#include "platform/foundation/Trace.h"

#include "platform/foundation/Device.h"
#include "platform/foundation/NSObject.h"
#include "platform/foundation/Overloaded.h"
#include "platform/text/Number.h"
#include "platform/text/Printable.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <utility>

namespace prismo {

namespace {

// Effects come from every thread.
std::mutex outputMutex;
std::function<void(const std::string&)> output = [](const std::string& line) {
    std::fputs((line + '\n').c_str(), stderr);
};
std::optional<RunLoop::Time> firstTime;
thread_local std::size_t depth = 0;

bool isAskedFor() {
    const char* value = std::getenv("PRISMO2_TRACE");
    return value && std::string_view(value) == "1";
}

RunLoop::Time now() {
    try {
        return Device::current().runLoop().now();
    } catch (const NoCurrentDevice&) {
        return firstTime.value_or(RunLoop::Time());
    }
}

/// By integers: the window's locale may write a comma.
std::string milliseconds(RunLoop::Time time) {
    const auto tenths =
        std::chrono::duration_cast<std::chrono::duration<long long, std::ratio<1, 10000>>>(time);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%6lld.%lld ms", tenths.count() / 10, tenths.count() % 10);
    return text.data();
}

std::string cut(std::string text) {
    constexpr std::size_t longest = 100;
    if (text.size() <= longest) return text;
    auto end = longest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    text.replace(end, std::string::npos, "…");
    return text;
}

} // namespace

bool Trace::isOn_ = isAskedFor();

void Trace::Step::begin(const char* kind, const std::string& what, std::string_view from) {
    const std::scoped_lock lock(outputMutex);
    const auto time = now();
    if (!firstTime) firstTime = time;
    auto line =
        "trace: " + milliseconds(time - *firstTime) + "  " + std::string(2 * depth, ' ') + kind + ' ' + what;
    if (!from.empty()) (line += " from ") += from;
    if (output) output(printable(line));
    ++depth;
}

void Trace::Step::end() { --depth; }

std::string Trace::text(const Value& value) {
    const auto list = [](char open, const auto& items, auto itemText, char close) {
        std::string result;
        for (const auto& item : items)
            (result += result.empty() ? "" : ", ") += itemText(item);
        return cut(open + result + close);
    };
    return value.visit(Overloaded{
        [](std::monostate) -> std::string { return "nothing"; },
        [](bool flag) -> std::string { return flag ? "true" : "false"; },
        [](std::int64_t number) { return std::to_string(number); },
        [](std::uint64_t number) { return std::to_string(number); },
        [](double number) { return shortestText(number); },
        [](const std::string& string) { return '"' + cut(string) + '"'; },
        [](const Date& date) { return dateText(date); },
        [](const Data& data) { return std::to_string(data.size()) + " bytes"; },
        [&](const Array& array) { return list('[', array, text, ']'); },
        [&](const Dictionary& dictionary) {
            const auto entry = [](const auto& each) { return each.first + '=' + text(each.second); };
            return list('{', dictionary, entry, '}');
        },
        [](const Uid& uid) { return "UID " + std::to_string(uid.index); },
        [](const Class* objectClass) { return objectClass->name(); },
        [](const std::shared_ptr<NSObject>& object) { return cut(object->description()); },
    });
}

void Trace::setSink(std::function<void(const std::string&)> sink) {
    const std::scoped_lock lock(outputMutex);
    isOn_ = sink != nullptr;
    output = std::move(sink);
    firstTime = std::nullopt;
}

} // namespace prismo
