#pragma once

#include "platform/foundation/CFNotificationCenter.h"
#include "platform/foundation/NSNotificationCenter.h"
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
    /// The file is the old one or the new one at every moment.
    atomically,
    /// The file keeps its identity and may be seen half written.
    inPlace,
};

/// What the device could not do with a file. The operations themselves stay silent, as the framework's do;
/// a host listens here to tell the person.
struct FileProblem {
    enum class Kind {
        /// It is there and cannot be read.
        unreadable,
        /// It can be read and holds no property-list dictionary.
        malformed,
        /// It could not be written. What was there before is there still, unless writing in place broke off.
        unwritable,
        /// It is written, and a power cut may take that back.
        unsynced,
        /// A file that could not be read was replaced; its bytes are kept, under the name that `cause` tells.
        replaced,
    };
    Kind kind;
    /// As the person knows it: on Linux the path on this machine, not the one on the device.
    std::string path;
    /// In words, without the path: "No space left on device".
    std::string cause;

    auto operator<=>(const FileProblem&) const = default;
};

/// Something that left the process or changed its surroundings, in the order of its happening.
struct Effect {
    /// "write", "post", "spawn", "task", "reload" …
    std::string kind;
    /// What it was done with: "path", "name", "object", "argv", "environment", as they apply.
    Dictionary details;

    bool operator==(const Effect&) const = default;
};

struct InstalledApplication {
    /// The bundle identifier, for instance "com.example.app". Never empty.
    std::string displayIdentifier;
    std::string displayName;
    /// It came with the system, rather than from a store.
    bool isSystem = false;
    /// A path for `readFile`, or empty.
    std::string iconPath;

    bool operator==(const InstalledApplication&) const = default;
};

/// One of the person's accounts with a service. Its secrets stay with the device.
struct Account {
    std::string identifier;
    std::string username;

    bool operator==(const Account&) const = default;
};

/// A request to a service, made in the name of an account.
struct AccountRequest {
    /// "GET" or "POST".
    std::string method;
    /// Complete, without the parameters.
    std::string url;
    std::map<std::string, std::string> parameters;
    Account account;
};

/// There is no device to work on: the host has made none current, or has let go of it.
class NoCurrentDevice : public std::logic_error {
  public:
    NoCurrentDevice() : std::logic_error("no device is current") {}
};

/// Everything that the framework classes and the module may ask of the outside world.
///
/// Paths are the device's own absolute paths; none leads out of the device, links included. All operations
/// belong to the thread that runs the device's run loop. None throws: each says how it fails.
class Device {
  public:
    virtual ~Device() = default;
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// The device that this process works on. Throws NoCurrentDevice where none has been made current.
    /// Callable from every thread.
    static Device& current();

    /// Makes a device the current one for as long as this lives. They nest.
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

    /// The dictionary in the file; nothing where the file is missing, cannot be read (a problem) or holds
    /// no property-list dictionary (a problem). Never blocks on what is not a regular file.
    virtual std::optional<Dictionary> readPropertyList(const std::string& path) = 0;
    /// Replaces the whole file. Directories missing below "/User" and "/var/mobile" are made. The bytes of a
    /// malformed file are kept beside the new one (a problem, "replaced"). False where it could not be
    /// written (a problem), or the old file cannot be read, or holds more than can be read here, so that the
    /// dictionary cannot be the old one with a change (a problem), or the dictionary holds a class, an object
    /// or nothing.
    bool writePropertyList(const std::string& path, const Dictionary& dictionary, WriteMode mode);
    /// The file's bytes; nothing where it is missing or cannot be read (a problem).
    virtual std::optional<Data> readFile(const std::string& path) = 0;

    // System-wide notifications

    /// Tells every process that observes `name`, this one included, on its run loop. Posts that come before
    /// an observer has run count as one. What is no notification's name reaches nobody.
    void postNotification(const std::string& name, std::string_view object = {});
    /// Posts as another process would: it is no effect of this one.
    void postFromOutside(const std::string& name);
    /// From now on `systemCenter().deliver(name)` is called after each post. May be asked again.
    void observeNotification(const std::string& name);
    CFNotificationCenter& systemCenter() { return systemCenter_; }
    NSNotificationCenter& notificationCenter() { return notificationCenter_; }

    // Processes

