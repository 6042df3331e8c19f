// The lines of `drive` for the device around the module, and for the kit.

#include "cli/arguments/NotificationName.h"
#include "cli/drive/DriveSession.h"
#include "cli/output/CommandError.h"
#include "cli/output/Json.h"
#include "cli/pages/RowValue.h"
#include "kit/FBKillProcess.h"
#include "kit/FBOpenLinks.h"
#include "kit/FBPrefsTint.h"
#include "kit/FBWelcomeTwitterHandler.h"
#include "prefs/SettingsFile.h"

#include "platform/text/Number.h"
#include "platform/uikit/UIApplication.h"

#include <cmath>

namespace prismo::cli {

using Answer = nlohmann::ordered_json;

namespace {

double number(const std::string& text, double atMost) {
    const auto value = numberFromText<double>(text);
    if (!value || !(*value >= 0 && *value <= atMost))
        throw CommandError(wrongUsage,
                           "'" + text + "' is not a number from 0 to " + std::to_string(std::lround(atMost)));
    return *value;
}

} // namespace

Answer DriveSession::wait(const Words& words) {
    constexpr double longest = 86400;
    host_.device().runLoop().run(Seconds(number(words[0], longest)));
    return Answer::object();
}

Answer DriveSession::post(const Words& words) {
    requireNotificationName(words[0]);
    host_.device().postFromOutside(words[0]);
    return Answer::object();
}

Answer DriveSession::rotate(const Words& words) {
    constexpr double largest = 100000;
    UIApplication::sharedApplication()->setScreenSize({number(words[0], largest), number(words[1], largest)});
    return Answer::object();
}

Answer DriveSession::state(const Words& /*words*/) { return driveState(*root_, *navigation_); }

Answer DriveSession::effects(const Words& /*words*/) { return {{"effects", json(host_.takeEffects())}}; }

Answer DriveSession::file(const Words& /*words*/) {
    const auto settings = host_.device().readPropertyList(settingsFilePath);
    return {{"file", settings ? json(Value(*settings)) : Answer()}};
}

Answer DriveSession::handlers(const Words& words) {
    host_.memoryDevice().setLinkSchemes({words.begin(), words.end()});
    return Answer::object();
}

Answer DriveSession::accounts(const Words& words) {
    using Access = MemoryDevice::AccountAccess;
    if (words[0] != "granted" && words[0] != "refused")
        throw CommandError(wrongUsage, "'" + words[0] + "' is neither granted nor refused");
    std::vector<Account> accounts;
    for (auto name = words.begin() + 1; name != words.end(); ++name)
        accounts.push_back({*name, *name});
    host_.memoryDevice().setAccounts(words[0] == "granted" ? Access::granted : Access::refused,
                                     std::move(accounts));
    return Answer::object();
}

Answer DriveSession::follow(const Words& words) {
    std::optional<std::string> title;
    std::optional<std::string> message;
    for (std::size_t i = 1; i < words.size(); i += 2) {
        if (i + 1 == words.size() || (words[i] != "--title" && words[i] != "--message"))
            throw CommandError(wrongUsage, "'follow' takes a name, --title T and --message M");
        (words[i] == "--title" ? title : message) = words[i + 1];
    }
    FBShowTwitterFollowAlert(title, message, words[0]);
    return Answer::object();
}

Answer DriveSession::profile(const Words& words) { return {{"result", FBOpenTwitterUsername(words[0])}}; }

Answer DriveSession::mail(const Words& words) { return {{"result", FBOpenMailAddress(words[0])}}; }

Answer DriveSession::tint(const Words& words) {
    FBSetPrefsTint(root_, colorArgument(words[0]));
    return Answer::object();
}

Answer DriveSession::untint(const Words& /*words*/) {
    FBResetPrefsTint(root_);
    return Answer::object();
}

Answer DriveSession::kill(const Words& words) {
    return {{"result", FBKillProcess(words.size() > 1 ? std::optional(words[1]) : std::nullopt, words[0])}};
}

} // namespace prismo::cli
