#include "cli/arguments/NotificationName.h"
#include "cli/arguments/WatchLimits.h"
#include "cli/commands/CommandTable.h"
#include "cli/output/Json.h"
#include "cli/output/ValueText.h"
#include "prefs/PHPrefsManager.h"

#include "platform/text/Number.h"
#include "platform/text/Printable.h"

#include <cmath>

namespace prismo::cli {

namespace {

/// The kind of a value follows from its spelling: true or false, an integer, a real, otherwise text.
Value valueFromText(const std::string& text) {
    if (text == "true" || text == "false") return text == "true";
    if (const auto integer = numberFromText<std::int64_t>(text)) return *integer;
    if (const auto large = numberFromText<std::uint64_t>(text)) return *large;
    if (const auto real = numberFromText<double>(text); real && std::isfinite(*real)) return *real;
    return text;
}

class Store : public Command {
    std::string domain_;
    std::string key_;
    std::string value_;
    std::string notification_;
    std::vector<std::string> defaults_;
    std::string path_;
    bool isText_ = false;
    WatchLimits limits_;
    Exit (Store::*action_)(Host&, PHPrefsManager&) = nullptr;

    void declare(CLI::App& app) override {
        app.add_option("DOMAIN", domain_, "com.example.app: the file of that name in the user's preferences")
            ->required();
        app.add_option("--notify", notification_, "the notification to post after a change, or to watch")
            ->option_text("NAME");
        app.add_option("--default", defaults_, "the value of a key that the file lacks")
            ->option_text("KEY=VALUE")
            ->expected(1)
            ->allow_extra_args(false)
            ->take_all();
        app.add_option("--path", path_, "a file of the device instead of the domain's own")
            ->option_text("FILE");
        app.add_flag("--string", isText_, "take VALUE as text");
        app.require_subcommand(1);
        app.fallthrough();

        auto* get = action(app, "get", "print a value", &Store::get);
        auto* set = action(app, "set", "store a value", &Store::set);
        auto* remove = action(app, "remove", "remove a value", &Store::remove);
        action(app, "list", "print all values", &Store::list);
        auto* watch =
            action(app, "watch", "print the values whenever the notification arrives", &Store::watch);
        for (auto* each : {get, set, remove})
            each->add_option("KEY", key_, "its name in the file")->required();
        set->add_option("VALUE", value_, "a boolean, integer or real, otherwise text")->required();
        limits_.declare(*watch);
    }

    CLI::App* action(CLI::App& app, const char* name, const char* summary,
                     Exit (Store::*perform)(Host&, PHPrefsManager&)) {
        auto* subcommand = app.add_subcommand(name, summary);
        subcommand->group("Commands");
        subcommand->callback([this, perform] { action_ = perform; });
        return subcommand;
    }

    Host::Companions companions() const override { return Host::Companions::all; }

    Exit run(Host& host) override {
        if (domain_.empty() || domain_.find('/') != std::string::npos)
            throw CommandError(wrongUsage, "'" + domain_ + "' is not a preference domain");
        if (!notification_.empty()) requireNotificationName(notification_);
        const PHPrefsManager::Callback callback = [&](PHPrefsManager& store) {
            limits_.count();
            printAll(host, store);
        };
        const auto store = path_.empty()
                               ? PHPrefsManager::initWithId(domain_, defaults(), notification(), &callback)
                               : PHPrefsManager::initWithPath(path_, defaults(), notification(), &callback);
        return (this->*action_)(host, *store);
    }

    std::optional<std::string> notification() const {
        return notification_.empty() ? std::nullopt : std::optional(notification_);
    }

    Dictionary defaults() const {
        Dictionary result;
        for (const auto& each : defaults_) {
            const auto sign = each.find('=');
            if (sign == std::string::npos || sign == 0)
                throw CommandError(wrongUsage, "'" + each + "' is not KEY=VALUE");
            result[each.substr(0, sign)] = valueFromText(each.substr(sign + 1));
        }
        return result;
    }

    Value argumentValue(const std::string& text) const { return isText_ ? Value(text) : valueFromText(text); }

    Exit get(Host& host, PHPrefsManager& store) {
        const auto& value = store.objectForKey(key_);
        if (host.options().json)
            host.printJson({{"domain", domain_}, {"key", key_}, {"value", json(value)}});
        else if (!value.isNothing())
            host.print(shownText(value) + "\n");
        host.throwOnProblem();
        return value.isNothing() ? nothingThere : done;
    }

    Exit set(Host& host, PHPrefsManager& store) {
        store.setObject(argumentValue(value_), key_);
        store.saveAndNotify();
        host.throwOnProblem();
        return host.options().json ? get(host, store) : done;
    }

    Exit remove(Host& host, PHPrefsManager& store) {
        host.throwOnProblem();
        if (store.objectForKey(key_).isNothing())
            throw CommandError(nothingThere, "no value under '" + key_ + "'");
        store.removeObjectForKey(key_);
        store.saveAndNotify();
        host.throwOnProblem();
        if (host.options().json) host.printJson({{"domain", domain_}, {"removed", key_}});
        return done;
    }

    Exit list(Host& host, PHPrefsManager& store) {
        printAll(host, store);
        host.throwOnProblem();
        return done;
    }

    Exit watch(Host& host, PHPrefsManager& /*store*/) {
        if (notification_.empty()) throw CommandError(wrongUsage, "watch needs --notify NAME");
        host.throwOnProblem();
        host.printProblemsAtOnce();
        limits_.run(host.device().runLoop());
        return done;
    }

    void printAll(Host& host, const PHPrefsManager& store) const {
        if (host.options().json) {
            host.printJson(
                {{"domain", domain_}, {"values", json(Value(store.currentPrefsImplementation()))}});
            return;
        }
        std::string text;
        for (const auto& [key, value] : store.currentPrefsImplementation())
            text += printable(key) + " = " + shownText(value) + "\n";
        host.print(text);
    }
};

} // namespace

std::unique_ptr<Command> makeStore() { return std::make_unique<Store>(); }

} // namespace prismo::cli
