#include "platform/memory/MemoryDevice.h"

#include "platform/text/Link.h"

#include <utility>

namespace prismo {

namespace {

using namespace std::chrono_literals;

constexpr auto firstDate = std::chrono::sys_days(2026y / std::chrono::January / 15) + 12h;

const std::string& causeFor(const std::map<std::string, std::string>& failures, const std::string& path) {
    static const std::string none;
    const auto found = failures.find(path);
    return found == failures.end() ? none : found->second;
}

} // namespace

MemoryDevice::MemoryDevice() : runLoop_(virtualTime_), startDate_(firstDate) {}

MemoryDevice::MemoryDevice(Device* original, RunLoop::Driver& driver)
    : runLoop_(driver), original_(original) {
    setWallClock(original ? original->wallClock() : std::chrono::system_clock::now());
}

std::chrono::system_clock::time_point MemoryDevice::wallClock() {
    return startDate_ + std::chrono::duration_cast<std::chrono::system_clock::duration>(runLoop_.now());
}

void MemoryDevice::setWallClock(std::chrono::system_clock::time_point date) {
    startDate_ = date - std::chrono::duration_cast<std::chrono::system_clock::duration>(runLoop_.now());
}

std::optional<Dictionary> MemoryDevice::readPropertyList(const std::string& path) {
    ++propertyListReads_[path];
    if (failsToRead(path)) return std::nullopt;
    const auto found = files_.find(path);
    if (found == files_.end()) return original_ ? original_->readPropertyList(path) : std::nullopt;
    if (const auto* dictionary = std::get_if<Dictionary>(&found->second)) return *dictionary;
    report({Problem::Kind::malformed, path, "not a property list"});
    return std::nullopt;
}

bool MemoryDevice::failsToRead(const std::string& path) {
    const auto& cause = causeFor(readFailures_, path);
    if (!cause.empty()) report({Problem::Kind::unreadable, path, cause});
    return !cause.empty();
}

std::optional<Data> MemoryDevice::readFile(const std::string& path) {
    if (failsToRead(path)) return std::nullopt;
    const auto found = files_.find(path);
    if (found == files_.end()) return original_ ? original_->readFile(path) : std::nullopt;
    const auto* bytes = std::get_if<Data>(&found->second);
    return bytes ? std::optional(*bytes) : std::nullopt;
}

int MemoryDevice::propertyListReads(const std::string& path) const {
    const auto found = propertyListReads_.find(path);
    return found == propertyListReads_.end() ? 0 : found->second;
}

void MemoryDevice::setApplications(std::vector<InstalledApplication> applications) {
    applicationList_ = std::move(applications);
    refreshApplications();
}

Result<> MemoryDevice::write(const std::string& path, const Dictionary& dictionary, WriteMode /*mode*/) {
    if (const auto& cause = causeFor(writeFailures_, path); !cause.empty())
        return Problem{Problem::Kind::unwritable, path, cause};
    files_[path] = dictionary;
    return Done{};
}

Result<> MemoryDevice::post(const std::string& name) {
    if (postsFail_) return Problem{Problem::Kind::notPosted, name, "Posts fail"};
    if (!observed_.contains(name) || !pending_.insert(name).second) return Done{};
    runLoop_.perform([this, name] {
        pending_.erase(name);
        systemCenter().deliver(name);
    });
    return Done{};
}

Result<> MemoryDevice::observe(const std::string& name) {
    observed_.insert(name);
    return Done{};
}

Result<std::string> MemoryDevice::run(const std::string& executable,
                                      const std::vector<std::string>& arguments) {
    if (tasksFail_) return Problem{Problem::Kind::notStarted, executable, "Tasks fail"};
    return taskOutput_ ? taskOutput_(executable, arguments) : "";
}

int MemoryDevice::start(const std::string& /*executable*/, const std::vector<std::string>& /*arguments*/,
                        const std::vector<std::string>& /*environment*/) {
    return spawnError_;
}

void MemoryDevice::setAccounts(AccountAccess access, std::vector<Account> accounts) {
    accountAccess_ = access;
    accounts_ = std::move(accounts);
}

void MemoryDevice::requestAccountAccess(std::function<void(bool)> completion) {
    runLoop_.perform([completion = std::move(completion),
                      granted = accountAccess_ == AccountAccess::granted] { completion(granted); });
}

bool MemoryDevice::canOpen(const std::string& url) {
    const auto scheme = linkScheme(url);
    return scheme && linkSchemes_.contains(*scheme);
}

void MemoryDevice::send(const AccountRequest& /*request*/, std::function<void(int)> completion) {
    constexpr int success = 200;
    runLoop_.perform([completion = std::move(completion)] { completion(success); });
}

std::vector<InstalledApplication> MemoryDevice::listApplications() {
    return original_ ? original_->installedApplications() : applicationList_;
}

} // namespace prismo
