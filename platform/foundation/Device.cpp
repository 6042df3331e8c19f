#include "platform/foundation/Device.h"

#include "platform/foundation/Trace.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace prismo {

namespace {

// Atomic, since the accounts service asks for it on its own threads.
std::atomic<Device*> currentDevice = nullptr;

Array texts(const std::vector<std::string>& list) { return {list.begin(), list.end()}; }

} // namespace

Device& Device::current() {
    auto* device = currentDevice.load();
    if (!device) throw NoCurrentDevice();
    return *device;
}

Device::Current::Current(Device& device) : previous_(currentDevice.exchange(&device)) {}

Device::Current::~Current() { currentDevice = previous_; }

bool Device::writePropertyList(const std::string& path, const Dictionary& dictionary, WriteMode mode) {
    if (!isPropertyList(dictionary)) return false;
    if (!succeeded(write(path, dictionary, mode))) return false;
    recordEffect("write", {{"path", path}}, "Device::writePropertyList");
    return true;
}

void Device::postNotification(const std::string& name, std::string_view object) {
    if (!isNotificationName(name) || !succeeded(post(name))) return;
    Dictionary details{{"name", name}};
    if (!object.empty()) details["object"] = object;
    recordEffect("post", std::move(details), "Device::postNotification");
}

void Device::postFromOutside(const std::string& name) {
    if (isNotificationName(name)) succeeded(post(name));
}

void Device::observeNotification(const std::string& name) {
    if (isNotificationName(name)) succeeded(observe(name));
}

std::string Device::runTask(const std::string& executable, const std::vector<std::string>& arguments) {
    auto output = run(executable, arguments);
    if (!output) return "";
    Array argv = texts(arguments);
    argv.insert(argv.begin(), executable);
    recordEffect("task", {{"path", executable}, {"argv", std::move(argv)}}, "Device::runTask");
    return std::move(output).value();
}

int Device::spawn(const std::string& executable, const std::vector<std::string>& arguments,
                  const std::vector<std::string>& environment) {
    const int error = start(executable, arguments, environment);
    if (error == 0)
        recordEffect("spawn",
                     {{"path", executable}, {"argv", texts(arguments)}, {"environment", texts(environment)}},
                     "Device::spawn");
    return error;
}

const std::vector<InstalledApplication>& Device::installedApplications() {
    if (!applications_) applications_ = listApplications();
    return *applications_;
}

bool Device::canOpenURL(const std::string& url) {
    const bool accepted = canOpen(url);
    recordEffect("canOpenURL", {{"url", url}, {"accepted", accepted}}, "Device::canOpenURL");
    return accepted;
}

bool Device::openURL(const std::string& url) {
    const bool accepted = open(url);
    recordEffect("openURL", {{"url", url}, {"accepted", accepted}}, "Device::openURL");
    return accepted;
}

void Device::performRequest(const AccountRequest& request, std::function<void(int)> completion) {
    Dictionary parameters;
    for (const auto& [name, value] : request.parameters)
        parameters[name] = value;
    recordEffect("request",
                 {{"method", request.method},
                  {"url", request.url},
                  {"parameters", std::move(parameters)},
                  {"account", request.account.username}},
                 "Device::performRequest");
    send(request, std::move(completion));
}

void Device::setEffectObserver(std::function<void(const Effect&)> observer) {
    const std::scoped_lock lock(effectMutex_);
    effectObserver_ = std::move(observer);
}

void Device::recordEffect(std::string kind, Dictionary details, std::string_view from) {
    const Trace::Step step(
        "effect", [&] { return kind + ' ' + Trace::text(details); }, from);
    const std::scoped_lock lock(effectMutex_);
    if (effectObserver_) effectObserver_({std::move(kind), std::move(details)});
}

void Device::report(const Problem& problem) {
    if (problemObserver_) problemObserver_(problem);
}

bool Device::succeeded(const Result<>& result) {
    if (!result) report(result.problem());
    return static_cast<bool>(result);
}

bool isNotificationName(std::string_view name) {
    constexpr std::size_t longest = 255; // on Linux each one is the name of a file
    constexpr std::string_view refused("/\0", 2);
    return !name.empty() && name.size() <= longest && name != "." && name != ".." &&
           name.find_first_of(refused) == std::string_view::npos;
}

bool isPropertyList(const Value& value) {
    if (const auto* array = value.as<Array>()) return std::ranges::all_of(*array, isPropertyList);
    if (const auto* dictionary = value.as<Dictionary>())
        return std::ranges::all_of(*dictionary,
                                   [](const auto& entry) { return isPropertyList(entry.second); });
    return !value.isNothing() && !value.asClass() && !value.object();
}

} // namespace prismo