    /// Runs the executable with these arguments (its own name is put before them) and waits until it and
    /// all that it started have closed their standard output; returns what they wrote to it, "" where it
    /// could not be started. Its complaints are dropped: the host's standard error is for the host's own.
    std::string runTask(const std::string& executable, const std::vector<std::string>& arguments);
    /// Starts the executable with exactly this argument vector (its first entry is the child's own name) and
    /// environment, and goes on. 0, or the error number of the spawn. The child is never waited for.
    int spawn(const std::string& executable, const std::vector<std::string>& arguments,
              const std::vector<std::string>& environment);

    // Applications

    /// All that a person can open, in no order that means anything; a broken bundle is left out. Listed
    /// when first asked for, and again after `refreshApplications`.
    const std::vector<InstalledApplication>& installedApplications();
    void refreshApplications() { applications_.reset(); }

    // Links

    /// Is there anything on the device that opens links of this one's scheme? Callable from every thread.
    bool canOpenURL(const std::string& url);
    /// Hands the link to what opens its scheme and goes on; false where there is nothing or it could not be
    /// started. Callable from every thread.
    bool openURL(const std::string& url);

    // Accounts

    /// Asks whether this process may use the person's accounts. `completion` is called once, on whatever
    /// thread.
    virtual void requestAccountAccess(std::function<void(bool granted)> completion) = 0;
    /// In the order in which the person keeps them. Callable from every thread.
    virtual std::vector<Account> accounts() = 0;
    /// Signs the request for its account and sends it, without waiting. `completion` is called once, on
    /// whatever thread, with the HTTP status, or 0 where there was no answer. Callable from every thread.
    void performRequest(const AccountRequest& request, std::function<void(int status)> completion);

    // For the host

    enum class Companions {
        /// Tasks are not run and answer "", notifications are not observed, and applications are the device
        /// root's own: for a host that shows no page.
        none,
        /// Notifications are not observed: for a host that shows a page and is over.
        page,
        all,
    };
    void setCompanions(Companions companions) { companions_ = companions; }
    Companions companions() const { return companions_; }

    /// Called for each effect, after it, on the thread that had it. One observer at a time; an empty one ends
    /// it. It is called for one effect at a time, so it must not have an effect itself.
    void setEffectObserver(std::function<void(const Effect&)> observer);
    /// Called for each file problem, as it occurs. One observer at a time; an empty one ends it.
    void setProblemObserver(std::function<void(const FileProblem&)> observer) {
        problemObserver_ = std::move(observer);
    }
    /// Adds an effect that is the frameworks' own, such as a page that rebuilds its rows. `from` is for the
    /// trace: the function that has it.
    void recordEffect(std::string kind, Dictionary details, std::string_view from);

  protected:
    Device() = default;

    virtual bool write(const std::string& path, const Dictionary& dictionary, WriteMode mode) = 0;
    /// False where it reaches nobody (a problem).
    virtual bool post(const std::string& name) = 0;
    virtual void observe(const std::string& name) = 0;
    /// Nothing where it could not be started.
    virtual std::optional<std::string> run(const std::string& executable,
                                           const std::vector<std::string>& arguments) = 0;
    virtual int start(const std::string& executable, const std::vector<std::string>& arguments,
                      const std::vector<std::string>& environment) = 0;

    virtual std::vector<InstalledApplication> listApplications() = 0;
    virtual bool canOpen(const std::string& url) = 0;
    virtual bool open(const std::string& url) = 0;
    virtual void send(const AccountRequest& request, std::function<void(int status)> completion) = 0;

    void report(FileProblem::Kind kind, std::string path, std::string cause);

  private:
    NSNotificationCenter notificationCenter_;
    CFNotificationCenter systemCenter_{*this};
    std::optional<std::vector<InstalledApplication>> applications_;
    Companions companions_ = Companions::all;
    std::mutex effectMutex_;
    std::function<void(const Effect&)> effectObserver_;
    std::function<void(const FileProblem&)> problemObserver_;
};

/// Not empty, neither "." nor "..", without slash and NUL, and at most 255 bytes: what can be posted and
/// observed.
bool isNotificationName(std::string_view name);

/// Can `value` stand in a property list? (No class, object or nothing in it, at any depth.)
bool isPropertyList(const Value& value);

} // namespace prismo
