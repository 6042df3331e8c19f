#pragma once

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/Problem.h"
#include "platform/foundation/Result.h"
#include "platform/foundation/RunLoop.h"
#include "platform/foundation/Value.h"

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace prismo {

enum class WriteMode {
    /// A reader finds either the old file or the new one.
    atomically,
    /// The file keeps its identity; a reader may find it half written.
    inPlace,
};

/// Something that left the process or changed the outside world.
struct Effect {
    /// "write", "post", "spawn", "task", "reload" …
    std::string kind;
    /// "path", "name", "object", "argv", "environment", as they apply.
    Dictionary details;

    bool operator==(const Effect&) const = default;
};

struct InstalledApplication {
    /// The bundle identifier, for instance "com.example.app". Never empty.
    std::string displayIdentifier;
    std::string displayName;
    /// Part of the system, rather than from a store.
    bool isSystem = false;
    /// A path for `readFile`, or empty.
    std::string iconPath;

    bool operator==(const InstalledApplication&) const = default;
};

/// One of the person's accounts with a service. Its secrets never leave the device.
struct Account {
    std::string identifier;
    std::string username;

    bool operator==(const Account&) const = default;
};

/// A request to a service on behalf of an account.
struct AccountRequest {
    /// "GET" or "POST".
    std::string method;
    /// The complete URL, without the parameters.
    std::string url;
    std::map<std::string, std::string> parameters;
    Account account;
};

/// There is no device to work on: the host has not made one current, or has already let it go.
class NoCurrentDevice : public std::logic_error {
  public:
    NoCurrentDevice() : std::logic_error("no device is current") {}
};

/// Everything that the framework classes and the module may ask of the outside world.
///
/// Paths are the device's own absolute paths. No path leads out of the device, not even through a link. Call
/// all operations on the thread that runs the device's run loop, unless one says otherwise. No operation
/// throws: each says how it fails, and if it says "a problem", the host's problem observer gets a `Problem`.
class Device {
  public:
    virtual ~Device() = default;
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// The device that this process works on. Throws NoCurrentDevice if no device is current. Callable from
    /// any thread.
    static Device& current();

    /// Makes a device the current one during this object's lifetime. They nest.
    class Current {
      public:
        explicit Current(Device& device);
        ~Current();
        Current(const Current&) = delete;
        Current& operator=(const Current&) = delete;

      private:
        Device* previous_;
    };

    // Time

    virtual RunLoop& runLoop() = 0;
    /// The date, in UTC.
    virtual std::chrono::system_clock::time_point wallClock() = 0;

    // Files

    /// The dictionary in the file. Returns nullopt if the file is missing or empty, cannot be read (a
    /// problem) or does not hold a property-list dictionary (a problem). Never blocks, whatever kind of file
    /// it is.
    virtual std::optional<Dictionary> readPropertyList(const std::string& path) = 0;
    /// Replaces the whole file, and makes directories that are missing below "/User" and "/var/mobile". The
    /// bytes of a malformed file are kept next to the new one (a problem, "replaced").
    ///
    /// Returns false if the file cannot be written (a problem), or if the old file cannot be read or is too
    /// large to be read here, since then the dictionary cannot be the old one with a change (a problem). Also
    /// returns false if the dictionary contains a class, an object or nothing.
    bool writePropertyList(const std::string& path, const Dictionary& dictionary, WriteMode mode);
    /// The bytes of the file. Returns nullopt if it is missing or cannot be read (a problem).
    virtual std::optional<Data> readFile(const std::string& path) = 0;

    // System-wide notifications

    /// Notifies every process that observes `name`, including this one, on its run loop. Posts that arrive
    /// before an observer has run count as one. Does nothing if `name` is not a notification name. If the
    /// post reaches nobody, that is a problem.
    void postNotification(const std::string& name, std::string_view object = {});
    /// Posts as another process would: this records no effect.
    void postFromOutside(const std::string& name);
    /// From now on calls `systemCenter().deliver(name)` after each post. May be called again for the same
    /// name. If posts of other processes do not arrive, that is a problem.
    void observeNotification(const std::string& name);
    CFNotificationCenter& systemCenter() { return systemCenter_; }
    NSNotificationCenter& notificationCenter() { return notificationCenter_; }

    // Processes

    /// Runs the executable with these arguments, preceded by its own name. Waits until it and all its
    /// children have closed their standard output, and returns what they wrote there, or "" if the executable
    /// could not be started. Discards its standard error, since the host's is for the host's own messages.
    std::string runTask(const std::string& executable, const std::vector<std::string>& arguments);
    /// Starts the executable with exactly this argument vector (the first entry is the child's own name) and
    /// environment, and does not wait for it. Returns 0, or an error number from <cerrno>, which is what the
    /// module expects of the platform.
    int spawn(const std::string& executable, const std::vector<std::string>& arguments,
              const std::vector<std::string>& environment);

    // Applications

    /// All applications that a person can open, in no particular order, without broken bundles. They are
    /// listed on the first call, and again after `refreshApplications`.
    const std::vector<InstalledApplication>& installedApplications();
    void refreshApplications() { applications_.reset(); }

    // Links

    /// Can anything on the device open links with this link's scheme? Callable from any thread.
    bool canOpenURL(const std::string& url);
    /// Hands the link to what opens its scheme, and does not wait. Returns false if nothing does, or if it
    /// could not be started. Callable from any thread.
    bool openURL(const std::string& url);

    // Accounts

    /// Asks whether this process may use the person's accounts. Calls `completion` once, on any thread.
    virtual void requestAccountAccess(std::function<void(bool granted)> completion) = 0;
    /// In the person's own order. Callable from any thread.
    virtual std::vector<Account> accounts() = 0;
    /// Signs the request for its account and sends it, without waiting. Calls `completion` once, on any
    /// thread, with the HTTP status, or with 0 if there was no answer. Callable from any thread.
    void performRequest(const AccountRequest& request, std::function<void(int status)> completion);

    // For the host

    /// Calls the observer after each effect, on the thread that caused it. There is one observer at a time;
    /// an empty function removes it. Calls do not overlap, so an observer must not cause an effect itself.
    void setEffectObserver(std::function<void(const Effect&)> observer);
    /// Calls the observer for each problem as it occurs, on the run loop's thread. There is one observer at a
    /// time; an empty function removes it. The operations themselves stay silent, as the platform's do.
    void setProblemObserver(std::function<void(const Problem&)> observer) {
        problemObserver_ = std::move(observer);
    }
    /// Records an effect of the frameworks themselves, such as a page that rebuilds its rows. `from` names
    /// the function that caused it, for the trace.
    void recordEffect(std::string kind, Dictionary details, std::string_view from);

  protected:
    Device() = default;

    // The problems of these three are reported by the caller.
    virtual Result<> write(const std::string& path, const Dictionary& dictionary, WriteMode mode) = 0;
    virtual Result<> post(const std::string& name) = 0;
    virtual Result<> observe(const std::string& name) = 0;

    virtual Result<std::string> run(const std::string& executable,
                                    const std::vector<std::string>& arguments) = 0;
    virtual int start(const std::string& executable, const std::vector<std::string>& arguments,
                      const std::vector<std::string>& environment) = 0;

    virtual std::vector<InstalledApplication> listApplications() = 0;
    virtual bool canOpen(const std::string& url) = 0;
    virtual bool open(const std::string& url) = 0;
    virtual void send(const AccountRequest& request, std::function<void(int status)> completion) = 0;

    void report(const Problem& problem);
    /// Returns whether the operation succeeded. If it failed, reports its problem.
    bool succeeded(const Result<>& result);

  private:
    NSNotificationCenter notificationCenter_;
    CFNotificationCenter systemCenter_{*this};
    std::optional<std::vector<InstalledApplication>> applications_;
    std::mutex effectMutex_;
    std::function<void(const Effect&)> effectObserver_;
    std::function<void(const Problem&)> problemObserver_;
};

/// Can this be posted and observed? A name is not empty, not "." or "..", has no slash and no NUL, and has at
/// most 255 bytes.
bool isNotificationName(std::string_view name);

/// Can `value` stand in a property list? It must not contain a class, an object or nothing, at any depth.
bool isPropertyList(const Value& value);

} // namespace prismo
